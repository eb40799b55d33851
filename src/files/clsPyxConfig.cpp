#include "files/clsPyxConfig.h"

#include "files/EntryNames.h"

namespace ventlock {

bool clsPyxConfig::Init(const AppObjects& oAppObjects, const std::optional<std::int16_t>& vOperation) {
    oAppObjects_ = &oAppObjects;
    return vOperation == std::int16_t{2};
}

bool clsPyxConfig::Insert(clsManufacturer& oManufacturer, clsDevice& oDevice) {
    return Guarded(oAppObjects_, "INIins", false, [&](StepLabel& step) {
        step = "01";
        profiles_.Files().RequireReplaceable(IniPath);
        ProfileEdit edit(profiles_, IniPath);
        ProfileFile& file = edit.File();
        for (const ProfileKey& key : Keys(oManufacturer, oDevice)) {
            file.Write(key.section, key.name, key.value);
            step = "02";  // the first key is the device's line, its section follows
        }

        WriteBack(edit);  // its failure leaves the keys in place, untidied
        step = "01";
        edit.Save();
        return true;
    });
}

std::vector<ProfileKey> clsPyxConfig::Keys(const clsManufacturer& oManufacturer,
                                           const clsDevice& oDevice) const {
    const std::string key = DeviceKey(oManufacturer.ManID, oDevice.DevID, oDevice.DevRev);
    const std::string prefix = ResourcePrefix(oManufacturer.ManID, oDevice.DevID);
    return {
        {"Devices", key, DeviceDirectory(oManufacturer.ManID, oDevice.DevID)},
        {key, "DeviceHelp", prefix + DeviceHelp},
        {key, "BlockHelp_001", prefix + BlockHelp},
        {key, "DeviceDLL", prefix + DeviceDLL},
        {key, "Description", oDevice.DevName},
        {key, "HART Protocol Rev", DecimalOfHex(oDevice.ProtRev)},
    };
}

std::vector<Difference> clsPyxConfig::Compare(const ProfileFile& file, const clsManufacturer& oManufacturer,
                                              const clsDevice& oDevice) const {
    return CompareKeys(file, Keys(oManufacturer, oDevice));
}

void clsPyxConfig::WriteBack(ProfileEdit& edit) {
    Guarded(oAppObjects_, "INIwb", [&](StepLabel& step) {
        step = "01";
        std::string room;
        profiles_.Files().Replace(edit.Path() + kBackupEnding, edit.File().Bytes(room));
        step = "03.1";
        edit.File().SeparateSections();
    });
}

}  // namespace ventlock
