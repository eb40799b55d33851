#include "core/OwnFiles.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Host.h"
#include "support/Fakes.h"
#include "support/Raised.h"
#include "support/TempFolder.h"

namespace ventlock::test {
namespace {

class OwnFilesTest : public testing::Test {
 protected:
    void SetUp() override {
        for (std::string* const folder :
             {&paths_.programFolder, &paths_.windowsDirectory, &paths_.stateFolder}) {
            *folder = folder_.Path() + *folder;
            std::filesystem::create_directory(*folder);
        }
    }

    std::string BesideTheProgram(std::string_view name) {
        return paths_.programFolder + "/" + std::string(name);
    }
    std::string OfTheUser(std::string_view name) { return paths_.windowsDirectory + "/" + std::string(name); }

    TempFolder folder_;
    std::unique_ptr<Host> host_ = CreateHost("ventlock");
    IFiles& files_ = host_->Files();
    FakePaths paths_;
};

TEST_F(OwnFilesTest, TheOwnIniFileStandsBesideTheProgramAndFollowsItsName) {
    EXPECT_EQ(OwnIniPath(paths_, files_), BesideTheProgram("ventlock.ini"));
    paths_.exeName = "renamed";
    EXPECT_EQ(OwnIniPath(paths_, files_), BesideTheProgram("renamed.ini"));
}

TEST_F(OwnFilesTest, AFileOfTheUserIsNotReadWhileTheProgramFolderCanBeWritten) {
    WriteBytes(OfTheUser("ventlock.ini"), "");
    EXPECT_EQ(OwnIniPath(paths_, files_), BesideTheProgram("ventlock.ini"));
}

TEST_F(OwnFilesTest, AFileOfTheUserIsReadInPlaceOfTheProgramsWhenItsFolderCannotBeWritten) {
    paths_.programFolderIsWritable = false;
    WriteBytes(BesideTheProgram("ventlock.ini"), "");
    EXPECT_EQ(OwnIniPath(paths_, files_), BesideTheProgram("ventlock.ini")) << "the user has none";
    WriteBytes(OfTheUser("ventlock.ini"), "");
    EXPECT_EQ(OwnIniPath(paths_, files_), OfTheUser("ventlock.ini"));
}

TEST_F(OwnFilesTest, TheOwnIniFileIsChangedWhereItIsReadAndCanBeWritten) {
    WriteBytes(OfTheUser("ventlock.ini"), "");
    EXPECT_EQ(OwnIniPathToChange(paths_), BesideTheProgram("ventlock.ini"));
    paths_.programFolderIsWritable = false;
    EXPECT_EQ(OwnIniPathToChange(paths_), OfTheUser("ventlock.ini"));
    std::filesystem::remove(OfTheUser("ventlock.ini"));
    WriteBytes(BesideTheProgram("ventlock.ini"), "");
    EXPECT_EQ(OwnIniPathToChange(paths_), OfTheUser("ventlock.ini")) << "it is yet to be made";
}

TEST_F(OwnFilesTest, TheLogStandsBesideTheProgramElseInTheStateFolder) {
    EXPECT_EQ(LogPath(paths_), BesideTheProgram("Ventlock.log"));
    paths_.exeName = "ventlock-cli";
    EXPECT_EQ(LogPath(paths_), BesideTheProgram("Ventlock.log")) << "one log for every program";
    paths_.programFolderIsWritable = false;
    EXPECT_EQ(LogPath(paths_), paths_.stateFolder + "/Ventlock.log");
}

TEST_F(OwnFilesTest, ProfileFilesAreInTheHostsPageWhenNothingNamesAnother) {
    EXPECT_EQ(OpenProfileStore(paths_, files_).Page(), CodePage::SystemDefault());
    WriteBytes(BesideTheProgram("ventlock.ini"), "[Files]\r\nCodePage=\r\n");
    EXPECT_EQ(OpenProfileStore(paths_, files_).Page(), CodePage::SystemDefault());
}

TEST_F(OwnFilesTest, CodePageOfTheOwnIniFileDecidesTheBytesOfEveryFileWithoutAMark) {
    WriteBytes(BesideTheProgram("ventlock.ini"), "[files]\r\ncodepage=1251\r\n");
    const ProfileStore store = OpenProfileStore(paths_, files_);
    EXPECT_EQ(store.Page(), CodePage(1251));
    const std::string target = folder_ / "Pyx.ini";
    store.Write(target, "A", "x", "Щит");
    EXPECT_EQ(ReadBytes(target), "[A]\r\nx=\xD9\xE8\xF2\r\n");
}

TEST_F(OwnFilesTest, CodePageOfTheUsersFileCountsWhenThatIsTheOneRead) {
    paths_.programFolderIsWritable = false;
    WriteBytes(BesideTheProgram("ventlock.ini"), "[Files]\r\nCodePage=1251\r\n");
    WriteBytes(OfTheUser("ventlock.ini"), "[Files]\r\nCodePage=65001\r\n");
    EXPECT_EQ(OpenProfileStore(paths_, files_).Page(), CodePage(65001));
}

TEST_F(OwnFilesTest, ACodePageThatTheHostDoesNotKnowIsAnInvalidCall) {
    for (const char* const number : {"99", "0", "-1", "abc", "1e99", "4294968548", "70000"}) {
        WriteBytes(BesideTheProgram("ventlock.ini"), "[Files]\r\nCodePage=" + std::string(number) + "\r\n");
        EXPECT_EQ(NumberRaisedBy([&] { OpenProfileStore(paths_, files_); }), 5) << number;
    }
}

}  // namespace
}  // namespace ventlock::test
