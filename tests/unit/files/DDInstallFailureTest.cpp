// What "Ddinstal.ini" holds and what is logged when it cannot be written whole.

#include <filesystem>
#include <utility>

#include "support/RowName.h"
#include "support/WorkingFolder.h"
#include "unit/files/FilesWorld.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

// A file that is not tidy, with a device of another type.
const std::string kOld = CrLf(
    "[General]\n"
    "NumOfMfg=1\n"
    "[Mfg1]\n"
    "ID=000026\n"
    "NumOfDev=1\n"
    "Name=Old\n"
    "[000026.1]\n"
    "DevType=0001\n"
    "DevTypeRev=01\n");

/// Fails at one key: reading or writing it raises 13.
class StumblingWriter final : public clsDDInstall {
 public:
    using clsDDInstall::clsDDInstall;

    std::string failsAtReading;
    std::string failsAtWriting;

 protected:
    std::string ReadKey(const ProfileFile& file, std::string_view section, std::string_view key,
                        std::string_view fallback, std::size_t bufferSize) override {
        if (key == failsAtReading) throw RunTimeError(ErrorNumber::TypeMismatch);
        return clsDDInstall::ReadKey(file, section, key, fallback, bufferSize);
    }

    void WriteKey(ProfileFile& file, std::string_view section, std::string_view key,
                  std::string_view value) override {
        if (key == failsAtWriting) throw RunTimeError(ErrorNumber::TypeMismatch);
        clsDDInstall::WriteKey(file, section, key, value);
    }
};

using DDInstallStumbling = DDInstallWorld<StumblingWriter>;

TEST_F(DDInstallStumbling, FailedManufacturerCheckEndsTheWriteAtOnce) {
    WriteBytes(Path(), kOld);
    writer_.failsAtReading = "NumOfMfg";
    EXPECT_FALSE(Write());
    EXPECT_EQ(ReadBytes(Path()), kOld) << "no tidy pass either";
    EXPECT_EQ(ReadBytes(Bak()), kOld);
    EXPECT_THAT(Entries(), ElementsAre("DDcm-01: Type mismatch (13)"));
}

TEST_F(DDInstallStumbling, ManufacturerCheckThatFailsInASectionSaysStep03) {
    WriteBytes(Path(), kOld);
    writer_.failsAtReading = "ID";
    EXPECT_FALSE(Write());
    EXPECT_EQ(ReadBytes(Path()), kOld);
    EXPECT_THAT(Entries(), ElementsAre("DDcm-03: Type mismatch (13)"));
}

TEST_F(DDInstallStumbling, FailedDeviceCheckWritesSectionMinusOneAndRaisesNoCount) {
    WriteBytes(Path(), kOld);
    writer_.failsAtReading = "DevType";
    EXPECT_TRUE(Write());
    EXPECT_EQ(ReadBytes(Path()), CrLf("[General]\n"
                                      "NumOfMfg=1\n"
                                      "\n"
                                      "[Mfg1]\n"
                                      "ID=000026\n"
                                      "NumOfDev=1\n"
                                      "Name=Acme\n"
                                      "\n"
                                      "[000026.1]\n"
                                      "DevType=0001\n"
                                      "DevTypeRev=01\n"
                                      "\n"
                                      "[000026.-1]\n" +
                                      kFlowKeys));
    EXPECT_EQ(ReadBytes(Bak()), kOld);
    EXPECT_THAT(Entries(), ElementsAre("DDcd-03: Type mismatch (13)"));
}

TEST_F(DDInstallStumbling, DeviceCheckThatFailsAtItsCountSaysStep01) {
    WriteBytes(Path(), kOld);
    writer_.failsAtReading = "NumOfDev";
    EXPECT_TRUE(Write());
    EXPECT_EQ(profiles_.Read(Path(), "Mfg1", "NumOfDev", "", 0), "1");
    EXPECT_EQ(profiles_.Read(Path(), "000026.-1", "DevType", "", 0), "0007");
    EXPECT_THAT(Entries(), ElementsAre("DDcd-01: Type mismatch (13)"));
}

