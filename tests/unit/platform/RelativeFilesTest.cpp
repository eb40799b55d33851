#include "platform/RelativeFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "platform/Host.h"
#include "support/Raised.h"
#include "support/TempFolder.h"
#include "support/WorkingFolder.h"

namespace ventlock::test {
namespace {

/// Files whose relative paths count from `folder_`, while the program works elsewhere.
class RelativeFilesTest : public testing::Test {
 protected:
    TempFolder folder_;
    TempFolder elsewhere_;
    WorkingFolder working_{elsewhere_.Path()};
    std::unique_ptr<Host> host_ = CreateHost("ventlock");
    RelativeFiles files_{host_->Files(), host_->Paths(), folder_.Path()};
};

TEST_F(RelativeFilesTest, FindAndReadWhatIsInTheFolder) {
    WriteBytes(folder_ / "a.ini", "in the folder");
    WriteBytes(elsewhere_ / "a.ini", "elsewhere");
    WriteBytes(elsewhere_ / "b.ini", "elsewhere");
    EXPECT_TRUE(files_.Exists("a.ini"));
    EXPECT_EQ(files_.ReadAll("a.ini"), "in the folder");
    EXPECT_FALSE(files_.Exists("b.ini"));
    EXPECT_EQ(NumberRaisedBy([&] { files_.ReadAll("b.ini"); }), 53);
}

TEST_F(RelativeFilesTest, ReadNothingWhereNothingIs) {
    WriteBytes(folder_ / "a.ini", "in the folder");
    std::filesystem::create_directory(folder_ / "below");
    EXPECT_EQ(files_.ReadIfThere("a.ini"), "in the folder");
    EXPECT_EQ(files_.ReadIfThere("b.ini"), std::nullopt);
    EXPECT_EQ(files_.ReadIfThere("nowhere/a.ini"), std::nullopt);
    EXPECT_EQ(files_.ReadIfThere("a.ini/b.ini"), std::nullopt);
    EXPECT_EQ(NumberRaisedBy([&] { files_.ReadIfThere("below"); }), 75) << "a folder is something";
    EXPECT_EQ(NumberRaisedBy([&] { files_.ReadIfThere(" "); }), 75) << "as ReadAll";
}

TEST_F(RelativeFilesTest, ListWhatIsInTheFolder) {
    std::filesystem::create_directory(folder_ / "below");
    WriteBytes(folder_ / "below/a.ini", "");
    EXPECT_THAT(files_.FilesIn("below").value(), testing::ElementsAre("a.ini"));
    EXPECT_EQ(files_.FilesIn("above"), std::nullopt);
}

TEST_F(RelativeFilesTest, ReadNoMoreThanTheBeginning) {
    WriteBytes(folder_ / "a.ini", "in the folder");
    WriteBytes(folder_ / "empty.ini", "");
    EXPECT_EQ(files_.ReadBeginning("a.ini", 2), "in");
    EXPECT_EQ(files_.ReadBeginning("a.ini", 13), "in the folder");
    EXPECT_EQ(files_.ReadBeginning("a.ini", 1000), "in the folder");
    EXPECT_EQ(files_.ReadBeginning("empty.ini", 2), "");
    EXPECT_EQ(NumberRaisedBy([&] { files_.ReadBeginning("b.ini", 2); }), 53);
}

TEST_F(RelativeFilesTest, ReplaceAndAppendInTheFolder) {
    files_.Replace("a.ini", "replaced");
    files_.Append("a.ini", " and more");
    files_.Append("b.ini", "made");
    EXPECT_EQ(ReadBytes(folder_ / "a.ini"), "replaced and more");
    EXPECT_EQ(ReadBytes(folder_ / "b.ini"), "made");
    EXPECT_EQ(elsewhere_.Listing(), "");
}

TEST_F(RelativeFilesTest, CopyFromAndToTheFolder) {
    WriteBytes(folder_ / "a.ini", "in the folder");
    WriteBytes(elsewhere_ / "a.ini", "elsewhere");
    files_.Copy("a.ini", "a.ini.bak");
    EXPECT_EQ(ReadBytes(folder_ / "a.ini.bak"), "in the folder");
    files_.Copy(elsewhere_ / "a.ini", "b.ini");
    EXPECT_EQ(ReadBytes(folder_ / "b.ini"), "elsewhere");
    files_.Copy("a.ini", elsewhere_ / "c.ini");
    EXPECT_EQ(ReadBytes(elsewhere_ / "c.ini"), "in the folder");
    EXPECT_EQ(folder_.Listing(), "a.ini a.ini.bak b.ini");
    EXPECT_EQ(elsewhere_.Listing(), "a.ini c.ini");
}

TEST_F(RelativeFilesTest, ExamineTheFileOfTheFolder) {
    std::filesystem::create_directory(elsewhere_ / "below");
    EXPECT_EQ(NumberRaisedBy([&] { files_.RequireReplaceable("below/a.ini"); }), 76);
    std::filesystem::create_directory(folder_ / "below");
    EXPECT_EQ(NumberRaisedBy([&] { files_.RequireReplaceable("below/a.ini"); }), 0);
    EXPECT_EQ(NumberRaisedBy([&] { files_.RequireReplaceable("below"); }), 75) << "a folder is no file";
}

TEST_F(RelativeFilesTest, LockTheFileOfTheFolder) {
    std::filesystem::create_directory(elsewhere_ / "below");
    EXPECT_EQ(NumberRaisedBy([&] { files_.Lock("below/a.ini"); }), 76);
    std::filesystem::create_directory(folder_ / "below");
    EXPECT_NE(files_.Lock("below/a.ini"), nullptr);
}

TEST_F(RelativeFilesTest, FollowAPathOutOfTheFolder) {
    std::filesystem::create_directory(folder_ / "below");
    RelativeFiles below(host_->Files(), host_->Paths(), folder_ / "below");
    below.Replace("../a.ini", "above");
    EXPECT_EQ(ReadBytes(folder_ / "a.ini"), "above");
}

TEST_F(RelativeFilesTest, TakeAnAbsolutePathAsItIs) {
    const std::string path = elsewhere_ / "a.ini";
    files_.Replace(path, "a");
    files_.Append(path, "b");
    EXPECT_EQ(NumberRaisedBy([&] { files_.RequireReplaceable(path); }), 0);
    EXPECT_NE(files_.Lock(path), nullptr);
    EXPECT_TRUE(files_.Exists(path));
    EXPECT_EQ(files_.ReadAll(path), "ab");
    EXPECT_EQ(ReadBytes(path), "ab");
    EXPECT_EQ(folder_.Listing(), "");
}

/// Every operation but Exists that takes a path, by name.
std::map<std::string, std::function<void(const std::string&)>> Operations(IFiles& files,
                                                                          const std::string& other) {
    return {{"RequireReplaceable", [&files](const std::string& path) { files.RequireReplaceable(path); }},
            {"ReadAll", [&files](const std::string& path) { files.ReadAll(path); }},
            {"ReadBeginning", [&files](const std::string& path) { files.ReadBeginning(path, 1); }},
            {"Replace", [&files](const std::string& path) { files.Replace(path, "x"); }},
            {"CopyFrom", [&files, other](const std::string& path) { files.Copy(path, other + ".bak"); }},
            {"CopyTo", [&files, other](const std::string& path) { files.Copy(other, path); }},
            {"Append", [&files](const std::string& path) { files.Append(path, "x"); }},
            {"Lock", [&files](const std::string& path) { files.Lock(path); }}};
}

TEST_F(RelativeFilesTest, RefuseABlankPathAsTheFilesBelowDo) {
    WriteBytes(folder_ / "a.ini", "a");
    for (const char* const blank : {"", "   "}) {
        EXPECT_FALSE(files_.Exists(blank));
        for (const auto& [name, operation] : Operations(files_, "a.ini")) {
            EXPECT_EQ(NumberRaisedBy([&] { operation(blank); }), 75) << name << " of \"" << blank << '"';
        }
    }
    EXPECT_EQ(folder_.Listing(), "a.ini");
    EXPECT_EQ(elsewhere_.Listing(), "");
}

TEST_F(RelativeFilesTest, TakeADriveLetterPathAsItIs) {
    const std::string path = "A:\\no such folder\\Ddinstal.ini";
    WriteBytes(folder_ / "a.ini", "a");
    EXPECT_FALSE(files_.Exists(path));
    for (const auto& [name, operation] : Operations(files_, "a.ini")) {
        const std::string told = TextRaisedBy([&] { operation(path); });
        EXPECT_THAT(told, testing::HasSubstr('"' + path + '"'))
            << name << " is refused below, with the path as given";
    }
    EXPECT_EQ(folder_.Listing(), "a.ini");
    EXPECT_EQ(elsewhere_.Listing(), "");
}

}  // namespace
}  // namespace ventlock::test
