#include "entry/CheckEntry.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/Numbers.h"
#include "base/Text.h"
#include "db/SchemaVersion.h"
#include "entry/EntryToForm.h"
#include "entry/FieldLimits.h"
#include "entry/ResourceNames.h"
#include "entry/VersionList.h"
#include "platform/IEvents.h"

namespace ventlock {
namespace {

constexpr std::array<std::string_view, 5> kIniTexts = {"DevName", "DLLName", "DevHelp", "BlkHelp", "ManID"};
constexpr std::array<std::string_view, 7> kDDInstallTexts = {
    "ManName", "DevName", "DLLName", "TemplateName", "DevHelp", "BlkHelp", "TAVVersions"};

struct ResourceField {
    std::string_view key;
    std::string (*fileName)(std::string_view field);
};

constexpr auto kResourceFields = std::to_array<ResourceField>({{"DLLName", DllName},
                                                               {"TemplateName", TemplateName},
                                                               {"DevHelp", HelpFileName},
                                                               {"BlkHelp", HelpFileName}});

std::string Quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

std::string TargetNames(const Targets& targets) {
    std::vector<std::string_view> wanted;
    if (targets.database) wanted.emplace_back("the database");
    if (targets.ini) wanted.emplace_back("Pyx.ini");
    if (targets.ddInstall) wanted.emplace_back("Ddinstal.ini");
    std::string names;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        if (i > 0) names += i + 1 < wanted.size() ? ", " : " and ";
        names += wanted[i];
    }
    return names;
}

class Checker {
 public:
    Checker(const FileEntry& entry, const CheckContext& context) : entry_(entry), context_(context) {}

    std::vector<Finding> Run() {
        CheckDigits();
        CheckRequired();
        if (context_.targets.database) CheckStatementTexts();
        CheckChoices();
        CheckVersions();
        if (context_.targets.ini) CheckCharacters(context_.ini, kIniTexts, "Pyx.ini");
        if (context_.targets.ddInstall) CheckCharacters(context_.ddInstall, kDDInstallTexts, "Ddinstal.ini");
        CheckResources();
        std::stable_sort(findings_.begin(), findings_.end(),
                         [](const Finding& a, const Finding& b) { return a.line < b.line; });
        return std::move(findings_);
    }

 private:
    [[nodiscard]] std::string Text(std::string_view key) const { return std::string(Trim(entry_.Text(key))); }

    void Add(Severity severity, std::string_view key, std::string id, const std::string& text) {
        findings_.push_back({entry_.Line(key), severity, std::move(id), std::string(key) + " " + text});
    }

    void CheckDigits() {
        for (const limits::HexField& field : limits::kHexFields) {
            const std::string text = Text(field.key);
            if (text.find_first_not_of("0123456789ABCDEFabcdef") != std::string::npos) {
                Add(Severity::Error, field.key, "hex-digits",
                    Quoted(text) + " is no hexadecimal number; use the digits 0 to 9 and A to F only");
            } else if (text.size() > kMostIdDigits) {
                Add(Severity::Error, field.key, "too-large",
                    Quoted(text) + " has more than " + std::to_string(kMostIdDigits) +
                        " digits; no target keeps such a number");
            } else if (field.width != 0 && text.size() > field.width && context_.targets.ddInstall) {
                Add(Severity::Warning, field.key, "too-wide",
                    Quoted(text) + " has more than " + std::to_string(field.width) +
                        " digits; Ddinstal.ini never finds it again and gains a section with every write");
            }
        }
        for (const std::string_view key : limits::kIdFields) {
            const std::string text = Text(key);
            if (text.empty() || text.find_first_not_of("0123456789") != std::string::npos) {
                Add(Severity::Error, key, "decimal-id", Quoted(text) + " is no id; use decimal digits only");
            }
        }
    }

    void CheckRequired() {
        NoEvents events;
        const EntryForm form = ToForm(entry_, {}, events);
        for (const RequiredField& field : RequiredFields()) {
            const Targets missing{field.neededBy.database && context_.targets.database,
                                  field.neededBy.ini && context_.targets.ini,
                                  field.neededBy.ddInstall && context_.targets.ddInstall};
            if (!missing.Any() || !field.isEmpty(form)) continue;
            Add(Severity::Error, field.key, "required",
                "is empty; " + TargetNames(missing) + " cannot do without it");
        }
    }