TEST_F(DDInstallStumbling, FailedNewFileWithoutVersionStillGetsTheRest) {
    writer_.failsAtWriting = "DD Version";
    EXPECT_TRUE(Write());
    EXPECT_EQ(ReadBytes(Path()), CrLf("[General]\n"
                                      "NumOfMfg=1\n"
                                      "\n"
                                      "[Mfg1]\n"
                                      "ID=000026\n"
                                      "NumOfDev=1\n"
                                      "Name=Acme\n"
                                      "\n"
                                      "[000026.1]\n" +
                                      kFlowKeys));
    EXPECT_THAT(Entries(), ElementsAre("DDwddih-00: Type mismatch (13)"));
}

TEST_F(DDInstallStumbling, FailedManufacturerSectionLeavesACountThatNamesAMissingSection) {
    WriteBytes(Path(), CrLf("[General]\nNumOfMfg=0\n"));
    writer_.failsAtWriting = "ID";
    EXPECT_TRUE(Write());
    EXPECT_EQ(ReadBytes(Path()), CrLf("[General]\n"
                                      "NumOfMfg=1\n"
                                      "\n"
                                      "[Mfg1]\n"
                                      "NumOfDev=1\n"
                                      "\n"
                                      "[000026.1]\n" +
                                      kFlowKeys));
    EXPECT_THAT(Entries(), ElementsAre("DDwddim-02: Type mismatch (13)"));
}

TEST_F(DDInstallStumbling, FailedCountOfManufacturersSaysStep01) {
    WriteBytes(Path(), CrLf("[General]\nNumOfMfg=0\n"));
    writer_.failsAtWriting = "NumOfMfg";
    EXPECT_TRUE(Write());
    EXPECT_EQ(ReadBytes(Path()), CrLf("[General]\n"
                                      "NumOfMfg=0\n"
                                      "\n"
                                      "[Mfg1]\n"
                                      "NumOfDev=1\n"
                                      "\n"
                                      "[000026.1]\n" +
                                      kFlowKeys));
    EXPECT_THAT(Entries(), ElementsAre("DDwddim-01: Type mismatch (13)"));
}

TEST_F(DDInstallStumbling, FailedDeviceSectionLeavesACountThatNamesAMissingSection) {
    WriteBytes(Path(), kOld);
    writer_.failsAtWriting = "DevType";
    EXPECT_TRUE(Write());
    EXPECT_EQ(ReadBytes(Path()), CrLf("[General]\n"
                                      "NumOfMfg=1\n"
                                      "\n"
                                      "[Mfg1]\n"
                                      "ID=000026\n"
                                      "NumOfDev=2\n"
                                      "Name=Acme\n"
                                      "\n"
                                      "[000026.1]\n"
                                      "DevType=0001\n"
                                      "DevTypeRev=01\n"));
    EXPECT_THAT(Entries(), ElementsAre("DDwddis-02: Type mismatch (13)"));

    writer_.failsAtWriting.clear();
    ASSERT_TRUE(Write());
    EXPECT_EQ(profiles_.Read(Path(), "Mfg1", "NumOfDev", "", 0), "3") << "the next entry goes behind it";
    EXPECT_EQ(profiles_.Read(Path(), "000026.3", "DevType", "", 0), "0007");
}

TEST_F(DDInstallStumbling, FailedCountOfDevicesSaysStep01) {
    WriteBytes(Path(), kOld);
    writer_.failsAtWriting = "NumOfDev";
    EXPECT_TRUE(Write());
    EXPECT_EQ(profiles_.Read(Path(), "Mfg1", "NumOfDev", "", 0), "1");
    EXPECT_THAT(Entries(), ElementsAre("DDwddis-01: Type mismatch (13)"));
}

class DDInstallFailure : public DDInstall {
 protected:
    DDInstallFailure() { WriteBytes(Path(), kOld); }
};

TEST_F(DDInstallFailure, BakThatIsAFolderStopsTheWrite) {
    fs::create_directory(Bak());
    EXPECT_FALSE(Write());
    EXPECT_EQ(ReadBytes(Path()), kOld);
    EXPECT_EQ(files_.Calls(FileOperation::Replace), 0);
    EXPECT_THAT(Entries(), ElementsAre(EntryText("DDwddi-01", ErrorNumber::PathFileAccessError)));
}

TEST_F(DDInstallFailure, FileThatVanishesBeforeItsBakStopsTheWrite) {
    files_.FailAt(FileOperation::Copy, 1, RunTimeError(ErrorNumber::FileNotFound));
    EXPECT_FALSE(Write());
    EXPECT_EQ(folder_.Listing(), "Ddinstal.ini");
    EXPECT_EQ(ReadBytes(Path()), kOld);
    EXPECT_THAT(Entries(), ElementsAre("DDwddi-01: File not found (53)"));
}

