// What "Pyx.ini" holds and what is logged when it cannot be written.

#include <filesystem>

#include "support/RowName.h"
#include "support/WorkingFolder.h"
#include "unit/files/FilesWorld.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kOld = CrLf(
    "[Devices]\n"
    "000011.0001.01=000011/0001\n"
    "[000011.0001.01]\n"
    "Description=Old\n");

const std::string kUntidied = CrLf(
    "[Devices]\n"
    "000011.0001.01=000011/0001\n"
    "000026.0007.01=000026/0007\n"
    "[000011.0001.01]\n"
    "Description=Old\n"
    "[000026.0007.01]\n"
    "DeviceHelp=000026\\0007\\h.hlp\n"
    "BlockHelp_001=000026\\0007\\\n"
    "DeviceDLL=000026\\0007\\Dev.dll\n"
    "Description=Flow\n"
    "HART Protocol Rev=5\n");

class PyxConfigFailure : public PyxConfig {
 protected:
    PyxConfigFailure() { WriteBytes(Path(), kOld); }
};

TEST_F(PyxConfigFailure, BakThatIsAFolderLeavesTheKeysInTheFileUntidied) {
    std::filesystem::create_directory(Bak());
    EXPECT_TRUE(Insert());
    EXPECT_EQ(ReadBytes(Path()), kUntidied);
    EXPECT_THAT(Entries(), ElementsAre(EntryText("INIwb-01", ErrorNumber::PathFileAccessError)));
}

TEST_F(PyxConfigFailure, BakOnAFullDiskLeavesTheKeysInTheFileUntidied) {
    files_.FailAt(FileOperation::Replace, 1, RunTimeError(ErrorNumber::DiskFull));
    EXPECT_TRUE(Insert());
    EXPECT_EQ(ReadBytes(Path()), kUntidied);
    EXPECT_THAT(Entries(), ElementsAre("INIwb-01: Disk full (61)"));
}

TEST_F(PyxConfigFailure, FailedSaveIsFalseAndLeavesTheFileWhole) {
    files_.FailAt(FileOperation::Replace, 2, RunTimeError(ErrorNumber::DiskFull));
    EXPECT_FALSE(Insert());
    EXPECT_EQ(ReadBytes(Path()), kOld);
    EXPECT_THAT(Entries(), ElementsAre("INIins-01: Disk full (61)"));
}

TEST_F(PyxConfigFailure, FailedReadIsFalseAndWritesNothing) {
    files_.FailAt(FileOperation::ReadAll, 1, RunTimeError(ErrorNumber::PathFileAccessError));
    EXPECT_FALSE(Insert());
    EXPECT_EQ(ReadBytes(Path()), kOld);
    EXPECT_EQ(folder_.Listing(), "Pyx.ini");
    EXPECT_THAT(Entries(), ElementsAre("INIins-01: Path/File access error (75)"));
}

TEST_F(PyxConfigFailure, FileThatAnotherProgramHoldsIsFalseAndWritesNothing) {
    files_.FailAt(FileOperation::Lock, 1, RunTimeError(ErrorNumber::PermissionDenied));
    EXPECT_FALSE(Insert());
    EXPECT_EQ(folder_.Listing(), "Pyx.ini");
    EXPECT_THAT(Entries(), ElementsAre("INIins-01: Permission denied (70)"));
}

TEST_F(PyxConfigFailure, ReadOnlyFileIsFalseAndGetsNoBak) {
    namespace fs = std::filesystem;
    fs::permissions(Path(), fs::perms::owner_read);
    EXPECT_FALSE(Insert());
    EXPECT_EQ(ReadBytes(Path()), kOld);
    EXPECT_EQ(folder_.Listing(), "Pyx.ini");
    EXPECT_THAT(Entries(), ElementsAre(EntryText("INIins-01", ErrorNumber::PathFileAccessError)));
    fs::permissions(Path(),
                    fs::perms::owner_all);  // else it would stay where a read-only file cannot be removed
}

TEST_F(PyxConfigFailure, PathOfAFolderIsRefused) {
    writer_.IniPath = folder_.Path();
    EXPECT_FALSE(Insert());
    EXPECT_THAT(Entries(), ElementsAre(EntryText("INIins-01", ErrorNumber::PathFileAccessError)));
}

