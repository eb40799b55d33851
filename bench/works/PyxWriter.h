#pragma once

#include <memory>
#include <string>

#include "core/AppObjects.h"
#include "files/clsPyxConfig.h"
#include "platform/Host.h"
#include "platform/IEvents.h"

namespace ventlock::bench {

/// The program's own writer of "Pyx.ini" on the host's own files, set up as the programs do, with the entry
/// of PyxSample.
class PyxWriter {
 public:
    explicit PyxWriter(const std::string& path);

    /// Puts the entry into the file. @throws std::runtime_error
    void Write();

 private:
    std::unique_ptr<Host> host_ = CreateHost("ventlock");
    ProfileStore profiles_{host_->Files(), CodePage(1252)};
    NoEvents events_;
    AppObjects objects_;
    clsManufacturer manufacturer_{events_};
    clsDevice device_{events_};
    clsPyxConfig writer_{profiles_};
};

}  // namespace ventlock::bench
