#pragma once

#include <string>

#include "platform/IFiles.h"
#include "platform/IPaths.h"
#include "platform/ProfileEdit.h"

namespace ventlock {

/// Path of the program's own INI file: beside the program, named after it. When the program's folder cannot
/// be written, a file of that name in the user's configuration folder is taken instead, when there is one.
std::string OwnIniPath(IPaths& paths, IFiles& files);

/// Path at which a user changes or makes the own INI file: as OwnIniPath, but in the user's configuration
/// folder whether or not it is there, when the program's folder cannot be written.
std::string OwnIniPathToChange(IPaths& paths);

/// Path of the error log: "Ventlock.log" beside the program, or in the user's state folder when the program's
/// folder cannot be written.
std::string LogPath(IPaths& paths);

/// Profile files in the code page that "CodePage" in section "Files" of the own INI file names, else in the
/// host's.
/// @throws RunTimeError 5 when the host does not know the page that is named.
ProfileStore OpenProfileStore(IPaths& paths, IFiles& files);

}  // namespace ventlock
