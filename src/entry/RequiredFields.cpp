#include "entry/RequiredFields.h"

#include <algorithm>
#include <array>

#include "base/Text.h"

namespace ventlock {
namespace {

template <std::size_t box>
bool IsBoxEmpty(const EntryForm& form) {
    return Trim(form.txtMain[box]).empty();
}

template <std::string EntryForm::*list>
bool IsListEmpty(const EntryForm& form) {
    return Trim(form.*list).empty();
}

bool IsNoVersionSelected(const EntryForm& form) {
    return std::none_of(form.lstTAVVersionSupport.begin(), form.lstTAVVersionSupport.end(),
                        [](const OfferedVersion& version) { return version.isSelected; });
}

constexpr Targets kAll{.database = true, .ini = true, .ddInstall = true};
constexpr Targets kFiles{.database = false, .ini = true, .ddInstall = true};
constexpr Targets kDatabaseAndDDInstall{.database = true, .ini = false, .ddInstall = true};
constexpr Targets kDDInstall{.database = false, .ini = false, .ddInstall = true};

constexpr auto kFields = std::to_array<RequiredField>({
    {"ManID", kAll, IsBoxEmpty<kManufacturerIdBox>},
    {"ManName", kDatabaseAndDDInstall, IsBoxEmpty<kManufacturerNameBox>},
    {"DevID", kAll, IsBoxEmpty<kDeviceIdBox>},
    {"DevName", kFiles, IsBoxEmpty<kDeviceNameBox>},
    {"DLLName", kFiles, IsBoxEmpty<kDllBox>},
    {"TemplateName", kDDInstall, IsBoxEmpty<kTemplateBox>},
    {"DevRev", kAll, IsListEmpty<&EntryForm::cboDevRev>},
    {"DDRev", kDDInstall, IsListEmpty<&EntryForm::cboDDRev>},
    {"ProtRev", kFiles, IsListEmpty<&EntryForm::cboHARTRev>},
    {"TAVVersions", kDDInstall, IsNoVersionSelected},
});

}  // namespace

std::span<const RequiredField> RequiredFields() {
    return kFields;
}

Targets WritableTargets(const EntryForm& form) {
    Targets writable = kAll;
    for (const RequiredField& field : kFields) {
        if (!field.isEmpty(form)) continue;
        if (field.neededBy.database) writable.database = false;
        if (field.neededBy.ini) writable.ini = false;
        if (field.neededBy.ddInstall) writable.ddInstall = false;
    }
    return writable;
}

}  // namespace ventlock
