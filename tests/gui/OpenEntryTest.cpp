#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/clsSettings.h"
#include "gui/Commands.h"
#include "gui/GuiWorld.h"
#include "gui/Input.h"
#include "gui/SwitchTo.h"
#include "gui/WhileModal.h"
#include "support/LogEntry.h"
#include "ui/WxText.h"
#include "ui/frmChoose.h"

namespace ventlock::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const std::string kLevel =
    "[Level]\nManID=11\nManName=B\xC3\xA4r\nManDesc=Bear Inc\nProtID=2\nDevID=1\nDevName=Level\n"
    "DevDesc=Level meter\nDevRev=02\nDDRev=03\nProtRev=06\nDevRevName=R2\nDevRevDesc=Second\nDevCatID=2\n"
    "DevMinCatID=1\nDLLName=Lev.dll\nTemplateName=Lev.mrg\nDevHelp=L.hlp\nBlkHelp=M.hlp\n"
    "TAVVersions=5.0, 7.0\n";

/// The window with the world's entry in it, and a file to open.
class OpenEntry : public testing::Test {
 protected:
    explicit OpenEntry(DeviceSchema schema = DeviceSchema::Current) : world_(schema) {
        world_.PutEntry();
        world_.fileDialog.answer = Path();
    }

    void Open(const std::string& bytes) {
        WriteBytes(Path(), bytes);
        Choose(world_.Window(), *world_.Window().Menu().mnuOpenEntry);
    }

    /// Opens a file that must change nothing; gives the one message.
    std::string Refused(const std::string& bytes) {
        const std::vector<std::string> before = Shown();
        Open(bytes);
        EXPECT_EQ(Shown(), before);
        EXPECT_EQ(world_.messages.messages.size(), 1U);
        return world_.messages.messages.empty() ? "" : world_.messages.messages.back().text;
    }

    /// Everything that the fields show.
    std::vector<std::string> Shown() {
        const EntryForm form = world_.Window().Controls().Read();
        std::vector<std::string> texts(form.txtMain.begin(), form.txtMain.end());
        for (const std::string& text : {form.cboDevRev, form.cboDDRev, form.cboHARTRev})
            texts.push_back(text);
        for (const ListChoice& choice :
             {form.cboDeviceProtocol, form.cboDeviceCategory, form.cboMinorCategory}) {
            texts.push_back(std::to_string(choice.index) + " " + choice.text);
        }
        for (const OfferedVersion& version : form.lstTAVVersionSupport)
            texts.push_back(version.text + (version.isSelected ? " selected" : ""));
        return texts;
    }

    [[nodiscard]] std::string Path() const { return world_.Folder() + "level.ini"; }

    GuiWorld world_;
};

class OpenEntryOnTheOldSchema : public OpenEntry {
 protected:
    OpenEntryOnTheOldSchema() : OpenEntry(DeviceSchema::Old) {}
};

TEST_F(OpenEntry, ShowsEveryFieldOfTheFileAndLeavesTheTargetsAlone) {
    frmMain& window = world_.Start();
    Open(kLevel);
    EXPECT_THAT(Shown(), ElementsAre(world_.Database().Dsn(), world_.DDInstallPath(), world_.PyxPath(), "11",
                                     "B\xC3\xA4r", "Bear Inc", "1", "Level", "Level meter", "Lev.dll",
                                     "Lev.mrg", "R2", "Second", "L.hlp", "M.hlp", "02", "03", "06",
                                     testing::StartsWith("2 "), testing::StartsWith("2 "),
                                     testing::StartsWith("1 "), "5.0 selected", "6.0", "7.0 selected"));
    EXPECT_THAT(world_.messages.Texts(), IsEmpty());
    EXPECT_THAT(UsableWrites(window), testing::SizeIs(6));
}

TEST_F(OpenEntry, IsToldInTheStatusTextUntilTheConnectionChanges) {
    frmMain& window = world_.Start();
    const auto status = [&] { return FromWx(window.Controls().lblStatus->GetLabelText()); };
    const std::string connected = status();
    Open(kLevel);
    EXPECT_EQ(status(), "Opened level.ini [Level]");
    Refused("[Other]\nManID=2G\n");
    EXPECT_EQ(status(), "Opened level.ini [Level]");
    SwitchTo(window, world_.Database().Dsn());
    EXPECT_EQ(status(), connected);
}

