#include "core/OwnFiles.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"

namespace ventlock {

std::string OwnIniPath(IPaths& paths, IFiles& files) {
    const std::string name = paths.ExeName() + ".ini";
    if (!paths.ProgramFolderIsWritable()) {
        std::string users = paths.Join(paths.WindowsDirectory(), name);
        if (files.Exists(users)) return users;
    }
    return paths.Join(paths.ProgramFolder(), name);
}

std::string LogPath(IPaths& paths) {
    const std::string folder = paths.ProgramFolderIsWritable() ? paths.ProgramFolder() : paths.StateFolder();
    return paths.Join(folder, "Ventlock.log");
}

ProfileStore OpenProfileStore(IPaths& paths, IFiles& files) {
    const ProfileStore bySystem(files, CodePage::SystemDefault());
    const std::string named = bySystem.Read(OwnIniPath(paths, files), "Files", "CodePage", "", 0);
    if (named.empty()) return bySystem;
    const double number = NumericValue(named);
    if (!(number >= 1 && number <= 65535))
        throw RunTimeError(ErrorNumber::InvalidProcedureCall, "code page " + named);
    return {files, CodePage(static_cast<int>(number))};
}

}  // namespace ventlock
