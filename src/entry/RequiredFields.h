#pragma once

#include <span>
#include <string_view>

#include "entry/EntryForm.h"

namespace ventlock {

/// The three places an entry is written to.
struct Targets {
    bool database = false;
    bool ini = false;        ///< "Pyx.ini"
    bool ddInstall = false;  ///< "Ddinstal.ini"

    [[nodiscard]] bool Any() const { return database || ini || ddInstall; }
    bool operator==(const Targets&) const = default;
};

/// A field that some targets cannot do without.
struct RequiredField {
    std::string_view key;  ///< its name in the settings and in entry files
    Targets neededBy;
    bool (*isEmpty)(const EntryForm& form);  ///< surrounding blanks do not count
};

/// All of them, in the order they are tested. A field that is not among them never blocks a write.
std::span<const RequiredField> RequiredFields();

/// The targets whose fields are all filled.
Targets WritableTargets(const EntryForm& form);

}  // namespace ventlock