TEST_F(DDInstallFailure, FailedReadStopsTheWriteBeforeTheBak) {
    files_.FailAt(FileOperation::ReadAll, 1, RunTimeError(ErrorNumber::DeviceIoError));
    EXPECT_FALSE(Write());
    EXPECT_EQ(folder_.Listing(), "Ddinstal.ini");
    EXPECT_THAT(Entries(), ElementsAre("DDwddi-01: Device I/O error (57)"));
}

TEST_F(DDInstallFailure, FailedSaveLeavesTheFileWhole) {
    files_.FailAt(FileOperation::Replace, 1, RunTimeError(ErrorNumber::DiskFull));
    EXPECT_FALSE(Write());
    EXPECT_EQ(ReadBytes(Path()), kOld);
    EXPECT_EQ(ReadBytes(Bak()), kOld);
    EXPECT_THAT(Entries(), ElementsAre("DDwddi-02: Disk full (61)"));
}

TEST_F(DDInstallFailure, FailedSaveOfANewFileLeavesNone) {
    fs::remove(Path());
    files_.FailAt(FileOperation::Replace, 1, RunTimeError(ErrorNumber::DiskFull));
    EXPECT_FALSE(Write());
    EXPECT_EQ(folder_.Listing(), "");
    EXPECT_THAT(Entries(), ElementsAre("DDwddi-02: Disk full (61)"));
}

TEST_F(DDInstallFailure, ReadOnlyFileFailsAtItsSave) {
    fs::permissions(Path(), fs::perms::owner_read);
    EXPECT_FALSE(Write());
    EXPECT_EQ(ReadBytes(Path()), kOld);
    EXPECT_THAT(Entries(), ElementsAre(EntryText("DDwddi-02", ErrorNumber::PathFileAccessError)));
    fs::permissions(Path(),
                    fs::perms::owner_all);  // else it would stay where a read-only file cannot be removed
}

TEST_F(DDInstallFailure, MissingFolderFailsAtTheSaveAndIsNotCreated) {
    writer_.IniPath = folder_ / "none/Ddinstal.ini";
    EXPECT_FALSE(Write());
    EXPECT_EQ(folder_.Listing(), "Ddinstal.ini");
    EXPECT_THAT(Entries(), ElementsAre(EntryText("DDwddi-02", ErrorNumber::PathNotFound)));
}

TEST_F(DDInstallFailure, PathOfAFolderIsRefused) {
    writer_.IniPath = folder_.Path();
    EXPECT_FALSE(Write());
    EXPECT_EQ(folder_.Listing(), "Ddinstal.ini");
    EXPECT_THAT(Entries(), ElementsAre(EntryText("DDwddi-01", ErrorNumber::PathFileAccessError)));
}

class DDInstallBlankPath : public DDInstallFailure, public testing::WithParamInterface<std::string> {};

TEST_P(DDInstallBlankPath, IsRefusedAndNoFileIsCreatedAnywhere) {
    TempFolder elsewhere;
    const WorkingFolder guard(elsewhere.Path());
    writer_.IniPath = GetParam();
    EXPECT_FALSE(Write());
    EXPECT_EQ(elsewhere.Listing(), "");
    EXPECT_EQ(folder_.Listing(), "Ddinstal.ini");
    EXPECT_EQ(files_.Calls(FileOperation::Replace), 0);
    EXPECT_EQ(files_.Calls(FileOperation::Copy), 0);
    EXPECT_THAT(Entries(), ElementsAre(EntryText("DDwddi-01", ErrorNumber::PathFileAccessError)));
}

INSTANTIATE_TEST_SUITE_P(Paths, DDInstallBlankPath, testing::Values("", "   "));

struct RefusedEntry {
    std::string name;
    void (*change)(clsManufacturer&, clsDevice&, clsDDInstall&);
    std::string shown;
};

void PrintTo(const RefusedEntry& row, std::ostream* out) {
    *out << row.name;
}

class DDInstallRefused : public DDInstallFailure, public testing::WithParamInterface<RefusedEntry> {};

