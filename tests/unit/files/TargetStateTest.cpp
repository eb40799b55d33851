#include "files/TargetState.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <ostream>
#include <string>

#include "platform/Host.h"
#include "support/FailingFiles.h"
#include "support/RowName.h"
#include "support/TempFolder.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

class Target : public testing::Test {
 protected:
    TargetState State(const std::string& path) { return StateOfTarget(files_, path); }
    [[nodiscard]] std::string File() const { return folder_ / "Ddinstal.ini"; }

    void MakeReadOnly() {
        WriteBytes(File(), "");
        fs::permissions(File(), fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    }
    void TearDown() override {
        if (fs::exists(File())) fs::permissions(File(), fs::perms::owner_all);
    }

    TempFolder folder_;
    std::unique_ptr<Host> host_ = CreateHost("ventlock");
    FailingFiles inner_{host_->Files()};
    FailingFiles files_{static_cast<IFiles&>(inner_)};  // no copy of it
};

TEST_F(Target, IsWritableWhenTheFileIsThere) {
    WriteBytes(File(), "");
    EXPECT_EQ(State(File()), TargetState::Writable);
}

TEST_F(Target, WillBeMadeWhenTheFolderIsThereAlone) {
    EXPECT_EQ(State(File()), TargetState::WillBeMade);
    EXPECT_TRUE(fs::is_empty(folder_ / "")) << "nothing is made by looking";
}

TEST_F(Target, IsReadOnlyWhenTheFileIs) {
    MakeReadOnly();
    EXPECT_EQ(State(File()), TargetState::ReadOnly);
}

TEST_F(Target, LacksItsFolder) {
    EXPECT_EQ(State(folder_ / "nowhere/Ddinstal.ini"), TargetState::FolderMissing);
}

TEST_F(Target, IsUnusableWhenItIsAFolder) {
    fs::create_directory(File());
    EXPECT_EQ(State(File()), TargetState::Unusable);
}

TEST_F(Target, HasAFolderThatTakesNoFileWhenNoOtherNameCanBeMadeThereEither) {
    const RunTimeError noAccess(ErrorNumber::PathFileAccessError);
    files_.FailAt(FileOperation::RequireReplaceable, 1, noAccess);
    inner_.FailAt(FileOperation::RequireReplaceable, 1, noAccess);
    EXPECT_EQ(State(File()), TargetState::FolderReadOnly);
}

TEST_F(Target, IsNothingToWorryAboutWhileNoneIsNamed) {
    EXPECT_EQ(State(""), TargetState::Writable);
    EXPECT_EQ(State("  "), TargetState::Writable);
    EXPECT_EQ(files_.Calls(FileOperation::RequireReplaceable), 0);
}

struct OtherObstacle {
    const char* name;
    ErrorNumber number;
};

void PrintTo(const OtherObstacle& row, std::ostream* out) {
    *out << row.name;
}

class TargetBehind : public Target, public testing::WithParamInterface<OtherObstacle> {};

TEST_P(TargetBehind, AnotherObstacleIsUnusable) {
    files_.FailAt(FileOperation::RequireReplaceable, 1, RunTimeError(GetParam().number));
    EXPECT_EQ(State(File()), TargetState::Unusable);
}

INSTANTIATE_TEST_SUITE_P(Obstacles, TargetBehind,
                         testing::Values(OtherObstacle{"BadName", ErrorNumber::BadFileName},
                                         OtherObstacle{"Device", ErrorNumber::DeviceIoError},
                                         OtherObstacle{"NoDisk", ErrorNumber::DiskNotReady}),
                         RowName());

}  // namespace
}  // namespace ventlock::test