TEST_F(OpenEntry, IsToldInGermanToo) {
    world_.host.registry.PutText(RegistryRoot::LocalMachine, std::string(kSettingsRoot) + "Settings",
                                 "Language", "DE");
    frmMain& window = world_.Start();
    Open("[A & B? \x1B]\nManID=11\n");
    EXPECT_EQ(FromWx(window.Controls().lblStatus->GetLabelText()), "level.ini [A & B? \\x1B] ge\u00F6ffnet");
}

TEST_F(OpenEntry, AsksForAnExistingFileAndBeginsAtTheLastOne) {
    world_.Start();
    Open(kLevel);
    Open(kLevel);
    ASSERT_EQ(world_.fileDialog.questions.size(), 2U);
    const FileQuestion& question = world_.fileDialog.questions[0];
    EXPECT_EQ(question.flags, kFileMustExist | kHideReadOnly);
    EXPECT_EQ(question.filters, "Entry files (*.ini)|*.ini|All files (*.*)|*.*");
    EXPECT_EQ(question.title, "Open Entry");
    EXPECT_EQ(question.start, "");
    EXPECT_EQ(world_.fileDialog.questions[1].start, Path());
}

TEST_F(OpenEntry, ThatIsCancelledChangesNothing) {
    world_.Start();
    world_.fileDialog.answer.clear();
    const std::vector<std::string> before = Shown();
    Open(kLevel);
    EXPECT_EQ(Shown(), before);
    EXPECT_THAT(world_.messages.Texts(), IsEmpty());
}

TEST_F(OpenEntry, ShowsTheDefaultOfAKeyThatTheFileLacks) {
    world_.Start();
    Open("[Short]\nManID=11\n");
    const EntryForm form = world_.Window().Controls().Read();
    EXPECT_EQ(form.txtMain[kManufacturerIdBox], "11");
    for (std::size_t box = kManufacturerNameBox; box < kTextBoxCount; ++box)
        EXPECT_EQ(form.txtMain[box], "") << box;
    EXPECT_EQ(form.cboDevRev + form.cboDDRev + form.cboHARTRev, "010105");
    EXPECT_EQ(form.cboDeviceProtocol.itemData, 0);
    EXPECT_EQ(form.cboDeviceCategory.itemData, 0);
    EXPECT_TRUE(form.lstTAVVersionSupport[0].isSelected) << "5.0";
    EXPECT_FALSE(form.lstTAVVersionSupport[1].isSelected);
}

TEST_F(OpenEntry, TellsEveryFindingOfAFileWithErrorsAtOnceAndChangesNothing) {
    world_.Start();
    EXPECT_EQ(Refused("[A]\nWhat=1\nManID=1\nManID=2\nnothing\n"),
              "The entry was not opened. The window stays as it was.\n\n" + Path() +
                  ":2: error [unknown-key] \"What\" is no key of an entry; the keys are ManID, ManName, "
                  "ManDesc, ProtID, DevID, DevName, DevDesc, DevRev, DDRev, ProtRev, DevRevName, DevRevDesc, "
                  "DevCatID, DevMinCatID, DLLName, TemplateName, DevHelp, BlkHelp, TAVVersions, Protocol, "
                  "MajorCategory, MinorCategory\n" +
                  Path() + ":4: error [duplicate-key] \"ManID\" stands twice in this section; keep one\n" +
                  Path() + ":5: error [syntax] the line is no section, no key=value and no comment");
}

TEST_F(OpenEntry, TellsValuesThatNoFieldCanTake) {
    world_.Start();
    const std::string text = Refused("[A]\nManID=xyz\nProtID=two\nDevCatID=1\nMajorCategory=Flow\n");
    EXPECT_THAT(text, HasSubstr(":2: error [hex-digits] "));
    EXPECT_THAT(text, HasSubstr(":3: error [decimal-id] "));
    EXPECT_THAT(text, HasSubstr(":5: error [ambiguous] "));
}

TEST_F(OpenEntry, TellsAProtocolThatTheDatabaseLacks) {
    world_.Start();
    EXPECT_THAT(Refused("[A]\nManID=1\nProtID=77\n"), HasSubstr(":3: error [unknown-protocol] "));
}

