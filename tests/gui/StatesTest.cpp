// Which fields can be used, by schema, connection and protocol.

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "gui/GuiWorld.h"
#include "gui/SwitchTo.h"
#include "support/RowName.h"
#include "ui/WxText.h"

namespace ventlock::test {
namespace {

/// Enabled or disabled, and the colour given last: W window background, F button face, = none so far.
std::string StateOf(const wxWindow& window, FieldLook& look) {
    const char* colour = " =";
    if (look.Colour() == FieldColour::WindowBackground) colour = " W";
    if (look.Colour() == FieldColour::ButtonFace) colour = " F";
    return (window.IsEnabled() ? "e" : "d") + std::string(colour);
}

std::string StateOf(TextField& field) {
    return StateOf(field.Box(), field.Look());
}

std::string StateOf(ListField& field) {
    return StateOf(field.Box(), field.Look());
}

enum class Database { Current, Old, None };

/// One column of the table of states. Before, revision name "R1" and, where there are categories, the fourth
/// major and the fifth minor one were chosen.
struct Column {
    std::string name;
    Database database;
    bool isConnected;      ///< False: the last change to another data source failed
    const char* protocol;  ///< its id, which is its position too
    const char* descriptions;
    const char* revisionName;
    const char* revisionNameText;
    const char* protocolList;
    const char* majorCategory;
    int majorItem;
    const char* minorCategory;
    int minorItem;
};

void PrintTo(const Column& column, std::ostream* out) {
    *out << column.name;
}

class StatesOnThe : public testing::TestWithParam<Column> {
 protected:
    static std::unique_ptr<GuiWorld> NewWorld() {
        if (GetParam().database == Database::None) return std::make_unique<GuiWorld>(GuiWorld::NoDatabase{});
        return std::make_unique<GuiWorld>(GetParam().database == Database::Old ? DeviceSchema::Old
                                                                               : DeviceSchema::Current);
    }

    void SetUp() override {
        world_->PutEntry();
        world_->Put("ProtID", GetParam().protocol);
        world_->Put("DevCatID", "3");
        world_->Put("DevMinCatID", "4");
        frmMain& window = world_->Start();
        if (GetParam().database != Database::Current) Controls().txtMain[kRevisionNameBox]->SetText("R1");
        if (!GetParam().isConnected && GetParam().database == Database::Current)
            SwitchTo(window, "nobody_knows_this");
        ASSERT_EQ(window.IsConnected(), GetParam().isConnected);
    }

    MainControls& Controls() { return world_->Window().Controls(); }

