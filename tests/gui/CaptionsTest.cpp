// What the captions of the window are.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <ostream>

#include "core/clsSettings.h"
#include "gui/CaptionRows.h"
#include "gui/GuiWorld.h"
#include "gui/RecordingDictionary.h"
#include "support/RowName.h"
#include "ui/WxText.h"

namespace ventlock::test {

void PrintTo(const CaptionRow& row, std::ostream* out) {
    *out << row.key;
}

namespace {

/// A window whose captions tell the key that they came from; the tests only look at it.
class Caption : public testing::TestWithParam<CaptionRow> {
 protected:
    static void SetUpTestSuite() {
        world_ = std::make_unique<GuiWorld>();
        world_->createDictionary = [] { return std::make_shared<RecordingDictionary>(); };
        world_->Start();
    }
    static void TearDownTestSuite() { world_.reset(); }

    static std::unique_ptr<GuiWorld> world_;
};

std::unique_ptr<GuiWorld> Caption::world_;

TEST_P(Caption, IsTheTextOfItsKeyAndItsSuffix) {
    EXPECT_EQ(GetParam().shown(world_->Window()), GetParam().key + " in EN" + GetParam().suffix);
}

INSTANTIATE_TEST_SUITE_P(Window, Caption, testing::ValuesIn(WindowCaptions()), RowName());
INSTANTIATE_TEST_SUITE_P(Labels, Caption, testing::ValuesIn(LabelCaptions()), RowName());
INSTANTIATE_TEST_SUITE_P(Tools, Caption, testing::ValuesIn(ToolsMenuCaptions()), RowName());
INSTANTIATE_TEST_SUITE_P(ToolTips, Caption, testing::ValuesIn(ToolTipCaptions()), RowName());

std::string Shown(const std::string& name, frmMain& window) {
    for (const CaptionRow& row : AllCaptions()) {
        if (row.name == name) return row.shown(window);
    }
    ADD_FAILURE() << name << " has no caption";
    return {};
}

/// The window's captions in order, and those of the dictionary files in a language.
std::vector<std::string> ShownCaptions(frmMain& window) {
    std::vector<std::string> captions;
    for (const CaptionRow& row : AllCaptions()) captions.push_back(row.shown(window));
    return captions;
}

std::vector<std::string> CaptionsOfTheFiles(GuiWorld& world, const std::string& language) {
    TavDictionary dictionary(world.host.Files());
    EXPECT_TRUE(dictionary.Load({world.ProgramFile("QorStandard.dct"), world.ProgramFile("Ventlock.dct")}));
    std::vector<std::string> captions;
    for (const CaptionRow& row : AllCaptions())
        captions.push_back(dictionary.Find(row.key, language, true) + row.suffix);
    return captions;
}

void PutLanguage(GuiWorld& world, const std::string& language) {
    world.host.registry.PutText(RegistryRoot::LocalMachine, std::string(kSettingsRoot) + "Settings",
                                "Language", language);
}

TEST(Captions, FollowTheStoredLanguageAtTheNextStart) {
    GuiWorld world;
    PutLanguage(world, "DE");
    frmMain& german = world.Start();
    EXPECT_EQ(ShownCaptions(german), CaptionsOfTheFiles(world, "DE"));
    EXPECT_EQ(Shown("mnuFile", german), "&Datei");
    EXPECT_EQ(Shown("lblMain13", german), "Hauptkategorie:");
    world.CloseAndForget();

    PutLanguage(world, "EN");
    frmMain& english = world.Start();
    EXPECT_EQ(ShownCaptions(english), CaptionsOfTheFiles(world, "EN"));
    EXPECT_EQ(Shown("mnuFile", english), "&File");
}

TEST(Captions, FollowTheSystemsLanguageWhenNoneIsStored) {
    GuiWorld world;
    world.host.locale.languageName = "Deutsch (Deutschland)";
    EXPECT_EQ(Shown("cmdClose", world.Start()), "Schlie\u00DFen");
}

TEST(Captions, OfALanguageWithoutTextsAreEnglish) {
    GuiWorld world;
    PutLanguage(world, "fr");
    EXPECT_EQ(ShownCaptions(world.Start()), CaptionsOfTheFiles(world, "EN"));
}

TEST(Captions, InEnglishNameMajorCategoryAndDescriptionWithAColonAndTheNoteWithout) {
    GuiWorld world;
    frmMain& window = world.Start();
    EXPECT_EQ(Shown("lblMain13", window), "Major Category:");
    EXPECT_EQ(Shown("lblMain18", window), "Description:");
    EXPECT_EQ(Shown("lblMain20", window), "Only Conventional devices need major and minor categories");
}

TEST(Captions, OfAMissingKeyAreTheKey) {
    GuiWorld world;
    WriteBytes(world.ProgramFile("Ventlock.dct"), "[EN]\r\nIDS_TITLE=Ventlock\r\n");
    frmMain& window = world.Start();
    EXPECT_EQ(Shown("frmMain", window), "Ventlock");
    EXPECT_EQ(Shown("lblMain13", window), "IDS_LBL_CAT:");
    EXPECT_EQ(Shown("mnuSelectINI", window), "IDS_MNU_SELECT_INI...");
    EXPECT_EQ(Shown("mnuFile", window), "&File") << "of the standard dictionary";
}

TEST(Captions, GetTheirSuffixWhateverTheTextEndsIn) {
    GuiWorld world;
    const auto dictionary = std::make_shared<RecordingDictionary>();
    dictionary->texts = {{"IDS_LBL_DSN", "Source:"}, {"IDS_MNU_SELECT_DD", "Select..."}};
    world.createDictionary = [&] { return dictionary; };
    frmMain& window = world.Start();
    EXPECT_EQ(Shown("lblMain0", window), "Source::");
    EXPECT_EQ(Shown("mnuSelectDDInstall", window), "Select......");
}

TEST(Captions, MayBeEmptyInTheDictionary) {
    GuiWorld world;
    const auto dictionary = std::make_shared<RecordingDictionary>();
    for (const CaptionRow& row : AllCaptions()) dictionary->texts[row.key] = "";
    world.createDictionary = [&] { return dictionary; };
    frmMain& window = world.Start();
    EXPECT_EQ(Shown("lblMain0", window), ":");
    EXPECT_EQ(Shown("mnuSelectDDInstall", window), "...");
    EXPECT_EQ(Shown("cmdClose", window), "");
    EXPECT_EQ(Shown("mnuClear", window), " ") << "an item always has a caption";
    EXPECT_EQ(window.Menu().mnuCut->GetItemLabel(), " \tCtrl+X");
}

TEST(Captions, OfTheMenuToolsFollowTheLanguageAndKeepTheirShortcuts) {
    GuiWorld world;
    world.host.locale.languageName = "Deutsch (Deutschland)";
    const MainMenu& menu = world.Start().Menu();
    EXPECT_EQ(menu.bar->GetMenuLabel(3), "E&xtras");
    EXPECT_EQ(FromWx(menu.mnuOpenEntry->GetItemLabel()), "Eintrag \u00F6&ffnen...\tCtrl+O");
    EXPECT_EQ(FromWx(menu.mnuSaveEntry->GetItemLabel()), "Eintrag &speichern unter...\tCtrl+S");
    EXPECT_EQ(FromWx(menu.mnuPreview->GetItemLabel()), "&Vorschau...\tCtrl+P");
}

/// The captions of a window and all that stands in it.
void CollectTexts(const wxWindow& window, std::vector<std::string>& texts) {
    for (const wxWindow* child : window.GetChildren()) {
        // The texts below the paths tell of files, and are empty without anything to tell.
        const bool isState = child->GetName().EndsWith("State");
        if ((dynamic_cast<const wxStaticText*>(child) != nullptr && !isState) ||
            dynamic_cast<const wxButton*>(child) != nullptr) {
            texts.push_back(FromWx(child->GetLabel()));
        }
        CollectTexts(*child, texts);
    }
}

TEST(Captions, LeaveNoLiteralTextInTheWindowButTheDotsAndArrowsOfButtons) {
    GuiWorld world;
    world.createDictionary = [] { return std::make_shared<RecordingDictionary>(); };
    frmMain& window = world.Start();
    std::vector<std::string> texts{FromWx(window.GetTitle())};
    CollectTexts(window, texts);
    for (std::size_t menu = 0; menu < window.Menu().bar->GetMenuCount(); ++menu) {
        texts.push_back(FromWx(window.Menu().bar->GetMenuLabel(menu)));
        for (const wxMenuItem* item : window.Menu().bar->GetMenu(menu)->GetMenuItems()) {
            if (!item->IsSeparator()) texts.push_back(FromWx(item->GetItemLabel()));
        }
    }
    int dots = 0;
    int arrows = 0;
    for (const std::string& text : texts) {
        if (text == "...") {
            ++dots;
        } else if (text == "\u25BE") {
            ++arrows;
        } else {
            EXPECT_THAT(text, testing::AllOf(testing::StartsWith("IDS_"), testing::HasSubstr(" in EN")));
        }
    }
    EXPECT_EQ(dots, 2);
    EXPECT_EQ(arrows, 3);
    EXPECT_EQ(texts.size(), 1u + 23u + 10u + 1u + 4u + 17u) << "title, labels, buttons, status, menus, items";
}

}  // namespace
}  // namespace ventlock::test
