#include "entry/ControlStates.h"

#include <gtest/gtest.h>

#include <ostream>

#include "db/SchemaVersion.h"
#include "support/RowName.h"
#include "unit/entry/FilledForm.h"

namespace ventlock::test {
namespace {

// States of one control, as the letters of the rules' table say them: e enabled, d disabled, W window
// background, F button face, = untouched.
constexpr auto kWindow = FieldColour::WindowBackground;
constexpr auto kFace = FieldColour::ButtonFace;
const FieldState kDisabledFace{.enabled = false, .colour = kFace, .selection = {}, .isEmptied = false};
const FieldState kEnabledUntouched{.enabled = true, .colour = {}, .selection = {}, .isEmptied = false};
const FieldState kEnabledWindow{.enabled = true, .colour = kWindow, .selection = {}, .isEmptied = false};
const FieldState kUntouchedFace{.enabled = {}, .colour = kFace, .selection = {}, .isEmptied = false};
const FieldState kDisabledFaceEmptied{.enabled = false, .colour = kFace, .selection = {}, .isEmptied = true};
const FieldState kDisabledFaceItem0{.enabled = false, .colour = kFace, .selection = 0, .isEmptied = false};
const FieldState kDisabledFaceNone{.enabled = false, .colour = kFace, .selection = -1, .isEmptied = false};

/// A filled form whose three lists hold items, with this protocol chosen.
EntryForm FormOfProtocol(int index) {
    EntryForm form = FilledForm();
    form.cboDeviceProtocol = {index, index < 0 ? 0 : index, "", 4};
    form.cboDeviceCategory = {3, 3, "Flow", 10};
    form.cboMinorCategory = {4, 4, "Thermocouple", 18};
    return form;
}

/// One column of the table: a situation and the state of each control in it.
struct Column {
    std::string_view name;
    std::int16_t schema;
    int protocol;
    bool isConnected;
    FieldState descriptions;  ///< manufacturer, device and revision description
    FieldState revisionName;
    FieldState protocolList;
    FieldState majorCategory;
    FieldState minorCategory;
};

void PrintTo(const Column& column, std::ostream* out) {
    *out << column.name;
}

class ControlStatesOf : public testing::TestWithParam<Column> {
 protected:
    ControlStateSet States() {
        const Column& column = GetParam();
        return ControlStates(FormOfProtocol(column.protocol), column.schema, column.isConnected);
    }
};

TEST_P(ControlStatesOf, ManufacturerDescription) {
    EXPECT_EQ(States().manufacturerDescription, GetParam().descriptions);
}

TEST_P(ControlStatesOf, DeviceDescription) {
    EXPECT_EQ(States().deviceDescription, GetParam().descriptions);
}

TEST_P(ControlStatesOf, RevisionDescription) {
    EXPECT_EQ(States().revisionDescription, GetParam().descriptions);
}

TEST_P(ControlStatesOf, RevisionName) {
    EXPECT_EQ(States().revisionName, GetParam().revisionName);
}

TEST_P(ControlStatesOf, Protocol) {
    EXPECT_EQ(States().cboDeviceProtocol, GetParam().protocolList);
}

TEST_P(ControlStatesOf, MajorCategory) {
    EXPECT_EQ(States().cboDeviceCategory, GetParam().majorCategory);
}

TEST_P(ControlStatesOf, MinorCategory) {
    EXPECT_EQ(States().cboMinorCategory, GetParam().minorCategory);
}

INSTANTIATE_TEST_SUITE_P(
    Columns, ControlStatesOf,
    testing::Values(Column{"OldSchema", kOldSchema, 0, true, kDisabledFace, kDisabledFace, kDisabledFace,
                           kDisabledFace, kUntouchedFace},
                    Column{"OldSchemaWithProtocol1", kOldSchema, 1, true, kDisabledFace, kDisabledFace,
                           kDisabledFace, kDisabledFace, kUntouchedFace},
                    Column{"NoSchema", 0, -1, false, kDisabledFace, kDisabledFace, kDisabledFace,
                           kDisabledFace, kUntouchedFace},
                    Column{"ConnectedProtocol2", kCurrentSchema, 2, true, kEnabledUntouched, kEnabledWindow,
                           kEnabledWindow, kEnabledWindow, kEnabledWindow},
                    Column{"ConnectedProtocol1", kCurrentSchema, 1, true, kEnabledUntouched,
                           kDisabledFaceEmptied, kEnabledWindow, kDisabledFaceItem0, kDisabledFaceItem0},
                    Column{"ConnectedProtocol0", kCurrentSchema, 0, true, kEnabledUntouched, kEnabledWindow,
                           kEnabledWindow, kDisabledFaceItem0, kDisabledFaceItem0},
                    Column{"ConnectedProtocol3", kCurrentSchema, 3, true, kEnabledUntouched, kEnabledWindow,
                           kEnabledWindow, kDisabledFaceItem0, kDisabledFaceItem0},
                    Column{"ConnectedNoProtocol", kCurrentSchema, -1, true, kEnabledUntouched, kEnabledWindow,
                           kEnabledWindow, kDisabledFaceItem0, kDisabledFaceItem0},
                    Column{"NotConnectedProtocol0", kCurrentSchema, 0, false, kEnabledUntouched,
                           kEnabledWindow, kDisabledFace, kDisabledFaceItem0, kDisabledFaceItem0},
                    Column{"NotConnectedNoProtocol", kCurrentSchema, -1, false, kEnabledUntouched,
                           kEnabledWindow, kDisabledFace, kDisabledFaceItem0, kDisabledFaceItem0},
                    Column{"NotConnectedProtocol2", kCurrentSchema, 2, false, kEnabledUntouched,
                           kEnabledWindow, kDisabledFace, kDisabledFace, kDisabledFace}),
    RowName());

TEST(ControlStates, ChooseNoCategoryWhenTheListsAreEmpty) {
    EntryForm form = FormOfProtocol(0);
    form.cboDeviceCategory = {};
    form.cboMinorCategory = {};
    const ControlStateSet states = ControlStates(form, kCurrentSchema, true);
    EXPECT_EQ(states.cboDeviceCategory, kDisabledFaceNone);
    EXPECT_EQ(states.cboMinorCategory, kDisabledFaceNone);
}

TEST(ControlStates, ChooseTheOnlyCategoryOfAList) {
    EntryForm form = FormOfProtocol(0);
    form.cboDeviceCategory.itemCount = 1;
    form.cboMinorCategory.itemCount = 1;
    const ControlStateSet states = ControlStates(form, kCurrentSchema, true);
    EXPECT_EQ(states.cboDeviceCategory, kDisabledFaceItem0);
    EXPECT_EQ(states.cboMinorCategory, kDisabledFaceItem0);
}

TEST(ControlStates, LeaveTheColourOfTheDescriptionsAloneAfterTheOldSchema) {
    const ControlStateSet before = ControlStates(FormOfProtocol(0), kOldSchema, true);
    const ControlStateSet after = ControlStates(FormOfProtocol(0), kCurrentSchema, true);
    EXPECT_EQ(before.deviceDescription.colour, kFace);
    EXPECT_EQ(after.deviceDescription.enabled, true);
    EXPECT_EQ(after.deviceDescription.colour, std::nullopt);
}

TEST(ControlStates, AppliedToTheirOwnResultGiveTheSameAgain) {
    for (const std::int16_t schema : {kOldSchema, kCurrentSchema}) {
        for (const int protocol : {-1, 0, 1, 2, 3}) {
            for (const bool isConnected : {true, false}) {
                EntryForm form = FormOfProtocol(protocol);
                const ControlStateSet first = ControlStates(form, schema, isConnected);
                if (first.revisionName.isEmptied) form.txtMain[kRevisionNameBox].clear();
                if (first.cboDeviceCategory.selection)
                    form.cboDeviceCategory.index = *first.cboDeviceCategory.selection;
                if (first.cboMinorCategory.selection)
                    form.cboMinorCategory.index = *first.cboMinorCategory.selection;
                EXPECT_EQ(ControlStates(form, schema, isConnected), first)
                    << "schema " << schema << ", protocol " << protocol << ", connected " << isConnected;
            }
        }
    }
}

TEST(ControlStates, LetTheDatabaseBeWrittenOnlyWhenItIsConnected) {
    const EntryForm form = FormOfProtocol(0);
    const Targets all{true, true, true};
    const Targets files{false, true, true};
    EXPECT_EQ(ControlStates(form, kCurrentSchema, true).canWrite, all);
    EXPECT_EQ(ControlStates(form, kCurrentSchema, false).canWrite, files);
    EXPECT_EQ(ControlStates(form, kOldSchema, true).canWrite, all);
    EXPECT_EQ(ControlStates(form, kOldSchema, false).canWrite, files);
}

}  // namespace
}  // namespace ventlock::test
