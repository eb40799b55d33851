#include "platform/ProfileEdit.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "platform/Host.h"
#include "support/FailingFiles.h"
#include "support/Raised.h"
#include "support/TempFolder.h"

namespace ventlock::test {
namespace {

class ProfileEditTest : public testing::Test {
 protected:
    [[nodiscard]] std::string Path() const { return folder_ / "Pyx.ini"; }

    TempFolder folder_;
    std::unique_ptr<Host> host_ = CreateHost("ventlock");
    FailingFiles files_{host_->Files()};
    ProfileStore store_{files_, CodePage(1252)};
};

TEST_F(ProfileEditTest, ReadsTheFileOnceAndReplacesItOnceWhateverTheNumberOfEdits) {
    WriteBytes(Path(), "[Devices]\r\n");
    {
        ProfileEdit edit(store_, Path());
        edit.File().Write("Devices", "a", "1");
        edit.File().Write("Devices", "b", "2");
        edit.File().Write("Other", "c", "3");
        EXPECT_EQ(ReadBytes(Path()), "[Devices]\r\n") << "nothing is on the disk before Save";
        edit.Save();
    }
    EXPECT_EQ(ReadBytes(Path()), "[Devices]\r\na=1\r\nb=2\r\n[Other]\r\nc=3\r\n");
    EXPECT_EQ(files_.Calls(FileOperation::ReadAll), 1);
    EXPECT_EQ(files_.Calls(FileOperation::Replace), 1);
    EXPECT_EQ(files_.Calls(FileOperation::Lock), 1);
    EXPECT_EQ(folder_.Listing(), "Pyx.ini");
}

TEST_F(ProfileEditTest, DoesNotWriteBytesThatHaveNotChanged) {
    WriteBytes(Path(), "[Devices]\na=1");
    ProfileEdit edit(store_, Path());
    edit.File().Write("devices", "A", "1");
    edit.Save();
    EXPECT_EQ(files_.Calls(FileOperation::Replace), 0);
    EXPECT_EQ(ReadBytes(Path()), "[Devices]\na=1");
}

TEST_F(ProfileEditTest, LeavesTheFileAsItWasWithoutSave) {
    WriteBytes(Path(), "[Devices]\r\na=1\r\n");
    {
        ProfileEdit edit(store_, Path());
        edit.File().Write("Devices", "a", "2");
    }
    EXPECT_EQ(ReadBytes(Path()), "[Devices]\r\na=1\r\n");
    EXPECT_EQ(folder_.Listing(), "Pyx.ini");
}

TEST_F(ProfileEditTest, KnowsWhatItFound) {
    {
        const ProfileEdit missing(store_, Path());
        EXPECT_FALSE(missing.Existed());
        EXPECT_EQ(missing.Path(), Path());
    }
    WriteBytes(Path(), "[A]\nx=1");
    ProfileEdit found(store_, Path());
    found.File().Write("A", "x", "2");
    found.Save();
    EXPECT_TRUE(found.Existed());
}

TEST_F(ProfileEditTest, CreatesAMissingFile) {
    ProfileEdit edit(store_, Path());
    edit.File().Write("A", "x", "1");
    edit.Save();
    EXPECT_EQ(ReadBytes(Path()), "[A]\r\nx=1\r\n");
}

TEST_F(ProfileEditTest, CreatesAMissingFileAlsoWhenNothingWasPutIn) {
    ProfileEdit edit(store_, Path());
    edit.Save();
    EXPECT_EQ(ReadBytes(Path()), "");
}

TEST_F(ProfileEditTest, MakesNoFolder) {
    const std::string path = folder_ / "missing/Pyx.ini";
    EXPECT_EQ(NumberRaisedBy([&] { ProfileEdit(store_, path).Save(); }), 76);
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(ProfileEditTest, RefusesAnEmptyOrBlankPathAndAFolder) {
    EXPECT_EQ(NumberRaisedBy([&] { ProfileEdit(store_, "").Save(); }), 75);
    EXPECT_EQ(NumberRaisedBy([&] { ProfileEdit(store_, "  ").Save(); }), 75);
    std::filesystem::create_directory(folder_ / "folder");
    EXPECT_EQ(NumberRaisedBy([&] { ProfileEdit(store_, folder_ / "folder").Save(); }), 75);
    EXPECT_EQ(folder_.Listing(), "folder");
}

TEST_F(ProfileEditTest, AFailingReadIsRaisedAndLeavesNothingBehind) {
    WriteBytes(Path(), "[A]\r\nx=1\r\n");
    files_.FailAt(FileOperation::ReadAll, 1, RunTimeError(ErrorNumber::DeviceIoError));
    EXPECT_EQ(NumberRaisedBy([&] { ProfileEdit(store_, Path()).Save(); }), 57);
    EXPECT_EQ(ReadBytes(Path()), "[A]\r\nx=1\r\n");
    EXPECT_EQ(folder_.Listing(), "Pyx.ini");
}

TEST_F(ProfileEditTest, AFailingSaveLeavesTheOldFileWholeAndCanBeRepeated) {
    WriteBytes(Path(), "[A]\r\nx=1\r\n");
    files_.FailAt(FileOperation::Replace, 1, RunTimeError(ErrorNumber::DiskFull));
    ProfileEdit edit(store_, Path());
    edit.File().Write("A", "x", "2");
    EXPECT_EQ(NumberRaisedBy([&] { edit.Save(); }), 61);
    EXPECT_EQ(ReadBytes(Path()), "[A]\r\nx=1\r\n");
    edit.Save();
    EXPECT_EQ(ReadBytes(Path()), "[A]\r\nx=2\r\n");
}

TEST_F(ProfileEditTest, ARefusedTextLeavesTheFileWhole) {
    WriteBytes(Path(), "[A]\r\nx=1\r\n");
    EXPECT_EQ(NumberRaisedBy([&] { store_.Write(Path(), "A", "x", "Ω"); }), 75);
    EXPECT_EQ(ReadBytes(Path()), "[A]\r\nx=1\r\n");
    EXPECT_EQ(folder_.Listing(), "Pyx.ini");
}

TEST_F(ProfileEditTest, ALockThatCannotBeHadIsRaisedBeforeAnythingIsRead) {
    WriteBytes(Path(), "[A]\r\n");
    files_.FailAt(FileOperation::Lock, 1, RunTimeError(ErrorNumber::PermissionDenied));
    EXPECT_EQ(NumberRaisedBy([&] { ProfileEdit(store_, Path()).Save(); }), 70);
    EXPECT_EQ(files_.Calls(FileOperation::ReadAll), 0);
}

TEST_F(ProfileEditTest, TwoThreadsThatAddDifferentKeysLoseNone) {
    constexpr int kKeysEach = 25;
    const auto add = [&](const std::string& name) {
        const std::unique_ptr<Host> host = CreateHost("ventlock");
        const ProfileStore store(host->Files(), CodePage(1252));
        for (int i = 0; i < kKeysEach; ++i) store.Write(Path(), "Devices", name + std::to_string(i), "here");
    };
    std::thread first(add, "first");
    std::thread second(add, "second");
    first.join();
    second.join();

    const ProfileFile file(ReadBytes(Path()), CodePage(1252));
    for (int i = 0; i < kKeysEach; ++i) {
        EXPECT_EQ(file.Read("Devices", "first" + std::to_string(i)), "here") << i;
        EXPECT_EQ(file.Read("Devices", "second" + std::to_string(i)), "here") << i;
    }
    EXPECT_EQ(file.LineCount(), 1U + 2 * kKeysEach);
    EXPECT_EQ(folder_.Listing(), "Pyx.ini");
}

using ProfileStoreTest = ProfileEditTest;

TEST_F(ProfileStoreTest, WritesOneKeyOfAFile) {
    WriteBytes(Path(), "[TAV Server 1]\nDataSourceName=PYX\n");
    store_.Write(Path(), "TAV Server 1", "DataSourceName", "Prüfstand");
    EXPECT_EQ(ReadBytes(Path()),
              "[TAV Server 1]\nDataSourceName=Pr\xFC"
              "fstand\n");
}

TEST_F(ProfileStoreTest, ReadsAValueInTheCodePageItWasGiven) {
    WriteBytes(Path(), "[A]\r\nx=\"\xC4\"\r\n");
    EXPECT_EQ(store_.Read(Path(), "A", "x", "none", 0), "Ä");
    EXPECT_EQ(ProfileStore(files_, CodePage(1251)).Read(Path(), "A", "x", "none", 0), "Д");
    EXPECT_EQ(store_.Page(), CodePage(1252));
    EXPECT_EQ(&store_.Files(), &files_);
}

TEST_F(ProfileStoreTest, ReadsTheFallbackForWhatIsMissingAndAnEmptyTextForAnEmptyValue) {
    EXPECT_EQ(store_.Read(Path(), "A", "x", "fallback", 0), "fallback");
    WriteBytes(Path(), "[A]\r\nx=\r\n");
    EXPECT_EQ(store_.Read(Path(), "B", "x", "fallback", 0), "fallback");
    EXPECT_EQ(store_.Read(Path(), "A", "y", "fallback", 0), "fallback");
    EXPECT_EQ(store_.Read(Path(), "A", "x", "fallback", 0), "");
    EXPECT_EQ(store_.Read("", "A", "x", "fallback", 0), "fallback");
    EXPECT_EQ(store_.Read(folder_.Path(), "A", "x", "fallback", 0), "fallback");
}

TEST_F(ProfileStoreTest, ReadsTheFallbackFromAFileThatCannotBeRead) {
    WriteBytes(Path(), "[A]\r\nx=1\r\n");
    files_.FailAt(FileOperation::ReadAll, 1, RunTimeError(ErrorNumber::DeviceIoError));
    EXPECT_EQ(store_.Read(Path(), "A", "x", "fallback", 0), "fallback");
    EXPECT_EQ(store_.Read(Path(), "A", "x", "fallback", 0), "1");
    WriteBytes(Path(), "\xFF\xFE[");
    EXPECT_EQ(store_.Read(Path(), "A", "x", "fallback", 0), "fallback");
}

TEST_F(ProfileStoreTest, CutsAValueAtTheBuffer) {
    WriteBytes(Path(), "[A]\r\nx=12345678\r\n");
    EXPECT_EQ(store_.Read(Path(), "A", "x", "", 5), "1234");
    EXPECT_EQ(store_.Read(Path(), "A", "x", "", 9), "12345678");
}

TEST_F(ProfileStoreTest, CutsTheFallbackAtTheBufferAndDropsTheSpacesAtItsEnd) {
    EXPECT_EQ(store_.Read(Path(), "A", "x", "12345678", 5), "1234");
    EXPECT_EQ(store_.Read(Path(), "A", "x", "none  ", 0), "none");
    WriteBytes(Path(), "[A]\r\ny=1\r\n");
    EXPECT_EQ(store_.Read(Path(), "A", "x", "12345678", 5), "1234");
    EXPECT_EQ(store_.Read(Path(), "A", "x", "none  ", 0), "none");
    WriteBytes(Path(), "\xFF\xFE[");
    EXPECT_EQ(store_.Read(Path(), "A", "x", "12345678", 5), "1234");
    EXPECT_EQ(store_.Read(Path(), "A", "x", "none  ", 0), "none");
}

TEST_F(ProfileStoreTest, SeesAtOnceWhatOthersHaveWritten) {
    WriteBytes(Path(), "[A]\r\nx=1\r\n");
    EXPECT_EQ(store_.Read(Path(), "A", "x", "", 0), "1");
    WriteBytes(Path(), "[A]\r\nx=2\r\n");
    EXPECT_EQ(store_.Read(Path(), "A", "x", "", 0), "2");
}

}  // namespace
}  // namespace ventlock::test
