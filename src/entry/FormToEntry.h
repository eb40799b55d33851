#pragma once

#include <cstdint>

#include "db/clsDevice.h"
#include "db/clsManufacturer.h"
#include "entry/EntryFile.h"
#include "entry/EntryForm.h"

namespace ventlock {

/// Protocol, categories, descriptions and the revision's name as the records hold them: what a form that is
/// not of the current schema does not show.
FileEntry UnshownOf(const clsManufacturer& manufacturer, const clsDevice& device);

/// Puts the same of an entry into the records, which keep it for the settings. A protocol or category that
/// is named by text is not known there: it becomes 0.
void KeepUnshown(const FileEntry& entry, clsManufacturer& manufacturer, clsDevice& device);

/// The entry of a form, for EntryText: ToForm and ChooseFromLists give the form back. Protocol and categories
/// are told by id; a category that no list holds by its text. The name is made of the ids.
/// @param unshown  gives what a form that is not of the current schema does not show, and the protocol when
///                 none is chosen
FileEntry ToFileEntry(const EntryForm& form, std::int16_t schemaVersion, const FileEntry& unshown);

}  // namespace ventlock
