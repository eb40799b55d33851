// The list of the data source's field.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/clsSettings.h"
#include "gui/Commands.h"
#include "gui/DropDown.h"
#include "gui/GuiWorld.h"
#include "gui/Input.h"
#include "platform/odbc/DataSources.h"

namespace ventlock::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DataSourceList : public testing::Test {
 protected:
    MainControls& Controls() { return window_.Controls(); }
    std::string Shown() { return Controls().txtMain[kDataSourceBox]->Text(); }

    void ReadyInField() { ASSERT_TRUE(ReadyToType(Controls().txtMain[kDataSourceBox]->Box())); }

    std::vector<std::string> Drop(const std::vector<int>& keys) {
        return InDropDown(
            window_, kDataSourceBox, [this] { Press(Controls().lstDataSources->Button()); }, keys);
    }

    /// How often Down is pressed to get to the item of a data source.
    static std::vector<int> KeysTo(const std::string& name) {
        std::vector<std::string> names;
        for (const DataSource& source : ListDataSources()) {
            if (std::find(names.begin(), names.end(), source.name) == names.end())
                names.push_back(source.name);
        }
        const auto place = std::find(names.begin(), names.end(), name);
        EXPECT_NE(place, names.end()) << name;
        std::vector<int> keys(static_cast<std::size_t>(place - names.begin()) + 1, WXK_DOWN);
        keys.push_back(WXK_RETURN);
        return keys;
    }

    GuiWorld world_;
    frmMain& window_ = world_.Start();
};

TEST_F(DataSourceList, OffersWhatTheDriverManagerKnowsWithDriverAndScope) {
    ReadyInField();
    std::vector<std::string> expected;
    for (const DataSource& source : ListDataSources())
        if (source.name == world_.Database().Dsn())
            expected.push_back(source.name + " \u2013 " + source.driver + ", of the user");
    ASSERT_EQ(expected.size(), 1u);
    EXPECT_THAT(Drop({WXK_ESCAPE}), Contains(expected.front()));
}

TEST_F(DataSourceList, IsReadWhenItDropsDown) {
    ReadyInField();
    const SqliteDatabase late(DeviceSchema::Current);
    const std::vector<std::string> captions = Drop({WXK_ESCAPE});
    EXPECT_TRUE(std::any_of(captions.begin(), captions.end(), [&](const std::string& caption) {
        return caption.starts_with(late.Dsn() + " ");
    })) << late.Dsn();
}

TEST_F(DataSourceList, PutsAPickIntoTheFieldAndConnectsToNothing) {
    const SqliteDatabase other(DeviceSchema::Old);
    ReadyInField();
    const std::string stored = ReadBytes(world_.PyxPath());
    Drop(KeysTo(other.Dsn()));
    EXPECT_EQ(Shown(), other.Dsn());
    EXPECT_EQ(window_.SchemaVersion(), 5);
    EXPECT_EQ(ReadBytes(world_.PyxPath()), stored);
    Press(*Controls().cmdSwitchDSN);
    EXPECT_EQ(window_.SchemaVersion(), 4);
}

TEST_F(DataSourceList, GivesTheKeyboardToTheFieldBehindAPick) {
    ReadyInField();
    Drop(KeysTo(world_.Database().Dsn()));
    WaitUntil("the focus",
              [&] { return wxWindow::FindFocus() == &Controls().txtMain[kDataSourceBox]->Box(); });
}

TEST_F(DataSourceList, ThatIsClosedWithEscLeavesTheFieldAlone) {
    ReadyInField();
    Controls().txtMain[kDataSourceBox]->SetText("typed");
    Drop({WXK_DOWN, WXK_ESCAPE});
    EXPECT_EQ(Shown(), "typed");
}

TEST_F(DataSourceList, DropsDownWithAltAndDownInTheField) {
    ReadyInField();
    const auto captions =
        InDropDown(window_, kDataSourceBox, [] { PressKey(WXK_DOWN, wxMOD_ALT); }, {WXK_ESCAPE});
    EXPECT_FALSE(captions.empty());
    EXPECT_EQ(Shown(), world_.Database().Dsn());
}

TEST_F(DataSourceList, NamesOnceWhatTheUserAndTheMachineBothHave) {
    world_.listDataSources = [] {
        return std::vector<DataSource>{{"PYX", "SQLite3", false}, {"A&B", "", true}, {"PYX", "Other", true}};
    };
    frmMain& window = world_.Start();
    ASSERT_TRUE(ReadyToType(window.Controls().txtMain[kDataSourceBox]->Box()));
    EXPECT_THAT(InDropDown(window, kDataSourceBox, [&] { Press(window.Controls().lstDataSources->Button()); },
                           {WXK_DOWN, WXK_DOWN, WXK_RETURN}),
                ElementsAre("PYX \u2013 SQLite3, of the user", "A&&B \u2013 of the machine"));
    EXPECT_EQ(window.Controls().txtMain[kDataSourceBox]->Text(), "A&B");
}

TEST_F(DataSourceList, IsEmptyAndLoggedWhenTheDriverManagerFails) {
    world_.listDataSources = []() -> std::vector<DataSource> {
        throw RunTimeError::OdbcCallFailed({"[HY000] broken (0)"});
    };
    frmMain& window = world_.Start();
    ASSERT_TRUE(ReadyToType(window.Controls().txtMain[kDataSourceBox]->Box()));
    EXPECT_THAT(InDropDown(window, kDataSourceBox, [&] { Press(window.Controls().lstDataSources->Button()); },
                           {WXK_ESCAPE}),
                ElementsAre("[No data sources are known]"));
    EXPECT_THAT(world_.LogEntries(), ElementsAre("fMdds-00: ODBC--call failed. [HY000] broken (0) (3146)"));
    EXPECT_THAT(world_.messages.Texts(), IsEmpty());
}

TEST_F(DataSourceList, IsNotReadAtTheStart) {
    int reads = 0;
    world_.listDataSources = [&] {
        ++reads;
        return std::vector<DataSource>{};
    };
    world_.Start();
    Pump();
    EXPECT_EQ(reads, 0);
}

TEST_F(DataSourceList, LeavesTypingAsItIs) {
    ReadyInField();
    Controls().txtMain[kDataSourceBox]->Box().SelectAll();
    TypeText("nobody");
    WaitUntil("the typed text", [&] { return Shown() == "nobody"; });
}

TEST_F(DataSourceList, DoesNothingWhileACommandRuns) {
    ReadyInField();
    world_.messages.whileShown = [&] { Press(Controls().lstDataSources->Button()); };
    Controls().txtMain[kDataSourceBox]->SetText("nobody_knows_this");
    Press(*Controls().cmdSwitchDSN);
    EXPECT_FALSE(world_.messages.messages.empty());
    EXPECT_EQ(Shown(), "nobody_knows_this");
}

}  // namespace
}  // namespace ventlock::test
