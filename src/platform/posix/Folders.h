#pragma once

#include <string>

namespace ventlock {

/// Makes a folder and those above it where missing, open to the user alone. @throws RunTimeError
void MakeFolders(const std::string& path);

/// The user's home folder: $HOME, else what the system's user list says; "/" when nothing does.
std::string HomeFolder();

/// The folder "ventlock" below a base folder of the user: the environment variable `variable` when it holds
/// an absolute path, else `fallback` below the home folder.
std::string UserFolder(const char* variable, const std::string& fallback);

/// Where the program keeps what the user set: $XDG_CONFIG_HOME/ventlock or ~/.config/ventlock.
std::string ConfigurationFolder();

}  // namespace ventlock
