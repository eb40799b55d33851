#include "entry/WriteObstacles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/entry/FilledForm.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;

constexpr Targets kDatabase{.database = true, .ini = false, .ddInstall = false};
constexpr Targets kIni{.database = false, .ini = true, .ddInstall = false};
constexpr Targets kDDInstall{.database = false, .ini = false, .ddInstall = true};

TEST(WriteObstacles, OfAFilledFormAreNone) {
    for (const Targets& target : {kDatabase, kIni, kDDInstall})
        EXPECT_FALSE(ObstaclesOf(target, FilledForm(), true).Any());
}

TEST(WriteObstacles, NameTheMissingConnectionForTheDatabaseOnly) {
    EXPECT_TRUE(ObstaclesOf(kDatabase, FilledForm(), false).isNotConnected);
    EXPECT_FALSE(ObstaclesOf(kIni, FilledForm(), false).Any());
    EXPECT_FALSE(ObstaclesOf(kDDInstall, FilledForm(), false).Any());
}

TEST(WriteObstacles, NameTheEmptyFieldsThatTheTargetNeeds) {
    EntryForm form = FilledForm();
    form.txtMain[kManufacturerIdBox] = " ";
    form.txtMain[kDllBox].clear();
    form.lstTAVVersionSupport.clear();
    EXPECT_THAT(ObstaclesOf(kDatabase, form, true).emptyFields, ElementsAre("ManID"));
    EXPECT_THAT(ObstaclesOf(kIni, form, true).emptyFields, ElementsAre("ManID", "DLLName"));
    EXPECT_THAT(ObstaclesOf(kDDInstall, form, true).emptyFields,
                ElementsAre("ManID", "DLLName", "TAVVersions"));
}

}  // namespace
}  // namespace ventlock::test
