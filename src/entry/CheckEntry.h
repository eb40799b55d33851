#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "entry/EntryFile.h"
#include "entry/RequiredFields.h"
#include "platform/ProfileFile.h"

namespace ventlock {

/// What an entry is checked against. The files are the targets as they are now; nullptr leaves their
/// characters unchecked.
struct CheckContext {
    Targets targets;
    std::optional<std::int16_t> schemaVersion;  ///< of the database; nothing when it is not known
    const ProfileFile* ini = nullptr;
    const ProfileFile* ddInstall = nullptr;
    std::function<bool(const std::string& name)> hasResource;  ///< empty: resource files are not looked for
};

/// Every rule of an entry, all findings at once, in the order of lines.
std::vector<Finding> CheckEntry(const FileEntry& entry, const CheckContext& context);

/// True when one of the findings is an error.
bool HasErrors(const std::vector<Finding>& findings);

}  // namespace ventlock
