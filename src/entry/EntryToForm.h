#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/ItemList.h"
#include "entry/EntryFile.h"
#include "entry/EntryForm.h"
#include "platform/IEvents.h"

namespace ventlock {

/// The reference lists of the connected database, in its order.
struct ReferenceLists {
    ItemList protocols;
    ItemList majorCategories;
    ItemList minorCategories;
};

/// Paths of the two target files.
struct TargetPaths {
    std::string ini;
    std::string ddInstall;
};

/// The form that shows an entry of a file when nothing is connected: protocol and categories are not chosen.
/// The entry's versions are all offered and all selected.
EntryForm ToForm(const FileEntry& entry, const TargetPaths& paths, IEvents& events);

/// Chooses protocol and categories in `form` by the lists of a database of the current schema, then applies
/// what the rules of the controls force, as the window would. A category named by a text that no list holds
/// stays a typed text, which the gathering creates.
/// @return errors for a protocol or an id that the database does not know; warnings for what the rules drop.
std::vector<Finding> ChooseFromLists(const FileEntry& entry, const ReferenceLists& lists,
                                     std::int16_t schemaVersion, EntryForm& form);

}  // namespace ventlock
