#include "files/clsDDInstall.h"

#include "base/Numbers.h"
#include "base/Utf.h"
#include "files/DDInstallNames.h"
#include "files/EntryNames.h"
#include "files/ProfileComparison.h"
#include "platform/Casing.h"

namespace ventlock {

using namespace ddinstall;

namespace {

// Widths of the reading buffers, one more than the characters that can be read, and of what is compared. A
// count of 1000 or more is therefore read as its first three digits, and an identifier longer than its width
// is never found.
constexpr std::size_t kCountBuffer = 4;
constexpr std::size_t kManufacturerBuffer = 7;
constexpr std::size_t kDeviceTypeBuffer = 5;
constexpr std::size_t kRevisionBuffer = 5;
constexpr std::size_t kManufacturerWidth = 6;
constexpr std::size_t kDeviceTypeWidth = 4;
constexpr std::size_t kRevisionWidth = 2;

/// Compares the first `width` characters of a stored text.
bool SameStart(std::string_view stored, std::size_t width, std::string_view wanted) {
    std::size_t end = 0;
    for (std::size_t i = 0; i < width && end < stored.size(); ++i) NextCharacter(stored, end);
    return EqualIgnoringCase(stored.substr(0, end), wanted);
}

/// A section that is not there once.
void TellCount(const std::string& place, const std::string& item, std::size_t count,
               std::vector<Difference>& differences) {
    if (count == 0) differences.push_back({Difference::Kind::Missing, place, {}, item, {}});
    if (count > 1)
        differences.push_back({Difference::Kind::Repeated, place, item, "1", std::to_string(count)});
}

void CompareSection(const ProfileFile& file, const std::string& section,
                    const std::vector<std::pair<std::string_view, std::string>>& values,
                    std::vector<Difference>& differences) {
    std::vector<ProfileKey> keys;
    keys.reserve(values.size());
    for (const auto& [name, value] : values) keys.push_back({section, std::string(name), value});
    for (Difference& difference : CompareKeys(file, keys)) differences.push_back(std::move(difference));
}

}  // namespace

bool clsDDInstall::Init(const AppObjects& oAppObjects, const std::optional<std::int16_t>& vOperation) {
    oAppObjects_ = &oAppObjects;
    return vOperation == std::int16_t{2};
}

bool clsDDInstall::WriteDDInstall(clsManufacturer& oManufacturer, clsDevice& oDevice) {
    return Guarded(oAppObjects_, "DDwddi", false, [&](StepLabel& step) {
        oManufacturer_ = &oManufacturer;
        oDevice_ = &oDevice;
        step = "01";
        ProfileEdit edit = BeginEdit(step);
        ProfileFile& file = edit.File();
        RequireWritableEntry(file);
        if (edit.Existed()) {
            profiles_.Files().Copy(IniPath, IniPath + kBackupEnding);
            step = "01.1";
            bool isNew = false;
            const std::int16_t manufacturer = CheckManufacturer(file, isNew);
            if (manufacturer == -1) return false;
            step = "01.2";
            WriteManufacturer(file, manufacturer, isNew);
            step = "01.3";
            isNew = false;
            // A failed check gives -1, and the entry is then written under that number.
            const std::int16_t device = CheckDevice(file, manufacturer, isNew);
            WriteDevice(file, device, isNew, manufacturer);
        } else {
            step = "01.4";
            WriteHeader(file);
            WriteManufacturer(file, 1, true);
            WriteDevice(file, 1, true, 1);
        }
        step = "02";
        WriteBack(file);
        edit.Save();
        return true;
    });
}

/// A missing folder is an error of storing the file: nothing can be there to be checked or copied first.
ProfileEdit clsDDInstall::BeginEdit(StepLabel& step) const {
    try {
        return {profiles_, IniPath};
    } catch (const RunTimeError& error) {
        if (error.Number() == ErrorNumber::PathNotFound) step = "02";
        throw;
    }
}

/// Checked for the whole entry before anything is written: the section writers' own errors would not stop the
/// write.
void clsDDInstall::RequireWritableEntry(const ProfileFile& file) const {
    file.RequireWritable(PaddedManufacturer(oManufacturer_->ManID));
    file.RequireWritable(oManufacturer_->Name);
    file.RequireWritableSection(DeviceSection(1));
    for (const auto& [key, value] : DeviceKeys()) file.RequireWritable(value);
}

std::string clsDDInstall::DeviceSection(std::int16_t device) const {
    return ddinstall::DeviceSection(PaddedManufacturer(oDevice_->ManID), device);
}

/// What every write sets; id and number of devices are a new manufacturer's.
clsDDInstall::KeyValues clsDDInstall::ManufacturerKeys() const {
    return {{kManufacturerName, oManufacturer_->Name}};
}

clsDDInstall::KeyValues clsDDInstall::DeviceKeys() const {
    const std::string revision = PaddedRevision(oDevice_->DevRev);
    const std::string files = std::string(kFileBegin) + revision + PaddedRevision(oDevice_->DDRev);
    return {
        {kType, PaddedDeviceType(oDevice_->DevID)},
        {kTypeName, oDevice_->DevName},
        {"DevTypeRevDesc", "Rev " + DecimalOfHex(oDevice_->DevRev)},
        {kRevision, revision},
        {kDDRevision, std::string(kDDRevisionBegin) + DecimalOfHex(oDevice_->DDRev)},
        {"PYX", files + ".pyx"},
        {"SYM", files + ".sym"},
        {"MAP", files + ".map"},
        {kDeviceHelp, DeviceHelp},
        {kBlockHelp, BlockHelp},
        {"OtherHelp", ""},
        {kDll, std::string(kFileBegin) + DeviceDLL},
        {"OtherDLL", ""},
        {kTemplate, std::string(kFileBegin) + Template},
        {kProtocolRevision, DecimalOfHex(oDevice_->ProtRev)},
        {kVersions, TAVVersionSupport},
    };
}

void clsDDInstall::WriteHeader(ProfileFile& file) {
    Guarded(oAppObjects_, "DDwddih", [&](StepLabel&) {
        WriteKey(file, "Version", "DD Version", std::to_string(DDVersion));
        WriteKey(file, kGeneral, kManufacturers, "0");
    });
}

void clsDDInstall::WriteManufacturer(ProfileFile& file, std::int16_t manufacturer, bool isNew) {
    Guarded(oAppObjects_, "DDwddim", [&](StepLabel& step) {
        step = "01";
        if (isNew) RaiseCount(file, kGeneral, kManufacturers);
        step = "02";
        const std::string section = ManufacturerSection(manufacturer);
        if (isNew) {
            WriteKey(file, section, kManufacturerId, PaddedManufacturer(oManufacturer_->ManID));
            WriteKey(file, section, kDevices, "0");
        }
        for (const auto& [key, value] : ManufacturerKeys()) WriteKey(file, section, key, value);
    });
}

void clsDDInstall::WriteDevice(ProfileFile& file, std::int16_t device, bool isNew,
                               std::int16_t manufacturer) {
    Guarded(oAppObjects_, "DDwddis", [&](StepLabel& step) {
        step = "01";
        if (isNew) RaiseCount(file, ManufacturerSection(manufacturer), kDevices);
        step = "02";
        for (const auto& [key, value] : DeviceKeys()) WriteKey(file, DeviceSection(device), key, value);
    });
}

std::int16_t clsDDInstall::CheckManufacturer(const ProfileFile& file, bool& isNew) {
    return Guarded(oAppObjects_, "DDcm", std::int16_t{-1}, [&](StepLabel& step) {
        step = "01";
        const std::int16_t count = ReadCount(file, kGeneral, kManufacturers);
        step = "03";
        const std::string wanted = PaddedManufacturer(oManufacturer_->ManID);
        for (std::int16_t i = 1; i <= count; ++i) {
            if (HoldsManufacturer(file, i, wanted)) return i;
        }
        step = "04";
        isNew = true;
        return ToInteger(count + 1.0);
    });
}

std::int16_t clsDDInstall::CheckDevice(const ProfileFile& file, std::int16_t manufacturer, bool& isNew) {
    return Guarded(oAppObjects_, "DDcd", std::int16_t{-1}, [&](StepLabel& step) {
        step = "01";
        const std::int16_t count = ReadCount(file, ManufacturerSection(manufacturer), kDevices);
        step = "03";
        const std::string wantedType = PaddedDeviceType(oDevice_->DevID);
        const std::string wantedRevision = PaddedRevision(oDevice_->DevRev);
        for (std::int16_t k = 1; k <= count; ++k) {
            if (HoldsDevice(file, k, wantedType, wantedRevision)) return k;
        }
        step = "04";
        isNew = true;
        return ToInteger(count + 1.0);
    });
}

bool clsDDInstall::HoldsManufacturer(const ProfileFile& file, std::int16_t manufacturer,
                                     std::string_view id) {
    const std::string found =
        ReadKey(file, ManufacturerSection(manufacturer), kManufacturerId, "000000", kManufacturerBuffer);
    return SameStart(found, kManufacturerWidth, id);
}

bool clsDDInstall::HoldsDevice(const ProfileFile& file, std::int16_t device, std::string_view type,
                               std::string_view revision) {
    const std::string section = DeviceSection(device);
    const std::string foundType = ReadKey(file, section, kType, "0000", kDeviceTypeBuffer);
    if (!SameStart(foundType, kDeviceTypeWidth, type)) return false;
    const std::string foundRevision = ReadKey(file, section, kRevision, "00", kRevisionBuffer);
    return SameStart(foundRevision, kRevisionWidth, revision);
}

std::vector<Difference> clsDDInstall::Compare(const ProfileFile& file, clsManufacturer& oManufacturer,
                                              clsDevice& oDevice) {
    oManufacturer_ = &oManufacturer;
    oDevice_ = &oDevice;
    const std::string id = PaddedManufacturer(oManufacturer.ManID);
    std::vector<std::int16_t> found;
    const std::int16_t count = ReadCount(file, kGeneral, kManufacturers);
    for (std::int16_t i = 1; i <= count; ++i) {
        if (HoldsManufacturer(file, i, id)) found.push_back(i);
    }
    std::vector<Difference> differences;
    TellCount("[Mfg*]", "ID=" + id, found.size(), differences);
    if (!found.empty()) CompareSection(file, ManufacturerSection(found[0]), ManufacturerKeys(), differences);
    CompareDevices(file, found.empty() ? 0 : found[0], differences);
    return differences;
}

/// @param manufacturer  0: there is none, and no device of it
void clsDDInstall::CompareDevices(const ProfileFile& file, std::int16_t manufacturer,
                                  std::vector<Difference>& differences) {
    const std::string type = PaddedDeviceType(oDevice_->DevID);
    const std::string revision = PaddedRevision(oDevice_->DevRev);
    std::vector<std::int16_t> found;
    const std::int16_t count =
        manufacturer == 0 ? std::int16_t{0} : ReadCount(file, ManufacturerSection(manufacturer), kDevices);
    for (std::int16_t k = 1; k <= count; ++k) {
        if (HoldsDevice(file, k, type, revision)) found.push_back(k);
    }
    const std::string place = "[" + PaddedManufacturer(oDevice_->ManID) + ".*]";
    TellCount(place, "DevType=" + type + ", DevTypeRev=" + revision, found.size(), differences);
    if (!found.empty()) CompareSection(file, DeviceSection(found[0]), DeviceKeys(), differences);
}

void clsDDInstall::WriteBack(ProfileFile& file) {
    Guarded(oAppObjects_, "DDwb", [&](StepLabel& step) {
        step = "03.1";
        file.SeparateSections();
    });
}

std::int16_t clsDDInstall::ReadCount(const ProfileFile& file, std::string_view section,
                                     std::string_view key) {
    return ToInteger(NumericValue(ReadKey(file, section, key, "0", kCountBuffer)));
}

void clsDDInstall::RaiseCount(ProfileFile& file, std::string_view section, std::string_view key) {
    WriteKey(file, section, key, DecimalText(ReadCount(file, section, key) + 1.0));
}

std::string clsDDInstall::ReadKey(const ProfileFile& file, std::string_view section, std::string_view key,
                                  std::string_view fallback, std::size_t bufferSize) {
    return file.Read(section, key, bufferSize).value_or(std::string(fallback));
}

void clsDDInstall::WriteKey(ProfileFile& file, std::string_view section, std::string_view key,
                            std::string_view value) {
    file.Write(section, key, value);
}

}  // namespace ventlock