TEST_F(PyxConfigFailure, MissingFolderIsNotCreated) {
    writer_.IniPath = folder_ / "none/Pyx.ini";
    EXPECT_FALSE(Insert());
    EXPECT_EQ(folder_.Listing(), "Pyx.ini");
    EXPECT_THAT(Entries(), ElementsAre(EntryText("INIins-01", ErrorNumber::PathNotFound)));
}

class PyxConfigBlankPath : public PyxConfigFailure, public testing::WithParamInterface<std::string> {};

TEST_P(PyxConfigBlankPath, IsRefusedAndNoFileIsCreatedAnywhere) {
    TempFolder elsewhere;
    const WorkingFolder guard(elsewhere.Path());
    writer_.IniPath = GetParam();
    EXPECT_FALSE(Insert());
    EXPECT_EQ(elsewhere.Listing(), "");
    EXPECT_EQ(folder_.Listing(), "Pyx.ini");
    EXPECT_EQ(files_.Calls(FileOperation::Replace), 0);
    EXPECT_THAT(Entries(), ElementsAre(EntryText("INIins-01", ErrorNumber::PathFileAccessError)));
}

INSTANTIATE_TEST_SUITE_P(Paths, PyxConfigBlankPath, testing::Values("", "   "));

struct RefusedEntry {
    std::string name;
    void (*change)(clsManufacturer&, clsDevice&, clsPyxConfig&);
    std::string step;
    std::string shown;
};

void PrintTo(const RefusedEntry& row, std::ostream* out) {
    *out << row.name;
}

class PyxConfigRefused : public PyxConfigFailure, public testing::WithParamInterface<RefusedEntry> {};

TEST_P(PyxConfigRefused, WritesNothingAndNamesTheText) {
    GetParam().change(manufacturer_, device_, writer_);
    EXPECT_FALSE(Insert());
    EXPECT_EQ(ReadBytes(Path()), kOld);
    EXPECT_EQ(folder_.Listing(), "Pyx.ini");
    EXPECT_THAT(Entries(), ElementsAre(EntryWith("INIins-" + GetParam().step,
                                                 ErrorNumber::PathFileAccessError, GetParam().shown)));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, PyxConfigRefused,
    testing::Values(
        RefusedEntry{"NameWithACharacterThatThePageLacks",
                     [](clsManufacturer&, clsDevice& device, clsPyxConfig&) { device.DevName = "Flow Ω"; },
                     "02", "\"Flow Ω\""},
        RefusedEntry{"LibraryWithACharacterThatThePageLacks",
                     [](clsManufacturer&, clsDevice&, clsPyxConfig& writer) { writer.DeviceDLL = "中.dll"; },
                     "02", "中.dll\""},
        RefusedEntry{"LineFeed",
                     [](clsManufacturer&, clsDevice& device, clsPyxConfig&) { device.DevName = "Flow\n[X]"; },
                     "02", "\"Flow\n[X]\""},
        RefusedEntry{"CarriageReturn",
                     [](clsManufacturer&, clsDevice&, clsPyxConfig& writer) { writer.BlockHelp = "b\rc"; },
                     "02", "b\rc\""},
        RefusedEntry{"Nul",
                     [](clsManufacturer&, clsDevice& device, clsPyxConfig&) {
                         device.DevName = std::string("Fl\0ow", 5);
                     },
                     "02", "\"Fl\\0ow\""},
        RefusedEntry{
            "BracketInTheSectionName",
            [](clsManufacturer& manufacturer, clsDevice&, clsPyxConfig&) { manufacturer.ManID = "2]"; }, "02",
            "\"00002].0007.01\""},
        RefusedEntry{
            "CharacterInTheIdentifierThatThePageLacks",
            [](clsManufacturer& manufacturer, clsDevice&, clsPyxConfig&) { manufacturer.ManID = "Ω"; }, "01",
            "\"00000Ω.0007.01\""}),
    RowName());

TEST_F(PyxConfigFailure, WithoutSharedObjectsNothingIsLoggedAndTheEntryIsStillWritten) {
    EXPECT_TRUE(writer_.Insert(manufacturer_, device_));
    writer_.IniPath = "";
    EXPECT_FALSE(writer_.Insert(manufacturer_, device_));
    EXPECT_THAT(Entries(), IsEmpty());
}

}  // namespace
}  // namespace ventlock::test
