#include "entry/EntryRecords.h"

#include <utility>

namespace ventlock {

clsTavDB& EntryRecords::TavDB() {
    if (!tavDB_) tavDB_ = std::make_unique<clsTavDB>(events_);
    return *tavDB_;
}

clsDDInstall& EntryRecords::DDInstall() {
    if (!ddInstall_) ddInstall_ = std::make_unique<clsDDInstall>(profiles_);
    return *ddInstall_;
}

clsPyxConfig& EntryRecords::PyxConfig() {
    if (!pyxConfig_) pyxConfig_ = std::make_unique<clsPyxConfig>(profiles_);
    return *pyxConfig_;
}

void EntryRecords::ReplaceTavDB() {
    tavDB_ = std::make_unique<clsTavDB>(events_);
}

}  // namespace ventlock
