#pragma once

#include <string>

#include "platform/IFiles.h"

namespace ventlock {

/// What a write to a file would meet.
enum class TargetState {
    Writable,        ///< the file is there and takes a write; also said of a blank path, which names none
    WillBeMade,      ///< there is no such file yet
    ReadOnly,        ///< the file is there and takes no write
    FolderMissing,   ///< the file's folder is not there
    FolderReadOnly,  ///< no file can be made in the file's folder
    Unusable,        ///< the path names no file that could be written: a folder, a device, a bad name
};

/// Looks at a file without changing anything. Never throws.
TargetState StateOfTarget(IFiles& files, const std::string& path);

}  // namespace ventlock
