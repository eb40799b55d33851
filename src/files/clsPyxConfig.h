#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/Difference.h"
#include "core/AppObjects.h"
#include "core/Guarded.h"
#include "db/clsDevice.h"
#include "db/clsManufacturer.h"
#include "files/ProfileComparison.h"
#include "platform/ProfileEdit.h"

namespace ventlock {

/// Writer of the device configuration file "Pyx.ini".
class clsPyxConfig {
 public:
    /// `profiles` must outlive the writer.
    explicit clsPyxConfig(const ProfileStore& profiles) : profiles_(profiles) {}

    /// Keeps the shared objects and nothing else; runs before every write. True for operation 2.
    bool Init(const AppObjects& oAppObjects, const std::optional<std::int16_t>& vOperation = {});

    /// Writes the device revision's line and section, keeps the file so far as ".bak", separates the sections
    /// by blank lines and replaces the file once. True when the keys are in the file: a backup or a tidy pass
    /// that fails is logged and leaves the file untidied. False, and the file as it was, when it cannot be
    /// read or stored or when a text cannot stand in it; the reason is logged.
    bool Insert(clsManufacturer& oManufacturer, clsDevice& oDevice);

    /// In what the file differs from what Insert would leave in it. Changes nothing.
    [[nodiscard]] std::vector<Difference> Compare(const ProfileFile& file,
                                                  const clsManufacturer& oManufacturer,
                                                  const clsDevice& oDevice) const;

    std::string IniPath;     ///< path of the file, as typed
    std::string DeviceDLL;   ///< file name of the resource DLL
    std::string DeviceHelp;  ///< file names of the help files, may be empty
    std::string BlockHelp;

 private:
    [[nodiscard]] std::vector<ProfileKey> Keys(const clsManufacturer& oManufacturer,
                                               const clsDevice& oDevice) const;
    void WriteBack(ProfileEdit& edit);

    const ProfileStore& profiles_;
    const AppObjects* oAppObjects_ = nullptr;
};

}  // namespace ventlock