    void CheckStatementTexts() {
        const bool isOld = context_.schemaVersion == kOldSchema;
        for (const limits::StatementField& field : limits::kStatementFields) {
            if (isOld && !field.isInOldSchema) continue;
            const std::string text = Text(field.key);
            if (CharacterCount(text) > field.limit) {
                Add(Severity::Error, field.key, "too-long",
                    "has " + std::to_string(CharacterCount(text)) + " characters; the database takes " +
                        std::to_string(field.limit));
            }
            // The old schema's rows are bound, so both signs are safe there.
            if (isOld) continue;
            if (text.find('\'') != std::string::npos) {
                Add(Severity::Error, field.key, "apostrophe",
                    "holds an apostrophe, which ends the text within the statement; write it without");
            }
            if (text.find('?') != std::string::npos) {
                Add(Severity::Error, field.key, "question-mark",
                    "holds a question mark, which the next value of the statement would take; write it "
                    "without");
            }
        }
    }

    void CheckChoices() {
        constexpr std::array<std::array<std::string_view, 2>, 3> kPairs = {
            {{"Protocol", "ProtID"}, {"MajorCategory", "DevCatID"}, {"MinorCategory", "DevMinCatID"}}};
        for (const auto& [name, id] : kPairs) {
            if (!Text(name).empty() && entry_.Has(id)) {
                Add(Severity::Error, name, "ambiguous",
                    "and " + std::string(id) + " are both given; keep one");
            }
        }
    }

    void CheckVersions() {
        NoEvents events;
        const EntryForm form = ToForm(entry_, {}, events);
        const bool hasEmpty = std::any_of(form.lstTAVVersionSupport.begin(), form.lstTAVVersionSupport.end(),
                                          [](const OfferedVersion& version) { return version.text.empty(); });
        if (hasEmpty) {
            Add(Severity::Warning, "TAVVersions", "empty-version",
                Quoted(Text("TAVVersions")) + " holds an empty version between two separators");
        }
        for (const OfferedVersion& version : form.lstTAVVersionSupport) {
            if (version.text.empty() || IsVersion(version.text)) continue;
            Add(Severity::Warning, "TAVVersions", "odd-version",
                Quoted(version.text) +
                    " is no version such as 5.0; commas and blanks separate one version from the next");
        }
    }

    template <std::size_t count>
    void CheckCharacters(const ProfileFile* file, const std::array<std::string_view, count>& keys,
                         const std::string& target) {
        if (file == nullptr) return;
        for (const std::string_view key : keys) {
            const std::string text = Text(key);
            if (const auto why = file->WhyUnwritable(text)) {
                Add(Severity::Error, key, "code-page",
                    "cannot be written to " + target + ": " + Quoted(text) + " " + *why +
                        "; write it without, or store that file as UTF-16LE with a mark");
            }
        }
    }

    void CheckResources() {
        for (const ResourceField& field : kResourceFields) {
            const std::string text = Text(field.key);
            if (text.empty()) continue;
            if (text.find_first_of("/\\") != std::string::npos) {
                Add(Severity::Warning, field.key, "folder-in-name",
                    Quoted(text) + " names a folder; only the name of a file is expected");
                continue;  // one slip, one finding: it need not be looked for
            }
            const std::string name = field.fileName(text);
            if (!context_.hasResource || context_.hasResource(name)) continue;
            Add(Severity::Warning, field.key, "missing-file", Quoted(name) + " is not beside the entry file");
        }
    }

    const FileEntry& entry_;
    const CheckContext& context_;
    std::vector<Finding> findings_;
};

}  // namespace

std::vector<Finding> CheckEntry(const FileEntry& entry, const CheckContext& context) {
    return Checker(entry, context).Run();
}

bool HasErrors(const std::vector<Finding>& findings) {
    return std::any_of(findings.begin(), findings.end(),
                       [](const Finding& finding) { return finding.severity == Severity::Error; });
}

}  // namespace ventlock