TEST_F(OpenEntry, CutsALongListOfFindings) {
    world_.Start();
    std::string bytes = "[A]\n";
    for (int i = 0; i < 40; ++i) bytes += "nothing\n";
    EXPECT_THAT(Refused(bytes), testing::EndsWith("\n... and 15 more"));
}

TEST_F(OpenEntry, OfAFileThatCannotBeReadIsLoggedAndChangesNothing) {
    world_.Start();
    const std::vector<std::string> before = Shown();
    Choose(world_.Window(), *world_.Window().Menu().mnuOpenEntry);
    EXPECT_EQ(Shown(), before);
    EXPECT_THAT(world_.LogEntries(), ElementsAre(HasSubstr("fMoe-01: File not found")));
    EXPECT_THAT(world_.messages.Texts(), testing::SizeIs(1));
}

TEST_F(OpenEntry, OpensAnUnfinishedEntry) {
    frmMain& window = world_.Start();
    Open("[Draft]\nDevName=Level\n");
    EXPECT_EQ(window.Controls().txtMain[kDeviceNameBox]->Text(), "Level");
    EXPECT_THAT(UsableWrites(window), IsEmpty());
    EXPECT_THAT(world_.messages.Texts(), IsEmpty());
}

TEST_F(OpenEntry, ShowsTheEntryAndTellsWhatOfItIsNotUsed) {
    world_.Start();
    Open("[A]\nManID=11\nProtID=1\nDevRevName=R\n");
    EXPECT_EQ(world_.Window().Controls().txtMain[kManufacturerIdBox]->Text(), "11");
    EXPECT_EQ(world_.Window().Controls().txtMain[kRevisionNameBox]->Text(), "");
    EXPECT_THAT(world_.messages.Texts(),
                ElementsAre(testing::StartsWith("The entry was opened. Please note:\n\n" + Path() +
                                                ":4: warning [not-used] DevRevName")));
}

TEST_F(OpenEntry, AddsAVersionThatIsNotOfferedAndNamesACategoryThatIsNew) {
    world_.Start();
    Open("[A]\nManID=11\nProtID=2\nMajorCategory=Turbines\nTAVVersions=8.0, 5.0, 8.0\n");
    const EntryForm form = world_.Window().Controls().Read();
    ASSERT_EQ(form.lstTAVVersionSupport.size(), 4U);
    EXPECT_TRUE(form.lstTAVVersionSupport[0].isSelected);
    EXPECT_EQ(form.lstTAVVersionSupport[3].text, "8.0");
    EXPECT_TRUE(form.lstTAVVersionSupport[3].isSelected);
    EXPECT_EQ(form.cboDeviceCategory.text, "Turbines");
    EXPECT_EQ(form.cboDeviceCategory.index, -1);
    EXPECT_THAT(world_.Database().Rows("SELECT * FROM MajorDeviceCategories"),
                testing::Not(HasSubstr("Turbines")));
}

TEST_F(OpenEntry, ReplacesAnEntryWithoutAQuestionAsClearingDoes) {
    frmMain& window = world_.Start();
    window.Controls().txtMain[kDeviceNameBox]->SetText("typed");
    Open(kLevel);
    EXPECT_EQ(window.Controls().txtMain[kDeviceNameBox]->Text(), "Level");
    EXPECT_THAT(world_.messages.Texts(), IsEmpty());
}

TEST_F(OpenEntry, LetsASecondDeviceBeWrittenWithoutASwitch) {
    frmMain& window = world_.Start();
    window.mnuWriteDB_Click();
    Open(kLevel);
    window.mnuWriteDB_Click();
    EXPECT_THAT(world_.messages.Texts(),
                ElementsAre("The database has been updated.", "The database has been updated."));
    EXPECT_EQ(world_.Database().Rows("SELECT TavMfrNameId, Name FROM Manufacturers"),
              "1|Acme\n2|B\xC3\xA4r\n");
    EXPECT_EQ(world_.Database().Rows("SELECT TavDevTypeId, MfrProtocolId, Name FROM DeviceTypes"),
              "1|1|Flow\n2|2|Level\n");
    EXPECT_EQ(world_.Database().Rows("SELECT TavDevRevId, TavDevTypeId, Name FROM DeviceRevisions"),
              "1|1|R1\n2|2|R2\n");
}

