#include "core/OwnFiles.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"

namespace ventlock {

namespace {

std::string OwnIniName(IPaths& paths) {
    return paths.ExeName() + ".ini";
}

}  // namespace

std::string OwnIniPath(IPaths& paths, IFiles& files) {
    std::string changed = OwnIniPathToChange(paths);
    if (paths.ProgramFolderIsWritable() || files.Exists(changed)) return changed;
    return paths.Join(paths.ProgramFolder(), OwnIniName(paths));
}

std::string OwnIniPathToChange(IPaths& paths) {
    const std::string folder =
        paths.ProgramFolderIsWritable() ? paths.ProgramFolder() : paths.WindowsDirectory();
    return paths.Join(folder, OwnIniName(paths));
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
