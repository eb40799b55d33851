#pragma once

#include <memory>

#include "db/clsTavDB.h"
#include "files/clsDDInstall.h"
#include "files/clsPyxConfig.h"
#include "platform/IEvents.h"
#include "platform/ProfileEdit.h"

namespace ventlock {

/// The objects that hold a device entry between its controls and its targets: the database facade with its
/// two records, and both file writers. Each is made on first use and kept.
class EntryRecords {
 public:
    /// `events` runs during long reads; both must outlive this object.
    EntryRecords(IEvents& events, const ProfileStore& profiles) : events_(events), profiles_(profiles) {}

    clsTavDB& TavDB();
    clsDDInstall& DDInstall();
    clsPyxConfig& PyxConfig();

    /// The facade as it is, nullptr before its first use; ConnectDatabase makes one where there is none.
    std::unique_ptr<clsTavDB>& Facade() noexcept { return tavDB_; }

    /// Puts a fresh facade in place of the present one: what its records held and had found is gone. Not for
    /// a moment when the present one is at work.
    void ReplaceTavDB();

 private:
    IEvents& events_;
    const ProfileStore& profiles_;
    std::unique_ptr<clsTavDB> tavDB_;
    std::unique_ptr<clsDDInstall> ddInstall_;
    std::unique_ptr<clsPyxConfig> pyxConfig_;
};

}  // namespace ventlock
