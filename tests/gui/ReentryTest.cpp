// Controls that change while a change is dealt with.

#include <gtest/gtest.h>
#include <wx/frame.h>

#include <algorithm>

#include "entry/ControlStates.h"
#include "gui/Input.h"
#include "ui/MainControls.h"

namespace ventlock::test {
namespace {

// The rules run through the change handlers of the controls that they change.
class Reentry : public testing::Test {
 protected:
    Reentry() {
        controls_.cboDeviceProtocol->Add({{"HART"}, {"Fieldbus"}, {"Conventional"}});
        for (ListField* categories : std::initializer_list<ListField*>{controls_.cboDeviceCategory.get(),
                                                                       controls_.cboMinorCategory.get()})
            categories->Add({{"None"}, {"Pressure"}});
        controls_.txtMain[kRevisionNameBox]->SetText("R1");
        controls_.cboDeviceProtocol->Select(2);
        controls_.cboDeviceCategory->Select(1);
        changes_ = evaluations_ = deepest_ = 0;
    }
    ~Reentry() override {
        frame_->Destroy();
        WaitUntil("the window to be gone", [] { return wxTopLevelWindows.GetCount() == 1; });
    }

    void Evaluate() {
        ++evaluations_;
        deepest_ = std::max(deepest_, ++depth_);
        controls_.Apply(ControlStates(controls_.Read(), 5, true));
        --depth_;
    }

    FieldHandlers Handlers() {
        const auto evaluate = [this] { Evaluate(); };
        return {.txtMain_Change =
                    [this](std::size_t box) {
                        if (box == kRevisionNameBox) ++changes_;
                        Evaluate();
                    },
                .cboDeviceProtocol_Click = evaluate,
                .cboDeviceCategory_Change = evaluate,
                .cboDevRev_Change = evaluate,
                .cboDDRev_Change = evaluate,
                .cboHARTRev_Change = evaluate,
                .lstTAVVersionSupport_Click = evaluate,
                .dropDown = [](std::size_t) {}};
    }

    int changes_ = 0;  ///< of the revision name
    int evaluations_ = 0;
    int depth_ = 0;
    int deepest_ = 0;
    wxFrame* frame_ = new wxFrame(nullptr, wxID_ANY, "controls");
    MainControls controls_{*frame_, Handlers()};
};

TEST_F(Reentry, ByTheEmptiedRevisionNameEndsAtDepthTwo) {
    controls_.cboDeviceCategory->Select(0);
    changes_ = evaluations_ = deepest_ = 0;
    controls_.cboDeviceProtocol->Select(1);
    EXPECT_EQ(deepest_, 2);
    EXPECT_EQ(evaluations_, 2);
    EXPECT_EQ(changes_, 1);
    EXPECT_EQ(controls_.txtMain[kRevisionNameBox]->Text(), "");
    EXPECT_FALSE(controls_.txtMain[kRevisionNameBox]->Box().IsEnabled());
}

TEST_F(Reentry, ByTheEmptiedRevisionNameRaisesOneChange) {
    controls_.cboDeviceProtocol->Select(1);
    Pump();
    EXPECT_EQ(changes_, 1);
    EXPECT_EQ(controls_.cboDeviceCategory->Index(), 0);
}

TEST_F(Reentry, DoesNotHappenWhenNothingChanges) {
    controls_.cboDeviceProtocol->Select(1);
    changes_ = evaluations_ = deepest_ = 0;
    Evaluate();
    EXPECT_EQ(deepest_, 1);
    EXPECT_EQ(evaluations_, 1);
    EXPECT_EQ(changes_, 0);
}

TEST_F(Reentry, ByAChosenItemRunsItsHandlerOnce) {
    controls_.cboDevRev->Add({{"00"}});
    evaluations_ = 0;
    controls_.cboDevRev->Select(0);
    controls_.cboDevRev->Select(0);
    Pump();
    EXPECT_EQ(evaluations_, 1);
}

}  // namespace
}  // namespace ventlock::test
