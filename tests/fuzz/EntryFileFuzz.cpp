// An entry file of any bytes: what is read from it, stored again, reads the same, and what the check lets
// pass can be written.

#include <algorithm>
#include <set>
#include <string>

#include "base/Utf.h"
#include "db/SchemaVersion.h"
#include "entry/CheckEntry.h"
#include "entry/EntryFile.h"
#include "entry/EntryToForm.h"
#include "entry/GatherEntry.h"
#include "entry/SameDevice.h"
#include "fuzz/Fields.h"
#include "fuzz/MemoryFiles.h"
#include "fuzz/PlainProfile.h"
#include "fuzz/Require.h"
#include "platform/IEvents.h"

namespace ventlock::test {
namespace {

constexpr std::size_t kMostEntries = 8;  // that are checked and written

const std::set<std::string> kIds{
    "not-text",         "no-section", "duplicate-section", "unknown-key", "duplicate-key", "syntax",
    "hex-digits",       "decimal-id", "required",          "too-long",    "apostrophe",    "question-mark",
    "ambiguous",        "code-page",  "too-large",         "too-wide",    "empty-version", "unknown-protocol",
    "unknown-category", "not-used",   "missing-file",      "odd-version", "same-device",   "folder-in-name",
};

void RequireFindingsInOrder(const std::vector<Finding>& findings, int lineCount) {
    int line = 0;
    for (const Finding& finding : findings) {
        Require(kIds.contains(finding.id), "an id is one of those that are documented", finding.id);
        Require(!finding.text.empty() && IsUtf8(finding.text), "a finding has a text", finding.text);
        Require(finding.line >= line && finding.line <= lineCount, "findings come in the order of lines",
                std::to_string(finding.line));
        line = finding.line;
    }
}

std::string Shown(const EntryFile& file) {
    std::string shown;
    for (const FileEntry& entry : file.entries) {
        shown += "[" + entry.name + "]\n";
        for (const auto& [key, value] : entry.values) shown += key + "=\"" + value.text + "\"\n";
    }
    return shown;
}

void RequireReadsBack(const EntryFile& file) {
    const std::string stored = Shown(file);
    const EntryFile again = ParseEntryFile(stored);
    RequireSame(Shown(again), stored, "what is read and stored reads back");
    const bool hasTwins = std::any_of(file.findings.begin(), file.findings.end(), [](const Finding& finding) {
        return finding.id == "duplicate-section";
    });
    Require(again.findings.empty() || hasTwins || file.entries.empty(), "what is stored is in order", stored);
}

/// The same text in each encoding that an entry file may have is the same file.
void RequireSameInEveryEncoding(const std::string& bytes, const EntryFile& file) {
    if (!IsUtf8(bytes) || bytes.starts_with(kUtf8Mark)) return;
    for (const std::string& other :
         {std::string(kUtf8Mark) + bytes, std::string(kUtf16Mark) + ToUtf16Bytes(bytes)}) {
        const EntryFile same = ParseEntryFile(other);
        RequireSame(Shown(same), Shown(file), "a file reads the same in every encoding");
        Require(same.findings == file.findings, "a file has the same findings in every encoding", bytes);
    }
}

ReferenceLists SomeLists() {
    ReferenceLists lists;
    lists.protocols.Add({{"HART", 1}, {"Fieldbus", 2}, {"Conventional", 3}});
    lists.majorCategories.Add({{"HART", 32767}, {"Fieldbus", 32768}, {"Conventional", 32769}});
    lists.minorCategories.Add({{"HART", -1}, {"Fieldbus", -2}, {"Conventional", -3}});
    return lists;
}

void RequireChoicesInLists(const FileEntry& entry, const ReferenceLists& lists, int lineCount) {
    NoEvents events;
    for (const std::int16_t schema : {kOldSchema, kCurrentSchema}) {
        EntryForm form = ToForm(entry, {"Pyx.ini", "Ddinstal.ini"}, events);
        for (const Finding& finding : ChooseFromLists(entry, lists, schema, form)) {
            Require(kIds.contains(finding.id) && finding.line <= lineCount, "a finding is documented",
                    finding.id);
        }
        for (const ListChoice* choice :
             {&form.cboDeviceProtocol, &form.cboDeviceCategory, &form.cboMinorCategory}) {
            Require(choice->index >= -1 && choice->index < 3, "a choice is an item of its list",
                    choice->text);
        }
    }
}

/// Both files that an entry without an error is written to take it.
void RequireWritten(const FileEntry& entry) {
    NoEvents events;
    MemoryFiles files;
    const ProfileStore profiles(files, CodePage(1252));
    const ProfileFile empty("", profiles.Page());
    const CheckContext context{{false, true, true}, kOldSchema, &empty, &empty, {}};
    if (HasErrors(CheckEntry(entry, context))) return;

    clsTavDB tavDB(events);
    clsDDInstall ddInstall(profiles);
    clsPyxConfig pyxConfig(profiles);
    const EntryForm form = ToForm(entry, {"Pyx.ini", "Ddinstal.ini"}, events);
    Require(GatherEntry(form, kOldSchema, nullptr, tavDB, ddInstall, pyxConfig), "an entry is gathered",
            entry.name);
    Require(pyxConfig.Insert(tavDB.Manufacturer(), tavDB.Device()), "a checked entry is written to Pyx.ini",
            entry.name);
    Require(ddInstall.WriteDDInstall(tavDB.Manufacturer(), tavDB.Device()),
            "a checked entry is written to Ddinstal.ini", entry.name);
}

void TryFile(const std::string& bytes) {
    const EntryFile file = ParseEntryFile(bytes);
    const int lineCount = static_cast<int>(bytes.size()) + 1;
    RequireFindingsInOrder(file.findings, lineCount);
    RequireReadsBack(file);
    RequireSameInEveryEncoding(bytes, file);

    const ReferenceLists lists = SomeLists();
    const ProfileFile empty("", CodePage(1252));
    SameDevices sameDevices;
    for (std::size_t i = 0; i < std::min(file.entries.size(), kMostEntries); ++i) {
        const FileEntry& entry = file.entries[i];
        if (const auto same = sameDevices.Take("entry.ini", entry))
            RequireFindingsInOrder({*same}, lineCount);
        for (const std::int16_t schema : {kOldSchema, kCurrentSchema}) {
            const CheckContext context{
                {true, true, true}, schema, &empty, &empty, [](const std::string&) { return false; }};
            RequireFindingsInOrder(CheckEntry(entry, context), lineCount);
        }
        RequireChoicesInLists(entry, lists, lineCount);
        RequireWritten(entry);
    }
}

}  // namespace
}  // namespace ventlock::test

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ventlock::test::TryFile(std::string(ventlock::test::Fields(data, size).Rest()));
    return 0;
}
