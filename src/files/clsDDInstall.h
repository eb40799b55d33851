#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/DeviceTexts.h"
#include "base/Difference.h"
#include "core/AppObjects.h"
#include "core/Guarded.h"
#include "db/clsDevice.h"
#include "db/clsManufacturer.h"
#include "platform/ProfileEdit.h"

namespace ventlock {

/// Writer of the DD install file "Ddinstal.ini", which numbers its manufacturers and, within each, its
/// devices.
class clsDDInstall {
 public:
    /// `profiles` must outlive the writer.
    explicit clsDDInstall(const ProfileStore& profiles) : profiles_(profiles) {}
    clsDDInstall(const clsDDInstall&) = delete;
    clsDDInstall& operator=(const clsDDInstall&) = delete;
    virtual ~clsDDInstall() = default;

    /// Keeps the shared objects and nothing else; runs before every write. True for operation 2.
    bool Init(const AppObjects& oAppObjects, const std::optional<std::int16_t>& vOperation = {});

    /// Finds or adds the manufacturer and the device revision and writes their sections; an existing file is
    /// first copied to ".bak", the file is replaced once. False, and the file as it was, when it cannot be
    /// copied, read or stored or when a text cannot stand in it; the reason is logged. Keeps both records by
    /// reference.
    bool WriteDDInstall(clsManufacturer& oManufacturer, clsDevice& oDevice);

    /// In what the file differs from what WriteDDInstall would leave in it: the manufacturer and the device
    /// are found as there. Changes nothing. Keeps both records by reference.
    std::vector<Difference> Compare(const ProfileFile& file, clsManufacturer& oManufacturer,
                                    clsDevice& oDevice);

    /// Every device that the file holds, as far as its numbers of manufacturers and devices reach, in its
    /// order. A key that is missing, or a number that is none, is left out.
    std::vector<DeviceTexts> Devices(const ProfileFile& file);

    std::string IniPath;     ///< path of the file, as typed
    std::string DeviceDLL;   ///< file name of the resource DLL
    std::string Template;    ///< file name of the template
    std::string DeviceHelp;  ///< file names of the help files, may be empty
    std::string BlockHelp;
    std::string TAVVersionSupport;  ///< supported versions, joined by ", "
    std::int16_t DDVersion = 0;     ///< version of the file's form, written when it is created

 protected:
    /// The two accesses to the file under edit; replaced where a failure between them is wanted.
    virtual std::string ReadKey(const ProfileFile& file, std::string_view section, std::string_view key,
                                std::string_view fallback, std::size_t bufferSize);
    virtual void WriteKey(ProfileFile& file, std::string_view section, std::string_view key,
                          std::string_view value);

 private:
    using KeyValues = std::vector<std::pair<std::string_view, std::string>>;

    [[nodiscard]] ProfileEdit BeginEdit(StepLabel& step) const;
    void RequireWritableEntry(const ProfileFile& file) const;
    [[nodiscard]] KeyValues ManufacturerKeys() const;
    [[nodiscard]] KeyValues DeviceKeys() const;
    [[nodiscard]] std::string DeviceSection(std::int16_t device) const;
    void WriteHeader(ProfileFile& file);
    void WriteManufacturer(ProfileFile& file, std::int16_t manufacturer, bool isNew);
    void WriteDevice(ProfileFile& file, std::int16_t device, bool isNew, std::int16_t manufacturer);
    std::int16_t CheckManufacturer(const ProfileFile& file, bool& isNew);
    std::int16_t CheckDevice(const ProfileFile& file, std::int16_t manufacturer, bool& isNew);
    bool HoldsManufacturer(const ProfileFile& file, std::int16_t manufacturer, std::string_view id);
    bool HoldsDevice(const ProfileFile& file, std::int16_t device, std::string_view type,
                     std::string_view revision);
    void CompareDevices(const ProfileFile& file, std::int16_t manufacturer,
                        std::vector<Difference>& differences);
    void WriteBack(ProfileFile& file);
    std::int16_t ReadCount(const ProfileFile& file, std::string_view section, std::string_view key);
    void RaiseCount(ProfileFile& file, std::string_view section, std::string_view key);

    const ProfileStore& profiles_;
    const AppObjects* oAppObjects_ = nullptr;
    clsManufacturer* oManufacturer_ = nullptr;
    clsDevice* oDevice_ = nullptr;
};

}  // namespace ventlock