    std::unique_ptr<GuiWorld> world_ = NewWorld();
};

TEST_P(StatesOnThe, FieldsFollowTheTable) {
    const Column& column = GetParam();
    MainControls& c = Controls();
    EXPECT_EQ(StateOf(*c.txtMain[kManufacturerDescriptionBox]), column.descriptions);
    EXPECT_EQ(StateOf(*c.txtMain[kDeviceDescriptionBox]), column.descriptions);
    EXPECT_EQ(StateOf(*c.txtMain[kRevisionDescriptionBox]), column.descriptions);
    EXPECT_EQ(StateOf(*c.txtMain[kRevisionNameBox]), column.revisionName);
    EXPECT_EQ(c.txtMain[kRevisionNameBox]->Text(), column.revisionNameText);
    EXPECT_EQ(StateOf(*c.cboDeviceProtocol), column.protocolList);
    EXPECT_EQ(StateOf(*c.cboDeviceCategory), column.majorCategory);
    EXPECT_EQ(c.cboDeviceCategory->Index(), column.majorItem);
    EXPECT_EQ(StateOf(*c.cboMinorCategory), column.minorCategory);
    EXPECT_EQ(c.cboMinorCategory->Index(), column.minorItem);
}

TEST_P(StatesOnThe, FieldsStayAsTheyAreWhenEvaluatedAgain) {
    MainControls& c = Controls();
    const auto all = [&] {
        std::vector<std::string> states;
        for (const auto& box : c.txtMain) {
            states.push_back(StateOf(*box));
            states.push_back(box->Text());
        }
        for (ListField* list : std::initializer_list<ListField*>{
                 c.cboDeviceProtocol.get(), c.cboDeviceCategory.get(), c.cboMinorCategory.get(),
                 c.cboDevRev.get(), c.cboDDRev.get(), c.cboHARTRev.get()}) {
            states.push_back(StateOf(*list));
            states.push_back(std::to_string(list->Index()) + list->Text());
        }
        for (const wxButton* button : {c.cmdWriteDB, c.cmdWriteINI, c.cmdWriteDDInstall})
            states.emplace_back(button->IsEnabled() ? "e" : "d");
        return states;
    };
    const std::vector<std::string> before = all();
    const std::size_t messages = world_->messages.messages.size();
    world_->Window().SetControlStates();
    EXPECT_EQ(all(), before);
    EXPECT_EQ(world_->messages.messages.size(), messages);
}

TEST_P(StatesOnThe, ColoursAreThoseOfThePalette) {
    MainControls& c = Controls();
    const TextField& box = *c.txtMain[kRevisionNameBox];
    const bool isEditable = GetParam().revisionName == std::string("e W");
    EXPECT_EQ(box.Box().GetBackgroundColour(),
              SystemColour(isEditable ? FieldColour::WindowBackground : FieldColour::ButtonFace));
}

INSTANTIATE_TEST_SUITE_P(
    Window, StatesOnThe,
    testing::Values(
        Column{"OldSchema", Database::Old, true, "2", "d F", "d F", "R1", "d F", "d F", -1, "e F", -1},
        Column{"NoDatabase", Database::None, false, "2", "d F", "d F", "R1", "d F", "d F", -1, "e F", -1},
        Column{"Protocol2", Database::Current, true, "2", "e =", "e W", "R1", "e W", "e W", 3, "e W", 4},
        Column{"Protocol1", Database::Current, true, "1", "e =", "d F", "", "e W", "d F", 0, "d F", 0},
        Column{"Protocol0", Database::Current, true, "0", "e =", "e W", "R1", "e W", "d F", 0, "d F", 0},
        Column{"NoProtocol", Database::Current, true, "9", "e =", "e W", "R1", "e W", "d F", 0, "d F", 0},
        Column{"LostConnectionProtocol2", Database::Current, false, "2", "e =", "e W", "R1", "d F", "d F", 3,
               "d F", 4},
        Column{"LostConnectionProtocol1", Database::Current, false, "1", "e =", "d F", "", "d F", "d F", 0,
               "d F", 0},
        Column{"LostConnectionProtocol0", Database::Current, false, "0", "e =", "e W", "R1", "d F", "d F", 0,
               "d F", 0},
        Column{"LostConnectionNoProtocol", Database::Current, false, "9", "e =", "e W", "R1", "d F", "d F", 0,
               "d F", 0}),
    RowName());

TEST(States, OfTheDescriptionsStayGreyAfterAChangeFromTheOldSchema) {
    GuiWorld world(DeviceSchema::Old);
    const SqliteDatabase current(DeviceSchema::Current);
    frmMain& window = world.Start();
    SwitchTo(window, current.Dsn());
    ASSERT_EQ(window.SchemaVersion(), 5);
    for (const std::size_t box :
         {kManufacturerDescriptionBox, kDeviceDescriptionBox, kRevisionDescriptionBox})
        EXPECT_EQ(StateOf(*window.Controls().txtMain[box]), "e F") << box;
}

TEST(States, OfTheMinorCategoryStayDisabledAfterAChangeToTheOldSchema) {
    GuiWorld world;
    const SqliteDatabase old(DeviceSchema::Old);
    world.PutEntry();
    world.Put("ProtID", "0");
    frmMain& window = world.Start();
    SwitchTo(window, old.Dsn());
    ASSERT_EQ(window.SchemaVersion(), 4);
    EXPECT_EQ(StateOf(*window.Controls().cboMinorCategory), "d F");
    EXPECT_EQ(StateOf(*window.Controls().cboDeviceCategory), "d F");
}

TEST(States, OfTheMinorCategoryStayEnabledAfterAChangeToTheOldSchema) {
    GuiWorld world;
    const SqliteDatabase old(DeviceSchema::Old);
    world.PutEntry();
    frmMain& window = world.Start();
    SwitchTo(window, old.Dsn());
    EXPECT_EQ(StateOf(*window.Controls().cboMinorCategory), "e F");
}

TEST(States, AreEvaluatedAfterAChangeOfTheDataSource) {
    GuiWorld world;
    const SqliteDatabase old(DeviceSchema::Old);
    world.PutEntry();
    frmMain& window = world.Start();
    EXPECT_EQ(StateOf(*window.Controls().cboDeviceProtocol), "e W");
    SwitchTo(window, old.Dsn());
    EXPECT_EQ(StateOf(*window.Controls().cboDeviceProtocol), "d F");
}

TEST(States, AreToldInTheStatusTextAfterAChangeOfTheDataSource) {
    GuiWorld world;
    const SqliteDatabase old(DeviceSchema::Old);
    frmMain& window = world.Start();
    SwitchTo(window, old.Dsn());
    EXPECT_EQ(FromWx(window.Controls().lblStatus->GetLabelText()),
              "Connected to " + old.Dsn() + ", old schema");
    SwitchTo(window, "nobody_knows_this");
    EXPECT_EQ(FromWx(window.Controls().lblStatus->GetLabelText()),
              "Not connected (data source nobody_knows_this)");
}

TEST(States, OfEmptyCategoryListsSelectNothing) {
    GuiWorld world;
    for (const char* table :
         {"DeviceRevisions", "DeviceCategories", "MajorDeviceCategories", "MinorDeviceCategories"})
        world.Database().Execute(std::string("DELETE FROM ") + table);
    world.PutEntry();
    world.Put("ProtID", "0");
    frmMain& window = world.Start();
    EXPECT_EQ(window.Controls().cboDeviceCategory->Count(), 0);
    EXPECT_EQ(window.Controls().cboDeviceCategory->Index(), -1);
    EXPECT_EQ(window.Controls().cboMinorCategory->Index(), -1);
    EXPECT_EQ(StateOf(*window.Controls().cboDeviceCategory), "d F");
}

TEST(States, OfTheRevisionNameComeBackEmptyWithAnotherProtocol) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    const MainControls& c = window.Controls();
    c.cboDeviceProtocol->Select(1);
    c.cboDeviceProtocol->Select(0);
    EXPECT_EQ(StateOf(*c.txtMain[kRevisionNameBox]), "e W");
    EXPECT_EQ(c.txtMain[kRevisionNameBox]->Text(), "");
}

}  // namespace
}  // namespace ventlock::test
