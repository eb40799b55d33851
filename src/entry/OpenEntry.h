#pragma once

#include <cstdint>
#include <vector>

#include "entry/EntryFile.h"
#include "entry/EntryForm.h"
#include "entry/EntryToForm.h"
#include "platform/IEvents.h"

namespace ventlock {

/// An entry of a file on its way into the window's fields.
struct OpenedEntry {
    EntryForm form;
    std::vector<Finding> findings;  ///< with an error among them the form is not to be shown
};

/// What the fields show of an entry, which may be unfinished: a field that a target needs may be empty. The
/// form has no paths; its versions are neither empty nor doubled.
/// @param lists  of the database; they count for the current schema only
OpenedEntry OpenEntry(const FileEntry& entry, const ReferenceLists& lists, std::int16_t schemaVersion,
                      IEvents& events);

/// The findings in lines below one another, at most `most` of them, and how many there are more.
struct FindingLines {
    std::string text;
    std::size_t more = 0;
};
FindingLines LinesOf(const std::string& path, const std::vector<Finding>& findings, std::size_t most);

}  // namespace ventlock
