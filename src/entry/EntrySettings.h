#pragma once

#include <string>

#include "core/AppObjects.h"
#include "entry/EntryRecords.h"
#include "platform/IWindowPlace.h"

namespace ventlock {

/// Reads the settings afresh and copies them into the records, the window's place, the language of look-ups
/// and the list of versions that may be offered. False after an error, which is logged: what comes behind it
/// in the order of the copy keeps what it held.
bool SettingsToEntry(const AppObjects& oAppObjects, EntryRecords& records, IWindowPlace& place,
                     std::string& offeredVersions);

/// Copies the records and the window's place into the settings and stores them. The offered versions, the
/// language and the version of the DD install file's form are maintained elsewhere and never stored back.
/// False after an error, which is logged; nothing is stored then.
bool EntryToSettings(const AppObjects& oAppObjects, EntryRecords& records, const IWindowPlace& place);

}  // namespace ventlock
