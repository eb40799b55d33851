#pragma once

#include "db/clsDevice.h"
#include "db/clsManufacturer.h"
#include "fuzz/MemoryFiles.h"
#include "platform/CodePage.h"
#include "platform/IEvents.h"
#include "platform/ProfileEdit.h"

namespace ventlock::test {

/// A writer of device entries over files in memory, and the records of an entry.
template <class Writer>
struct WriterWorld {
    MemoryFiles files;
    ProfileStore profiles{files, CodePage(1252)};
    NoEvents events;
    clsManufacturer manufacturer{events};
    clsDevice device{events};
    Writer writer{profiles};
};

}  // namespace ventlock::test
