#pragma once

#include <string>
#include <string_view>

namespace ventlock {

/// The folders the program lives by. UTF-8, no separator at the end (but for a root folder).
class IPaths {
 public:
    virtual ~IPaths() = default;

    /// The folder of the running program, links resolved.
    virtual std::string ProgramFolder() = 0;

    /// The name that the program's own INI file takes: the window program's file name without extension.
    virtual std::string ExeName() = 0;

    /// Where a "Pyx.ini" is looked for when nothing names one: the Windows folder, elsewhere the folder
    /// "ventlock" of the user's configuration.
    virtual std::string WindowsDirectory() = 0;

    virtual std::string WorkingFolder() = 0;

    /// Where the log goes when the program's folder cannot be written: the user's state folder.
    virtual std::string StateFolder() = 0;

    /// True when files can be made in the program's folder, and it is not one of the system's own.
    virtual bool ProgramFolderIsWritable() = 0;

    /// Folder and file name with one separator of the host between them.
    virtual std::string Join(std::string_view folder, std::string_view name) = 0;

    /// True for a path that does not depend on the working folder. A drive-letter path counts as absolute
    /// everywhere.
    virtual bool IsAbsolute(std::string_view path) = 0;

    /// True where paths that differ in letter case alone lead to the same file.
    virtual bool IgnoreCase() = 0;
};

}  // namespace ventlock
