#include "entry/RequiredFields.h"

#include <gtest/gtest.h>

#include <ostream>
#include <utility>

#include "support/RowName.h"
#include "unit/entry/FilledForm.h"

namespace ventlock::test {
namespace {

constexpr Targets kAll{true, true, true};
constexpr Targets kNone{false, false, false};
constexpr Targets kDatabaseOnly{true, false, false};
constexpr Targets kIniOnly{false, true, false};
constexpr Targets kDatabaseAndIni{true, true, false};

/// One field and what can still be written when it alone is empty.
struct EmptyField {
    std::string_view name;
    void (*set)(EntryForm& form, const std::string& text);
    Targets writable;
};

void PrintTo(const EmptyField& row, std::ostream* out) {
    *out << row.name;
}

template <std::size_t box>
void SetBox(EntryForm& form, const std::string& text) {
    form.txtMain[box] = text;
}

template <std::string EntryForm::*list>
void SetList(EntryForm& form, const std::string& text) {
    form.*list = text;
}

void DeselectVersions(EntryForm& form, const std::string& /*text*/) {
    for (OfferedVersion& version : form.lstTAVVersionSupport) version.isSelected = false;
}

class WriteCommands : public testing::TestWithParam<EmptyField> {};

TEST_P(WriteCommands, AreDisabledByTheEmptyField) {
    EntryForm form = FilledForm();
    GetParam().set(form, "");
    EXPECT_EQ(WritableTargets(form), GetParam().writable);
}

TEST_P(WriteCommands, AreDisabledByBlanksInTheField) {
    EntryForm form = FilledForm();
    GetParam().set(form, "   ");
    EXPECT_EQ(WritableTargets(form), GetParam().writable);
}

INSTANTIATE_TEST_SUITE_P(
    Fields, WriteCommands,
    testing::Values(EmptyField{"ManufacturerId", SetBox<kManufacturerIdBox>, kNone},
                    EmptyField{"ManufacturerName", SetBox<kManufacturerNameBox>, kIniOnly},
                    EmptyField{"DeviceId", SetBox<kDeviceIdBox>, kNone},
                    EmptyField{"DeviceName", SetBox<kDeviceNameBox>, kDatabaseOnly},
                    EmptyField{"Dll", SetBox<kDllBox>, kDatabaseOnly},
                    EmptyField{"Template", SetBox<kTemplateBox>, kDatabaseAndIni},
                    EmptyField{"DeviceRevision", SetList<&EntryForm::cboDevRev>, kNone},
                    EmptyField{"DDRevision", SetList<&EntryForm::cboDDRev>, kDatabaseAndIni},
                    EmptyField{"HartRevision", SetList<&EntryForm::cboHARTRev>, kDatabaseOnly},
                    EmptyField{"Versions", DeselectVersions, kDatabaseAndIni},
                    // Fields that never disable a command.
                    EmptyField{"DataSource", SetBox<kDataSourceBox>, kAll},
                    EmptyField{"DDInstallPath", SetBox<kDDInstallPathBox>, kAll},
                    EmptyField{"IniPath", SetBox<kIniPathBox>, kAll},
                    EmptyField{"ManufacturerDescription", SetBox<kManufacturerDescriptionBox>, kAll},
                    EmptyField{"DeviceDescription", SetBox<kDeviceDescriptionBox>, kAll},
                    EmptyField{"RevisionName", SetBox<kRevisionNameBox>, kAll},
                    EmptyField{"RevisionDescription", SetBox<kRevisionDescriptionBox>, kAll},
                    EmptyField{"DeviceHelp", SetBox<kDeviceHelpBox>, kAll},
                    EmptyField{"BlockHelp", SetBox<kBlockHelpBox>, kAll}),
    RowName());

TEST(WritableTargets, AreAllWhenEveryFieldIsFilled) {
    EXPECT_EQ(WritableTargets(FilledForm()), kAll);
}

TEST(WritableTargets, OfAnEmptyFormAreNone) {
    EXPECT_EQ(WritableTargets(EntryForm()), kNone);
}

TEST(WritableTargets, GrowWithTheFieldsThatAreFilled) {
    EntryForm form;
    for (const auto& [box, text] : {std::pair{kManufacturerIdBox, "26"}, std::pair{kDeviceIdBox, "7"},
                                    std::pair{kDeviceNameBox, "Flow"}, std::pair{kDllBox, "Dev"}}) {
        form.txtMain[box] = text;
    }
    form.cboDevRev = "01";
    form.cboHARTRev = "05";
    EXPECT_EQ(WritableTargets(form), kIniOnly);
    form.txtMain[kManufacturerNameBox] = "Acme";
    EXPECT_EQ(WritableTargets(form), kDatabaseAndIni);
    form.txtMain[kTemplateBox] = "t";
    form.cboDDRev = "01";
    EXPECT_EQ(WritableTargets(form), kDatabaseAndIni);
    form.lstTAVVersionSupport = {{"5.0", false}, {"6.0", true}};
    EXPECT_EQ(WritableTargets(form), kAll);
}

TEST(WritableTargets, CountTheBareExtensionsOfAnEmptyDllAndTemplateAsFilled) {
    EntryForm form = FilledForm();
    form.txtMain[kDllBox] = ".dll";
    form.txtMain[kTemplateBox] = ".mrg";
    EXPECT_EQ(WritableTargets(form), kAll);
}

}  // namespace
}  // namespace ventlock::test
