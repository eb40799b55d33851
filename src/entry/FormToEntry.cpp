#include "entry/FormToEntry.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "base/Text.h"
#include "db/SchemaVersion.h"
#include "entry/VersionList.h"
#include "files/EntryNames.h"

namespace ventlock {
namespace {

using KeyOfBox = std::pair<std::string_view, std::size_t>;

constexpr auto kBoxes = std::to_array<KeyOfBox>({
    {"ManID", kManufacturerIdBox},
    {"ManName", kManufacturerNameBox},
    {"DevID", kDeviceIdBox},
    {"DevName", kDeviceNameBox},
    {"DLLName", kDllBox},
    {"TemplateName", kTemplateBox},
    {"DevHelp", kDeviceHelpBox},
    {"BlkHelp", kBlockHelpBox},
});

constexpr auto kCurrentSchemaBoxes = std::to_array<KeyOfBox>({
    {"ManDesc", kManufacturerDescriptionBox},
    {"DevDesc", kDeviceDescriptionBox},
    {"DevRevName", kRevisionNameBox},
    {"DevRevDesc", kRevisionDescriptionBox},
});

constexpr auto kUnshownKeys =
    std::to_array<std::string_view>({"ManDesc", "DevDesc", "DevRevName", "DevRevDesc", "ProtID", "Protocol",
                                     "DevCatID", "MajorCategory", "DevMinCatID", "MinorCategory"});

/// A text that is neither there nor by default need not stand in the file.
void Put(FileEntry& entry, std::string_view key, const std::string& text) {
    if (!text.empty() || !entry.Text(key).empty()) entry.values[std::string(key)] = {text, 0};
}

void PutCategory(FileEntry& entry, std::string_view idKey, std::string_view nameKey,
                 const ListChoice& choice) {
    if (choice.index >= 0) {
        Put(entry, idKey, std::to_string(choice.itemData));
    } else if (Trim(choice.text).empty()) {
        Put(entry, idKey, "0");
    } else {
        Put(entry, nameKey, choice.text);
    }
}

/// What the form's device is called; any name does for one whose ids are none.
std::string NameOf(const EntryForm& form) {
    std::string ids;
    for (const std::string& id :
         {form.txtMain[kManufacturerIdBox], form.txtMain[kDeviceIdBox], form.cboDevRev}) {
        if (Trim(id).empty()) return "Entry";
        ids += Trim(id);
    }
    if (ids.find_first_not_of("0123456789ABCDEFabcdef") != std::string::npos) return "Entry";
    return DeviceKey(Trim(form.txtMain[kManufacturerIdBox]), Trim(form.txtMain[kDeviceIdBox]),
                     Trim(form.cboDevRev));
}

}  // namespace

FileEntry UnshownOf(const clsManufacturer& manufacturer, const clsDevice& device) {
    FileEntry entry;
    Put(entry, "ManDesc", manufacturer.Desc);
    Put(entry, "DevDesc", device.DevDesc);
    Put(entry, "DevRevName", device.RevName);
    Put(entry, "DevRevDesc", device.RevDesc);
    const auto putId = [&](std::string_view key, const std::string& id) {
        if (!Trim(id).empty()) Put(entry, key, id);
    };
    putId("ProtID", manufacturer.ProtID);
    putId("DevCatID", device.MajCatID);
    putId("DevMinCatID", device.MinCatID);
    return entry;
}

void KeepUnshown(const FileEntry& entry, clsManufacturer& manufacturer, clsDevice& device) {
    manufacturer.Desc = entry.Text("ManDesc");
    device.DevDesc = entry.Text("DevDesc");
    device.RevName = entry.Text("DevRevName");
    device.RevDesc = entry.Text("DevRevDesc");
    manufacturer.ProtID = entry.Text("ProtID");
    device.MajCatID = entry.Text("DevCatID");
    device.MinCatID = entry.Text("DevMinCatID");
}

FileEntry ToFileEntry(const EntryForm& form, std::int16_t schemaVersion, const FileEntry& unshown) {
    FileEntry entry;
    entry.name = NameOf(form);
    entry.line = 1;
    for (const auto& [key, box] : kBoxes) Put(entry, key, form.txtMain[box]);
    Put(entry, "DevRev", form.cboDevRev);
    Put(entry, "DDRev", form.cboDDRev);
    Put(entry, "ProtRev", form.cboHARTRev);
    Put(entry, "TAVVersions", SelectedVersions(form));
    if (schemaVersion < kCurrentSchema) {
        for (const std::string_view key : kUnshownKeys) {
            if (unshown.Has(key)) Put(entry, key, unshown.Text(key));
        }
        return entry;
    }
    for (const auto& [key, box] : kCurrentSchemaBoxes) Put(entry, key, form.txtMain[box]);
    Put(entry, "ProtID",
        form.cboDeviceProtocol.index >= 0 ? std::to_string(form.cboDeviceProtocol.itemData)
                                          : unshown.Text("ProtID"));
    PutCategory(entry, "DevCatID", "MajorCategory", form.cboDeviceCategory);
    PutCategory(entry, "DevMinCatID", "MinorCategory", form.cboMinorCategory);
    return entry;
}

}  // namespace ventlock
