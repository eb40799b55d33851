#include "core/RecentPaths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "unit/core/SettingsWorld.h"

namespace ventlock::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RecentPathsOfPyxIni : public SettingsWorld {
 protected:
    void SetUp() override {
        SettingsWorld::SetUp();
        settings_ = Loaded();
    }

    RecentPaths Recent(bool ignoresCase = false) { return {*settings_, kRecentINIPaths, ignoresCase}; }

    std::string Stored() {
        const auto value = registry_.Get(RegistryRoot::LocalMachine, Key("Settings"), "RecentINIPaths");
        return value ? value->bytes : "(none)";
    }

    std::unique_ptr<clsSettings> settings_;
};

TEST_F(RecentPathsOfPyxIni, AreNoneOnACleanMachineAndAskingForThemStoresNothing) {
    EXPECT_THAT(Recent().Paths(), IsEmpty());
    EXPECT_EQ(Stored(), "(none)");
}

TEST_F(RecentPathsOfPyxIni, AreStoredAtOnceTheLatestFirst) {
    EXPECT_EQ(Recent().Remember("/a/Pyx.ini"), kRegistrySuccess);
    EXPECT_EQ(Recent().Remember("/b/Pyx.ini"), kRegistrySuccess);
    EXPECT_EQ(Stored(), "/b/Pyx.ini|/a/Pyx.ini");
    EXPECT_THAT(Recent().Paths(), ElementsAre("/b/Pyx.ini", "/a/Pyx.ini"));
}

TEST_F(RecentPathsOfPyxIni, MoveToTheFrontWhenTheyAreWrittenAgain) {
    for (const char* path : {"/a", "/b", "/c", "/a"}) Recent().Remember(path);
    EXPECT_THAT(Recent().Paths(), ElementsAre("/a", "/c", "/b"));
}

TEST_F(RecentPathsOfPyxIni, DifferInCaseWhereTheHostTellsFilesApartByIt) {
    for (const char* path : {"/x/pyx.ini", "/x/Pyx.ini"}) Recent(false).Remember(path);
    EXPECT_THAT(Recent().Paths(), ElementsAre("/x/Pyx.ini", "/x/pyx.ini"));
}

TEST_F(RecentPathsOfPyxIni, AreOneInAnyCaseWhereTheHostIgnoresIt) {
    for (const char* path : {"C:\\x\\pyx.ini", "D:\\y", "C:\\X\\PYX.INI"}) Recent(true).Remember(path);
    EXPECT_THAT(Recent().Paths(), ElementsAre("C:\\X\\PYX.INI", "D:\\y"));
}

TEST_F(RecentPathsOfPyxIni, AreEightAtTheMost) {
    for (char name = 'a'; name <= 'i'; ++name) Recent().Remember(std::string("/") + name);
    EXPECT_THAT(Recent().Paths(), ElementsAre("/i", "/h", "/g", "/f", "/e", "/d", "/c", "/b"));
    EXPECT_EQ(Stored(), "/i|/h|/g|/f|/e|/d|/c|/b");
}

TEST_F(RecentPathsOfPyxIni, OfAStoreEditedByHandAreTakenAsFarAsTheyMakeSense) {
    PutText("Settings", "RecentINIPaths", "| /a||  |/b|/c|/d|/e|/f|/g|/h|/i");
    EXPECT_THAT(Recent().Paths(), ElementsAre(" /a", "/b", "/c", "/d", "/e", "/f", "/g", "/h"));
}

TEST_F(RecentPathsOfPyxIni, HoldNeitherBlankPathsNorOnesWithTheSeparator) {
    Recent().Remember("/a");
    EXPECT_EQ(Recent().Remember(" "), kRegistrySuccess);
    EXPECT_EQ(Recent().Remember("/b|c"), kRegistrySuccess);
    EXPECT_EQ(Stored(), "/a");
}

TEST_F(RecentPathsOfPyxIni, AreForgottenTogether) {
    Recent().Remember("/a");
    EXPECT_EQ(Recent().Clear(), kRegistrySuccess);
    EXPECT_THAT(Recent().Paths(), IsEmpty());
    EXPECT_EQ(Stored(), "");
}

TEST_F(RecentPathsOfPyxIni, StandBesideThoseOfDdinstal) {
    Recent().Remember("/a");
    RecentPaths(*settings_, kRecentDDInstallPaths, false).Remember("/d");
    EXPECT_THAT(Recent().Paths(), ElementsAre("/a"));
    EXPECT_THAT(RecentPaths(*settings_, kRecentDDInstallPaths, false).Paths(), ElementsAre("/d"));
}

TEST_F(RecentPathsOfPyxIni, TellWhenTheStoreRefusesThem) {
    registry_.RefuseWrites(kRegistryAccessDenied);
    EXPECT_EQ(Recent().Remember("/a"), kRegistryAccessDenied);
    EXPECT_EQ(Recent().Clear(), kRegistryAccessDenied);
}

}  // namespace
}  // namespace ventlock::test