TEST_P(DDInstallRefused, WritesNothingAndNamesTheText) {
    GetParam().change(manufacturer_, device_, writer_);
    EXPECT_FALSE(Write());
    EXPECT_EQ(ReadBytes(Path()), kOld);
    EXPECT_EQ(folder_.Listing(), "Ddinstal.ini");
    EXPECT_THAT(Entries(),
                ElementsAre(EntryWith("DDwddi-01", ErrorNumber::PathFileAccessError, GetParam().shown)));
}

TEST_P(DDInstallRefused, MakesNoNewFile) {
    fs::remove(Path());
    GetParam().change(manufacturer_, device_, writer_);
    EXPECT_FALSE(Write());
    EXPECT_EQ(folder_.Listing(), "");
}

INSTANTIATE_TEST_SUITE_P(
    Texts, DDInstallRefused,
    testing::Values(
        RefusedEntry{
            "ManufacturersNameWithACharacterThatThePageLacks",
            [](clsManufacturer& manufacturer, clsDevice&, clsDDInstall&) { manufacturer.Name = "Acme Ω"; },
            "\"Acme Ω\""},
        RefusedEntry{
            "ManufacturersIdWithACharacterThatThePageLacks",
            [](clsManufacturer& manufacturer, clsDevice&, clsDDInstall&) { manufacturer.ManID = "Ω"; },
            "\"00000Ω\""},
        RefusedEntry{"DevicesNameWithACharacterThatThePageLacks",
                     [](clsManufacturer&, clsDevice& device, clsDDInstall&) { device.DevName = "中"; },
                     "\"中\""},
        RefusedEntry{"LineFeed",
                     [](clsManufacturer&, clsDevice& device, clsDDInstall&) { device.DevName = "a\nb"; },
                     "\"a\nb\""},
        RefusedEntry{"CarriageReturn",
                     [](clsManufacturer&, clsDevice&, clsDDInstall& writer) { writer.Template = "t\r.mrg"; },
                     "\"1,t\r.mrg\""},
        RefusedEntry{"Nul",
                     [](clsManufacturer&, clsDevice&, clsDDInstall& writer) {
                         writer.TAVVersionSupport = std::string("5\0", 2);
                     },
                     "\"5\\0\""},
        RefusedEntry{"BracketInTheSectionName",
                     [](clsManufacturer&, clsDevice& device, clsDDInstall&) { device.ManID = "2]"; },
                     "\"00002].1\""}),
    RowName());

TEST_F(DDInstallFailure, FileOf32768LinesGetsTheKeysAndIsLeftUntidied) {
    std::string filler;
    // 9 lines are there, 17 come: the sections are then untidied line by line.
    for (int i = 0; i < 32768 - 9 - 17; ++i) filler += ";\n";
    const std::string before = filler + kOld;
    EXPECT_TRUE(AfterWrite(before) == filler + CrLf("[General]\n"
                                                    "NumOfMfg=1\n"
                                                    "[Mfg1]\n"
                                                    "ID=000026\n"
                                                    "NumOfDev=2\n"
                                                    "Name=Acme\n"
                                                    "[000026.1]\n"
                                                    "DevType=0001\n"
                                                    "DevTypeRev=01\n"
                                                    "[000026.2]\n" +
                                                    kFlowKeys));
    EXPECT_TRUE(ReadBytes(Bak()) == before);
    EXPECT_THAT(Entries(), ElementsAre("DDwb-03.1: Overflow (6)"));

    const std::string shorter = filler.substr(2) + kOld;
    EXPECT_TRUE(AfterWrite(shorter) == CrLf(filler.substr(2)) + CrLf("\n"
                                                                     "[General]\n"
                                                                     "NumOfMfg=1\n"
                                                                     "\n"
                                                                     "[Mfg1]\n"
                                                                     "ID=000026\n"
                                                                     "NumOfDev=2\n"
                                                                     "Name=Acme\n"
                                                                     "\n"
                                                                     "[000026.1]\n"
                                                                     "DevType=0001\n"
                                                                     "DevTypeRev=01\n"
                                                                     "\n"
                                                                     "[000026.2]\n" +
                                                                     kFlowKeys))
        << "32767 lines pass";
    EXPECT_EQ(Entries().size(), 1U);
}

TEST_F(DDInstallFailure, WithoutSharedObjectsNothingIsLogged) {
    writer_.IniPath = "";
    EXPECT_FALSE(writer_.WriteDDInstall(manufacturer_, device_));
    EXPECT_THAT(Entries(), IsEmpty());
}

}  // namespace
}  // namespace ventlock::test
