#include "entry/EntryToForm.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "entry/ControlStates.h"
#include "entry/VersionList.h"
#include "platform/Casing.h"

namespace ventlock {
namespace {

void Choose(const IList& list, int index, ListChoice& choice) {
    choice.index = index;
    choice.itemData = index < 0 ? 0 : list.ItemData(index);
    choice.text = index < 0 ? std::string() : list.Text(index);
}

int IndexOfName(const IList& list, std::string_view name) {
    for (int i = 0; i < list.Count(); ++i) {
        if (EqualIgnoringCase(list.Text(i), name)) return i;
    }
    return -1;
}

int IndexOfId(const IList& list, std::string_view id) {
    for (int i = 0; i < list.Count(); ++i) {
        if (SameNumber(id, list.ItemData(i))) return i;
    }
    return -1;
}

std::string NamesOf(const IList& list) {
    std::string names;
    for (int i = 0; i < list.Count(); ++i) {
        names += (i == 0 ? "" : ", ") + list.Text(i) + " (" + std::to_string(list.ItemData(i)) + ")";
    }
    return names.empty() ? "none" : names;
}

/// One list, chosen from by the key that names its items by text or by the one that names them by id.
struct ListKeys {
    std::string_view byName;
    std::string_view byId;
    std::string_view what;
    std::string_view findingId;
    bool canBeNew;  ///< an unknown name is created in the database
};

void ChooseByKeys(const FileEntry& entry, const IList& list, const ListKeys& keys, ListChoice& choice,
                  std::vector<Finding>& findings) {
    choice.itemCount = list.Count();
    const std::string name(Trim(entry.Text(keys.byName)));
    const bool isNamed = !name.empty();
    const std::string wanted = isNamed ? name : std::string(Trim(entry.Text(keys.byId)));
    const int index = isNamed ? IndexOfName(list, name) : IndexOfId(list, wanted);
    Choose(list, index, choice);
    if (index >= 0) return;
    if (isNamed && keys.canBeNew) {
        choice.text = name;
        return;
    }
    findings.push_back(
        {entry.Line(isNamed ? keys.byName : keys.byId), Severity::Error, std::string(keys.findingId),
         "the database has no " + std::string(keys.what) + " \"" + wanted + "\"; it has " + NamesOf(list)});
}

void ApplySelection(const FieldState& state, const IList& list, ListChoice& choice) {
    if (state.selection) Choose(list, *state.selection, choice);
}

void WarnDropped(const FileEntry& entry, std::string_view key, const std::string& why,
                 std::vector<Finding>& findings) {
    if (entry.Has(key) && !Trim(entry.Text(key)).empty()) {
        findings.push_back(
            {entry.Line(key), Severity::Warning, "not-used", std::string(key) + " is not used: " + why});
    }
}

}  // namespace

EntryForm ToForm(const FileEntry& entry, const TargetPaths& paths, IEvents& events) {
    EntryForm form;
    form.txtMain[kDDInstallPathBox] = paths.ddInstall;
    form.txtMain[kIniPathBox] = paths.ini;
    form.txtMain[kManufacturerIdBox] = entry.Text("ManID");
    form.txtMain[kManufacturerNameBox] = entry.Text("ManName");
    form.txtMain[kManufacturerDescriptionBox] = entry.Text("ManDesc");
    form.txtMain[kDeviceIdBox] = entry.Text("DevID");
    form.txtMain[kDeviceNameBox] = entry.Text("DevName");
    form.txtMain[kDeviceDescriptionBox] = entry.Text("DevDesc");
    form.txtMain[kDllBox] = entry.Text("DLLName");
    form.txtMain[kTemplateBox] = entry.Text("TemplateName");
    form.txtMain[kRevisionNameBox] = entry.Text("DevRevName");
    form.txtMain[kRevisionDescriptionBox] = entry.Text("DevRevDesc");
    form.txtMain[kDeviceHelpBox] = entry.Text("DevHelp");
    form.txtMain[kBlockHelpBox] = entry.Text("BlkHelp");
    form.cboDevRev = entry.Text("DevRev");
    form.cboDDRev = entry.Text("DDRev");
    form.cboHARTRev = entry.Text("ProtRev");
    for (const std::string& version : ParseVersionList(entry.Text("TAVVersions"), events)) {
        form.lstTAVVersionSupport.push_back({version, true});
    }
    return form;
}

std::vector<Finding> ChooseFromLists(const FileEntry& entry, const ReferenceLists& lists,
                                     std::int16_t schemaVersion, EntryForm& form) {
    std::vector<Finding> findings;
    ChooseByKeys(entry, lists.protocols, {"Protocol", "ProtID", "protocol", "unknown-protocol", false},
                 form.cboDeviceProtocol, findings);
    ChooseByKeys(entry, lists.majorCategories,
                 {"MajorCategory", "DevCatID", "major category", "unknown-category", true},
                 form.cboDeviceCategory, findings);
    ChooseByKeys(entry, lists.minorCategories,
                 {"MinorCategory", "DevMinCatID", "minor category", "unknown-category", true},
                 form.cboMinorCategory, findings);

    const ControlStateSet states = ControlStates(form, schemaVersion, true);
    if (states.cboDeviceCategory.selection) {
        const std::string why = "only a device of the protocol at position " +
                                std::to_string(kProtocolWithCategories) + " of the list has categories";
        for (const char* key : {"MajorCategory", "MinorCategory", "DevCatID", "DevMinCatID"}) {
            if (entry.Text(key) != "0") WarnDropped(entry, key, why, findings);
        }
    }
    ApplySelection(states.cboDeviceCategory, lists.majorCategories, form.cboDeviceCategory);
    ApplySelection(states.cboMinorCategory, lists.minorCategories, form.cboMinorCategory);
    if (states.revisionName.isEmptied) {
        WarnDropped(entry, "DevRevName", "a device of this protocol has no revision name", findings);
        form.txtMain[kRevisionNameBox].clear();
    }
    return findings;
}

}  // namespace ventlock