TEST_F(OpenEntryOnTheOldSchema, KeepsWhatTheFieldsDoNotShowForTheSettings) {
    frmMain& window = world_.Start();
    Open(kLevel);
    EXPECT_EQ(window.Controls().txtMain[kManufacturerDescriptionBox]->Text(), "");
    EXPECT_THAT(world_.messages.Texts(), IsEmpty());
    world_.CloseAndForget();
    EXPECT_EQ(world_.Stored("ManDesc"), "Bear Inc");
    EXPECT_EQ(world_.Stored("DevRevName"), "R2");
    EXPECT_EQ(world_.Stored("DevCatID"), "2");
}

TEST_F(OpenEntryOnTheOldSchema, ShowsTheRestAfterTheSwitchToACurrentOne) {
    SqliteDatabase current;
    frmMain& window = world_.Start();
    Open(kLevel);
    window.Controls().txtMain[kDataSourceBox]->SetText(current.Dsn());
    window.cmdSwitchDSN_Click();
    const EntryForm form = window.Controls().Read();
    EXPECT_EQ(form.txtMain[kManufacturerDescriptionBox], "Bear Inc");
    EXPECT_EQ(form.txtMain[kRevisionDescriptionBox], "Second");
    EXPECT_EQ(form.cboDeviceProtocol.itemData, 2);
    EXPECT_EQ(form.cboDeviceCategory.itemData, 2);
}

TEST_F(OpenEntryOnTheOldSchema, ForgetsTheRestWhenTheEntryIsCleared) {
    SqliteDatabase current;
    frmMain& window = world_.Start();
    Open(kLevel);
    window.mnuClear_Click();
    window.Controls().txtMain[kDataSourceBox]->SetText(current.Dsn());
    window.cmdSwitchDSN_Click();
    EXPECT_EQ(window.Controls().txtMain[kManufacturerDescriptionBox]->Text(), "Acme Inc")
        << "of the settings";
}

/// A file of two entries, met by its question.
class OpenOneOfTwo : public OpenEntry {
 protected:
    void OpenAnd(const std::function<void(frmChoose&)>& act) {
        frmMain& window = world_.Start();
        const WhileModal modal(window, [&](wxDialog& box) { act(dynamic_cast<frmChoose&>(box)); });
        Open("[First]\nManID=1\n[Second]\nManID=2\n");
        EXPECT_EQ(modal.Opened(), 1);
    }

    std::string ManufacturerId() { return world_.Window().Controls().txtMain[kManufacturerIdBox]->Text(); }
};

TEST_F(OpenOneOfTwo, NamesThemAndTakesTheFirstByEnter) {
    OpenAnd([](frmChoose& box) {
        EXPECT_EQ(box.GetTitle(), "Open Entry");
        EXPECT_EQ(box.lblQuestion->GetLabel(),
                  "The file holds several entries. Choose the one to be opened:");
        EXPECT_EQ(box.lstNames->GetStrings(),
                  (wxArrayString{2, std::array<wxString, 2>{"First", "Second"}.data()}));
        PressKey(WXK_RETURN);
    });
    EXPECT_EQ(ManufacturerId(), "1");
}

TEST_F(OpenOneOfTwo, TakesTheMarkedOne) {
    OpenAnd([](frmChoose&) {
        PressKey(WXK_DOWN);
        PressKey(WXK_RETURN);
    });
    EXPECT_EQ(ManufacturerId(), "2");
}

TEST_F(OpenOneOfTwo, TakesNoneByEsc) {
    OpenAnd([](frmChoose&) { PressKey(WXK_ESCAPE); });
    EXPECT_EQ(ManufacturerId(), "26");
    EXPECT_THAT(world_.messages.Texts(), IsEmpty());
}

TEST_F(OpenEntry, ComesByCtrlO) {
    frmMain& window = world_.Start();
    WriteBytes(Path(), kLevel);
    ASSERT_TRUE(ReadyToType(window.Controls().txtMain[kDataSourceBox]->Box()));
    PressKey('O', wxMOD_CONTROL);
    WaitUntil("the entry", [&] { return window.Controls().txtMain[kManufacturerIdBox]->Text() == "11"; });
    EXPECT_EQ(window.Controls().txtMain[kDataSourceBox]->Text(), world_.Database().Dsn());
}

}  // namespace
}  // namespace ventlock::test
