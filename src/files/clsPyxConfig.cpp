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
        const std::string key = DeviceKey(oManufacturer.ManID, oDevice.DevID, oDevice.DevRev);
        file.Write("Devices", key, DeviceDirectory(oManufacturer.ManID, oDevice.DevID));

        step = "02";
        const std::string prefix = ResourcePrefix(oManufacturer.ManID, oDevice.DevID);
        file.Write(key, "DeviceHelp", prefix + DeviceHelp);
        file.Write(key, "BlockHelp_001", prefix + BlockHelp);
        file.Write(key, "DeviceDLL", prefix + DeviceDLL);
        file.Write(key, "Description", oDevice.DevName);
        file.Write(key, "HART Protocol Rev", DecimalOfHex(oDevice.ProtRev));

        WriteBack(edit);  // its failure leaves the keys in place, untidied
        step = "01";
        edit.Save();
        return true;
    });
}

bool clsPyxConfig::WriteBack(ProfileEdit& edit) {
    return Guarded(oAppObjects_, "INIwb", false, [&](StepLabel& step) {
        step = "01";
        std::string room;
        profiles_.Files().Replace(edit.Path() + kBackupEnding, edit.File().Bytes(room));
        step = "03.1";
        edit.File().SeparateSections();
        return true;
    });
}

}  // namespace ventlock
