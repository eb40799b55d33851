// How the captions get into the window.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>

#include "base/RunTimeError.h"
#include "gui/CaptionRows.h"
#include "gui/GuiWorld.h"
#include "gui/RecordingDictionary.h"
#include "ui/WxText.h"

namespace ventlock::test {
namespace {

using ::testing::Each;
using ::testing::IsEmpty;

class CaptionPass : public testing::Test {
 protected:
    CaptionPass() {
        world_.createDictionary = [this] { return dictionary_; };
    }

    static std::vector<std::string> KeysOf(const std::vector<CaptionRow>& rows) {
        std::vector<std::string> keys;
        for (const CaptionRow& row : rows) keys.push_back(row.key);
        return keys;
    }

    std::shared_ptr<RecordingDictionary> dictionary_ = std::make_shared<RecordingDictionary>();
    GuiWorld world_;
};

TEST_F(CaptionPass, LooksUpTwentySixCaptionsAndThenTwentyThreeLabelsInTheirOrder) {
    frmMain& window = world_.Start();
    dictionary_->lookUps.clear();
    window.LoadFormText(2);
    ASSERT_EQ(dictionary_->lookUps.size(), 26u + 23u);
    EXPECT_EQ(dictionary_->Keys(), KeysOf(PassCaptions()));
    EXPECT_EQ(WindowCaptions().size(), 26u);
    EXPECT_EQ(LabelCaptions().size(), 23u);
}

TEST_F(CaptionPass, LooksUpInTheSettingsLanguageWithTheFlagAndTheOptionSet) {
    world_.host.locale.languageName = "Deutsch";
    std::vector<bool> options;
    dictionary_->whileFinding = [&](const std::string&) { options.push_back(dictionary_->option3); };
    world_.Start();
    ASSERT_GE(dictionary_->lookUps.size(), 49u);
    for (const RecordingDictionary::LookUp& lookUp : dictionary_->lookUps) {
        EXPECT_EQ(lookUp.language, "DE") << lookUp.key;
        EXPECT_TRUE(lookUp.flag) << lookUp.key;
    }
    EXPECT_THAT(options, Each(true));
}

TEST_F(CaptionPass, RunsOnceAtStartBeforeTheEntryIsShown) {
    world_.PutEntry();
    frmMain& window = world_.Make();
    std::vector<std::string> idsSeen;
    dictionary_->whileFinding = [&](const std::string& key) {
        if (key.starts_with("IDS_LBL_"))
            idsSeen.push_back(window.Controls().txtMain[kManufacturerIdBox]->Text());
    };
    window.Form_Load();
    EXPECT_EQ(idsSeen, std::vector<std::string>(23, "")) << "once for each label, while the field was empty";
    EXPECT_EQ(window.Controls().txtMain[kManufacturerIdBox]->Text(), "26");
}

TEST_F(CaptionPass, SetsTheLoadingFlagForAsLongAsItRuns) {
    frmMain& window = world_.Start();
    EXPECT_FALSE(window.CaptionsLoading());
    std::vector<bool> flags;
    dictionary_->whileFinding = [&](const std::string&) { flags.push_back(window.CaptionsLoading()); };
    window.LoadFormText(2);
    EXPECT_EQ(flags, std::vector<bool>(49, true));
    EXPECT_FALSE(window.CaptionsLoading());
}

TEST_F(CaptionPass, ClearsTheLoadingFlagAfterErrorsToo) {
    frmMain& window = world_.Start();
    dictionary_->whileFinding = [](const std::string&) { throw RunTimeError(ErrorNumber::Overflow); };
    window.LoadFormText(2);
    EXPECT_FALSE(window.CaptionsLoading());
    EXPECT_EQ(window.Controls().lblMain[0]->GetLabel(), ":") << "the text of a failed look-up is empty";
    EXPECT_EQ(world_.messages.Texts(), std::vector<std::string>(49, "mLgs-00: Overflow"));
    EXPECT_THAT(world_.LogEntries(), IsEmpty()) << "a module's error is only shown";
}

TEST_F(CaptionPass, EndsWithTheControlStates) {
    frmMain& window = world_.Start();
    dictionary_->whileFinding = [&](const std::string& key) {
        if (key == "IDS_LBL_HART") window.Menu().mnuWriteDB->Enable(true);
    };
    window.LoadFormText(2);
    EXPECT_FALSE(window.Menu().mnuWriteDB->IsEnabled()) << "the entry is empty";
}

TEST_F(CaptionPass, MakesNoEntryChanged) {
    frmMain& window = world_.Make();
    window.Form_Load();
    const bool before = window.EntriesChanged();
    window.LoadFormText(2);
    EXPECT_EQ(window.EntriesChanged(), before);
}

TEST_F(CaptionPass, LeavesTheFlagAloneWhileTheEntryIsShownWhichIsAChange) {
    world_.PutEntry();
    frmMain& window = world_.Make();
    int yields = 0;
    world_.whileYielding = [&] {
        ++yields;
        EXPECT_FALSE(window.CaptionsLoading());
    };
    EXPECT_FALSE(window.EntriesChanged());
    window.Form_Load();
    EXPECT_GT(yields, 0);
    EXPECT_TRUE(window.EntriesChanged());
}

class OtherMode : public CaptionPass, public testing::WithParamInterface<int> {};

TEST_P(OtherMode, OfLoadFormTextDoesNothing) {
    world_.PutEntry();
    frmMain& window = world_.Start();
    dictionary_->lookUps.clear();
    window.Controls().txtMain[kManufacturerIdBox]->SetText("27");
    window.Menu().mnuWriteDB->Enable(false);
    window.LoadFormText(GetParam());
    EXPECT_THAT(dictionary_->lookUps, IsEmpty());
    EXPECT_EQ(window.Controls().txtMain[kManufacturerIdBox]->Text(), "27");
    EXPECT_EQ(window.Controls().lstTAVVersionSupport->Count(), 3);
    EXPECT_FALSE(window.Menu().mnuWriteDB->IsEnabled()) << "the control states were not asked";
    EXPECT_FALSE(window.CaptionsLoading());
}

INSTANTIATE_TEST_SUITE_P(Modes, OtherMode, testing::Values(1, 3, 4, -1));

void CollectToolTips(const wxWindow& window, std::map<std::string, std::string>& toolTips) {
    for (const wxWindow* child : window.GetChildren()) {
        if (child->GetToolTip() != nullptr)
            toolTips[FromWx(child->GetName())] = FromWx(child->GetToolTipText());
        CollectToolTips(*child, toolTips);
    }
}

TEST_F(CaptionPass, LeavesToolTipsAloneButThoseOfTheLists) {
    frmMain& window = world_.Make();
    std::map<std::string, std::string> before;
    CollectToolTips(window, before);
    window.Form_Load();
    std::map<std::string, std::string> after;
    CollectToolTips(window, after);
    for (const CaptionRow& row : ToolTipCaptions()) {
        EXPECT_EQ(before.erase(row.name), 1u) << row.name;
        EXPECT_EQ(after.erase(row.name), 1u) << row.name;
    }
    EXPECT_EQ(after, before);
    EXPECT_EQ(after.size(), 15u + 7u + 7u) << "text boxes, lists and buttons";
    EXPECT_EQ(after["cmdSelectINI"], "Select PYX.ini path");
}

TEST_F(CaptionPass, LeavesTheDotsOfTheSelectionButtonsAndTheSeparatorsAlone) {
    frmMain& window = world_.Start();
    EXPECT_EQ(window.Controls().cmdSelectDDInstall->GetLabel(), "...");
    EXPECT_EQ(window.Controls().cmdSelectINI->GetLabel(), "...");
    const MainMenu& menu = window.Menu();
    for (const wxMenuItem* separator :
         {menu.mnuFileSep1, menu.mnuFileSep2, menu.mnuEditSep1, menu.mnuHelpSep1}) {
        EXPECT_TRUE(separator->IsSeparator());
    }
}

TEST_F(CaptionPass, KeepsTheShortcuts) {
    frmMain& window = world_.Start();
    window.LoadFormText(2);
    EXPECT_EQ(window.Menu().mnuCut->GetItemLabel(), "IDS_MNU_EDIT_CUT in EN\tCtrl+X");
    EXPECT_EQ(window.Menu().mnuCopy->GetItemLabel(), "IDS_MNU_EDIT_COPY in EN\tCtrl+C");
    EXPECT_EQ(window.Menu().mnuPaste->GetItemLabel(), "IDS_MNU_EDIT_PASTE in EN\tCtrl+V");
}

}  // namespace
}  // namespace ventlock::test
