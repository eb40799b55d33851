#include <gtest/gtest.h>

#include <vector>

#include "gui/GuiWorld.h"
#include "gui/Input.h"

namespace ventlock::test {
namespace {

class WindowOfSize : public testing::Test {
 protected:
    // The window is at home on the screen, with its frame around it.
    void SetUp() override {
        ASSERT_TRUE(ReadyToType(window_.Controls().txtMain[kDataSourceBox]->Box()));
        frame_ = window_.GetSize() - Inside().GetSize();
        ASSERT_GT(frame_.y, 0);
    }

    wxWindow& Inside() { return *window_.Controls().sstVentlock->GetParent(); }

    /// Asks for an outer size and waits for what the window and all inside of it are given.
    void Resize(int width, int height, wxSize expected) {
        window_.SetSize(width, height);
        WaitUntil("the new size", [&] { return Inside().GetSize() == expected - frame_; });
        EXPECT_EQ(window_.GetSize(), expected) << window_.GetSize().x << " x " << window_.GetSize().y;
    }

    /// Where the controls stand in their tabs and in the window.
    std::vector<wxRect> Places() {
        std::vector<wxRect> places;
        const MainControls& c = window_.Controls();
        for (const auto& box : c.txtMain) places.push_back(box->Box().GetRect());
        for (const wxStaticText* label : c.lblMain) places.push_back(label->GetRect());
        for (const ListField* list : std::initializer_list<ListField*>{
                 c.cboDevRev.get(), c.cboDDRev.get(), c.cboHARTRev.get(), c.cboDeviceProtocol.get(),
                 c.cboDeviceCategory.get(), c.cboMinorCategory.get()})
            places.push_back(list->Box().GetRect());
        for (const wxWindow* other : std::initializer_list<wxWindow*>{
                 &c.lstTAVVersionSupport->Box(), c.sstVentlock, c.cmdSwitchDSN, c.cmdSelectDDInstall,
                 c.cmdSelectINI, c.cmdWriteDB, c.cmdWriteINI, c.cmdWriteDDInstall, c.cmdClose})
            places.push_back(other->GetRect());
        return places;
    }

    GuiWorld world_;
    frmMain& window_ = world_.Start();
    wxSize frame_;
};

TEST_F(WindowOfSize, BelowTheSmallestSnapsBack) {
    Resize(200, 100, {400, 343});
}

TEST_F(WindowOfSize, TooLowIsMadeHigherOnly) {
    Resize(640, 342, {640, 343});
}

TEST_F(WindowOfSize, TooNarrowIsMadeWiderOnly) {
    Resize(399, 500, {400, 500});
}

TEST_F(WindowOfSize, AtTheLimitStaysAsItIs) {
    Resize(400, 343, {400, 343});
}

TEST_F(WindowOfSize, EnlargedKeepsItsControlsInPlace) {
    const std::vector<wxRect> before = Places();
    Resize(1100, 900, {1100, 900});
    EXPECT_EQ(Places(), before);
}

TEST_F(WindowOfSize, ShrunkKeepsItsControlsInPlace) {
    const std::vector<wxRect> before = Places();
    Resize(400, 343, {400, 343});
    EXPECT_EQ(Places(), before);
}

TEST_F(WindowOfSize, ShowsAllOfItsControlsAtFirst) {
    const wxSize client = window_.GetClientSize();
    const MainControls& controls = window_.Controls();
    EXPECT_LE(controls.sstVentlock->GetRect().GetRight(), client.x);
    EXPECT_LE(controls.cmdClose->GetRect().GetRight(), client.x);
    EXPECT_LE(controls.cmdClose->GetRect().GetBottom(), client.y);
}

}  // namespace
}  // namespace ventlock::test
