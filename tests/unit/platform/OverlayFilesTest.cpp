#include "platform/OverlayFiles.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/Host.h"
#include "platform/ProfileEdit.h"
#include "support/FailingFiles.h"
#include "support/Raised.h"
#include "support/TempFolder.h"

namespace ventlock::test {
namespace {

using Written = std::map<std::string, std::string>;

class OverlayFilesTest : public testing::Test {
 protected:
    void SetUp() override { WriteBytes(old_, "old"); }

    TempFolder folder_;
    std::string old_ = folder_ / "old.ini";
    std::string new_ = folder_ / "new.ini";
    std::unique_ptr<Host> host_ = CreateHost("ventlock");
    FailingFiles below_{host_->Files()};
    OverlayFiles files_{below_};
};

TEST_F(OverlayFilesTest, GivesTheFilesBelowUntilTheyAreWritten) {
    EXPECT_TRUE(files_.Exists(old_));
    EXPECT_EQ(files_.ReadAll(old_), "old");
    EXPECT_FALSE(files_.Exists(new_));
    EXPECT_EQ(NumberRaisedBy([&] { files_.ReadAll(new_); }), 53);
    EXPECT_EQ(files_.Written(), Written());
}

TEST_F(OverlayFilesTest, KeepsEveryKindOfWriteAwayFromTheDisk) {
    files_.Replace(old_, "replaced");
    files_.Append(old_, " twice");
    files_.Append(new_, "made");
    files_.Copy(new_, folder_ / "copy.ini");
    files_.Copy(old_, old_ + ".bak");
    EXPECT_EQ(files_.ReadAll(old_), "replaced twice");
    EXPECT_EQ(files_.ReadAll(new_), "made");
    EXPECT_TRUE(files_.Exists(new_));
    EXPECT_EQ(files_.Written(), (Written{{folder_ / "copy.ini", "made"},
                                         {new_, "made"},
                                         {old_, "replaced twice"},
                                         {old_ + ".bak", "replaced twice"}}));

    EXPECT_EQ(folder_.Listing(), "old.ini");
    EXPECT_EQ(ReadBytes(old_), "old");
    EXPECT_EQ(below_.Calls(FileOperation::Replace), 0);
    EXPECT_EQ(below_.Calls(FileOperation::Append), 0);
    EXPECT_EQ(below_.Calls(FileOperation::Copy), 0);
}

TEST_F(OverlayFilesTest, ListsWhatTheFolderBelowHolds) {
    EXPECT_EQ(files_.FilesIn(folder_.Path()), (std::vector<std::string>{"old.ini"}));
    EXPECT_EQ(files_.FilesIn(old_), std::nullopt);
}

TEST_F(OverlayFilesTest, AppendsToWhatTheFileBelowHolds) {
    files_.Append(old_, " and new");
    EXPECT_EQ(files_.ReadAll(old_), "old and new");
    EXPECT_EQ(ReadBytes(old_), "old");
}

TEST_F(OverlayFilesTest, TakesALockWithoutLeavingALockFile) {
    const auto lock = files_.Lock(old_);
    EXPECT_NE(lock, nullptr);
    EXPECT_EQ(folder_.Listing(), "old.ini");
    EXPECT_EQ(below_.Calls(FileOperation::Lock), 0);
}

TEST_F(OverlayFilesTest, AnEditOfAProfileFileIsReadBackAndNotOnTheDisk) {
    const ProfileStore store(files_, CodePage(1252));
    store.Write(new_, "A", "x", "1");
    store.Write(new_, "A", "y", "2");
    EXPECT_EQ(store.Read(new_, "A", "x", "", 0), "1");
    EXPECT_EQ(files_.Written(), (Written{{new_, "[A]\r\nx=1\r\ny=2\r\n"}}));
    EXPECT_EQ(folder_.Listing(), "old.ini");
}

TEST_F(OverlayFilesTest, RefusesWhatTheDiskWouldRefuse) {
    const std::string missing = folder_ / "missing/a.ini";
    std::filesystem::create_directory(folder_ / "folder");
    struct Refused {
        std::string path;
        int number;
    };
    for (const Refused& row : {Refused{missing, 76}, Refused{folder_ / "folder", 75}, Refused{"", 75}}) {
        const std::string& path = row.path;
        EXPECT_EQ(NumberRaisedBy([&] { files_.RequireReplaceable(path); }), row.number) << path;
        EXPECT_EQ(NumberRaisedBy([&] { files_.Replace(path, "x"); }), row.number) << path;
        EXPECT_EQ(NumberRaisedBy([&] { files_.Append(path, "x"); }), row.number) << path;
        EXPECT_EQ(NumberRaisedBy([&] { files_.Copy(old_, path); }), row.number) << path;
        EXPECT_EQ(NumberRaisedBy([&] { files_.Lock(path); }), row.number) << path;
    }
    EXPECT_EQ(NumberRaisedBy([&] { files_.Copy(new_, folder_ / "copy.ini"); }), 53);
    EXPECT_EQ(files_.Written(), Written());
}

}  // namespace
}  // namespace ventlock::test
