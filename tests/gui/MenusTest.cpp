// The menus as they are born, before the dictionary names them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "gui/GuiWorld.h"
#include "ui/WxText.h"

namespace ventlock::test {
namespace {

using ::testing::ElementsAre;

/// An item as the table of menus says it: what it is bound to and its caption, "-" for a separator.
struct ItemRow {
    wxMenuItem* item;
    std::string caption;
};

class Menus : public testing::Test {
 protected:
    static void ExpectItems(const wxMenu& menu, const std::vector<ItemRow>& rows) {
        ASSERT_EQ(menu.GetMenuItemCount(), rows.size());
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const wxMenuItem* item = menu.FindItemByPosition(i);
            EXPECT_EQ(item, rows[i].item) << i;
            EXPECT_EQ(item->IsSeparator() ? "-" : FromWx(item->GetItemLabel()), rows[i].caption);
        }
    }

    GuiWorld world_{GuiWorld::NoDatabase{}};
    MainMenu& menu_ = world_.Make().Menu();
};

TEST_F(Menus, StandInTheMenuBar) {
    ASSERT_EQ(world_.Window().GetMenuBar(), menu_.bar);
    ASSERT_EQ(menu_.bar->GetMenuCount(), 4u);
    EXPECT_EQ(menu_.bar->GetMenuLabel(0), "&File");
    EXPECT_EQ(menu_.bar->GetMenuLabel(1), "&Edit");
    EXPECT_EQ(menu_.bar->GetMenuLabel(2), "&Help");
    EXPECT_EQ(menu_.bar->GetMenuLabel(3), "&Tools");
    EXPECT_EQ(menu_.bar->GetMenu(0), menu_.mnuFile);
    EXPECT_EQ(menu_.bar->GetMenu(1), menu_.mnuEdit);
    EXPECT_EQ(menu_.bar->GetMenu(2), menu_.mnuHelp);
    EXPECT_EQ(menu_.bar->GetMenuLabel(3), "&Tools");
    EXPECT_EQ(menu_.bar->GetMenu(3), menu_.mnuTools);
}

TEST_F(Menus, OfferFilesWritingAndTheEndUnderFile) {
    ExpectItems(*menu_.mnuFile, {{menu_.mnuSelectDDInstall, "S&elect DDInstall..."},
                                 {menu_.mnuSelectINI, "Select I&NI..."},
                                 {menu_.mnuFileSep1, "-"},
                                 {menu_.mnuWriteDB, "Write to &Database"},
                                 {menu_.mnuWriteINI, "Write to &INI"},
                                 {menu_.mnuWriteDDInstall, "Write to DDInstal&l"},
                                 {menu_.mnuFileSep2, "-"},
                                 {menu_.mnuExit, "E&xit"}});
}

TEST_F(Menus, OfferTheClipboardAndClearingUnderEdit) {
    ExpectItems(*menu_.mnuEdit, {{menu_.mnuCut, "Cu&t\tCtrl+X"},
                                 {menu_.mnuCopy, "&Copy\tCtrl+C"},
                                 {menu_.mnuPaste, "&Paste\tCtrl+V"},
                                 {menu_.mnuEditSep1, "-"},
                                 {menu_.mnuClear, "C&lear Entries"}});
}

TEST_F(Menus, OfferHelpAndTheAboutBoxUnderHelp) {
    ExpectItems(*menu_.mnuHelp, {{menu_.mnuHelpContents, "&Contents..."},
                                 {menu_.mnuHelpSearch, "&Search for Help on..."},
                                 {menu_.mnuHelpSep1, "-"},
                                 {menu_.mnuHelpAbout, "&About..."}});
}

TEST_F(Menus, OfferEntryFilesThePreviewAndTheLogUnderTools) {
    ExpectItems(*menu_.mnuTools, {{menu_.mnuOpenEntry, "&Open Entry...\tCtrl+O"},
                                  {menu_.mnuSaveEntry, "&Save Entry As...\tCtrl+S"},
                                  {menu_.mnuToolsSep1, "-"},
                                  {menu_.mnuPreview, "&Preview...\tCtrl+P"},
                                  {menu_.mnuLog, "&Log Entries"}});
}

TEST_F(Menus, DisableOnlyTheWriteCommandsAtFirst) {
    std::vector<std::string> disabled;
    for (const wxMenu* menu : {menu_.mnuFile, menu_.mnuEdit, menu_.mnuHelp, menu_.mnuTools}) {
        for (const wxMenuItem* item : menu->GetMenuItems())
            if (!item->IsSeparator() && !item->IsEnabled()) disabled.push_back(FromWx(item->GetItemLabel()));
    }
    EXPECT_THAT(disabled, ElementsAre("Write to &Database", "Write to &INI", "Write to DDInstal&l"));
}

TEST_F(Menus, KeepAnAccessLetterOfTheirOwnWhenTheWindowIsLoaded) {
    world_.Window().Form_Load();
    for (const wxMenu* menu : {menu_.mnuFile, menu_.mnuEdit, menu_.mnuHelp, menu_.mnuTools}) {
        std::string letters;
        for (const wxMenuItem* item : menu->GetMenuItems()) {
            if (item->IsSeparator()) continue;
            const wxString caption = item->GetItemLabel();
            ASSERT_NE(caption.Find('&'), wxNOT_FOUND) << caption;
            const char letter = caption.AfterFirst('&').Upper()[0];
            EXPECT_EQ(letters.find(letter), std::string::npos) << caption;
            letters += letter;
        }
    }
}

}  // namespace
}  // namespace ventlock::test
