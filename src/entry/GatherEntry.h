#pragma once

#include <cstdint>

#include "core/AppObjects.h"
#include "db/clsTavDB.h"
#include "entry/EntryForm.h"
#include "files/clsDDInstall.h"
#include "files/clsPyxConfig.h"

namespace ventlock {

/// Copies what the controls hold into the records of the facade and into both file writers: texts trimmed but
/// for the two paths, file names completed by their extensions, categories resolved, which may create a
/// category row. With a schema below 5 the protocol, the categories and the descriptions of the records stay
/// as they are. The form is not changed. Nobody examines the result: False after an error, which is logged.
bool GatherEntry(const EntryForm& form, std::int16_t schemaVersion, const AppObjects* oAppObjects,
                 clsTavDB& tavDB, clsDDInstall& ddInstall, clsPyxConfig& pyxConfig);

}  // namespace ventlock
