#pragma once

#include <string>
#include <string_view>

#include "platform/IFiles.h"
#include "platform/IPaths.h"
#include "platform/IProcess.h"
#include "platform/IRegistry.h"

namespace ventlock {

/// What the user is told when StartSysInfo gives False.
inline constexpr std::string_view kSystemInformationUnavailable =
    "System Information Is Unavailable At This Time";

/// Reads a registry value as text: a string without its last NUL, if it ends in one. A number comes by its
/// bytes' hexadecimal digits, of which a byte below 16 gives only one and the highest byte none when it is 0,
/// so that 513 gives "33". A value of another type leaves `value` as it is.
/// @param path  of the key, below `root`
/// @return False when there is no such value or it has more than 1024 bytes; `value` is "" then
bool GetKeyValue(IRegistry& registry, RegistryRoot root, std::string_view path, std::string_view name,
                 std::string& value);

/// Starts the viewer of system information that the registry names, without waiting for it: the program in
/// "PATH" of "SOFTWARE\Microsoft\Shared Tools\MSINFO", or, without that value, MSINFO32.EXE in the folder in
/// "MSINFO" of "SOFTWARE\Microsoft\Shared Tools Location".
/// @return False when neither is there or the program does not start
bool StartSysInfo(IRegistry& registry, IFiles& files, IProcess& processes, IPaths& paths);

}  // namespace ventlock
