// What the files of every host do.

#include "unit/platform/FilesTest.h"

#include <filesystem>

#include "support/WorkingFolder.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

TEST_F(FilesTest, EveryByteIsReadAndWrittenAsItIs) {
    std::string bytes = "\xEF\xBB\xBF\r\n\n\r\x1A";
    for (int i = 0; i < 3000000; ++i) bytes += static_cast<char>(i % 256);
    files_->Replace(folder_ / "a.bin", bytes);
    EXPECT_TRUE(ReadBytes(folder_ / "a.bin") == bytes);
    EXPECT_TRUE(files_->ReadAll(folder_ / "a.bin") == bytes);
    files_->Replace(folder_ / "a.bin", "");
    EXPECT_EQ(files_->ReadAll(folder_ / "a.bin"), "");
    EXPECT_EQ(folder_.Listing(), "a.bin");
}

TEST_F(FilesTest, AMissingFileIs53ForReadingAndIsMadeByWriting) {
    EXPECT_EQ(NumbersOf(folder_ / "a.ini"), (std::vector<int>{0, 53, 0, 0, 0, 0, 0}));
    EXPECT_EQ(ReadBytes(folder_ / "a.ini"), "othernew");
    EXPECT_EQ(folder_.Listing(), "a.ini");
}

TEST_F(FilesTest, AMissingFolderIs76) {
    EXPECT_EQ(NumbersOf(folder_ / "missing/a.ini"), kAll76);
    EXPECT_EQ(NumbersOf(folder_ / "missing/deeper/a.ini"), kAll76);
    EXPECT_EQ(NumbersOf(folder_ / "missing/"), kAll76);
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(FilesTest, AFileInPlaceOfTheFolderIs76) {
    WriteBytes(folder_ / "a.ini", "old");
    EXPECT_EQ(NumbersOf(folder_ / "a.ini/b.ini"), kAll76);
    EXPECT_EQ(ReadBytes(folder_ / "a.ini"), "old");
}

TEST_F(FilesTest, AFolderInPlaceOfTheFileIs75) {
    fs::create_directory(folder_ / "sub");
    EXPECT_EQ(NumbersOf(folder_ / "sub"), kAll75);
    EXPECT_EQ(NumbersOf(folder_.Path()), kAll75);
    EXPECT_EQ(folder_.Listing(), "sub");
}

TEST_F(FilesTest, AnEmptyOrBlankPathIs75AndMakesNoFile) {
    const WorkingFolder here(folder_.Path());
    EXPECT_EQ(NumbersOf(""), kAll75);
    EXPECT_EQ(NumbersOf("   "), kAll75);
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(FilesTest, APathWithoutAFolderMeansTheWorkingFolder) {
    const WorkingFolder here(folder_.Path());
    files_->Replace("a.ini", "new");
    files_->Lock("a.ini");
    EXPECT_EQ(ReadBytes(folder_ / "a.ini"), "new");
    EXPECT_EQ(folder_.Listing(), "a.ini");
}

TEST_F(FilesTest, AFileTooLargeForAnyUseIsNotRead) {
    WriteBytes(folder_ / "a.ini", "");
    fs::resize_file(folder_ / "a.ini", kLargestFile + 1);  // takes no room on the disk
    EXPECT_EQ(NumberRaisedBy([&] { files_->ReadAll(folder_ / "a.ini"); }), 7);
}

TEST_F(FilesTest, AppendAddsToTheEndAndMakesTheFile) {
    files_->Append(folder_ / "a.log", "1\r\n");
    files_->Append(folder_ / "a.log", "");
    files_->Append(folder_ / "a.log", std::string("2\0\r\n", 4));
    EXPECT_EQ(ReadBytes(folder_ / "a.log"), std::string("1\r\n2\0\r\n", 7));
    EXPECT_EQ(folder_.Listing(), "a.log");
}

TEST_F(FilesTest, ACopyReplacesALongerFile) {
    WriteBytes(folder_ / "a.ini", "old\r\n");
    WriteBytes(folder_ / "a.ini.bak", "longer than before");
    files_->Copy(folder_ / "a.ini", folder_ / "a.ini.bak");
    EXPECT_EQ(ReadBytes(folder_ / "a.ini.bak"), "old\r\n");
    EXPECT_EQ(folder_.Listing(), "a.ini a.ini.bak");
}

TEST_F(FilesTest, ACopyRefusesAFolder) {
    WriteBytes(folder_ / "b.ini", "new");
    fs::create_directory(folder_ / "b.ini.bak");
    EXPECT_EQ(NumberRaisedBy([&] { files_->Copy(folder_ / "b.ini", folder_ / "b.ini.bak"); }), 75);
    EXPECT_EQ(folder_.Listing(), "b.ini b.ini.bak");
}

TEST_F(FilesTest, ACopyOfAMissingFileIs53AndLeavesTheTarget) {
    WriteBytes(folder_ / "b.ini", "old");
    EXPECT_EQ(NumberRaisedBy([&] { files_->Copy(folder_ / "a.ini", folder_ / "b.ini"); }), 53);
    EXPECT_EQ(ReadBytes(folder_ / "b.ini"), "old");
}

}  // namespace
}  // namespace ventlock::test
