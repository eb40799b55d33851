#pragma once

#include <string>
#include <string_view>

#include "platform/IPaths.h"

namespace ventlock {

/// The system's folders. Paths take "/" as well as "\" and come with "\".
class Win32Paths final : public IPaths {
 public:
    /// @param exeName  what ExeName reports, so that every program of the family shares one INI file
    explicit Win32Paths(std::string exeName);

    /// Begins with "\\?\" only where the path is too long for an ordinary one. Where the system does not tell
    /// what a link leads to, the folder is the one that the program was started from.
    std::string ProgramFolder() override;
    std::string ExeName() override;
    std::string WindowsDirectory() override;
    std::string WorkingFolder() override;

    /// "Ventlock" in the user's folder for data of this machine. It is made when missing, because it is asked
    /// for in order to write there; when that fails the writing will say so.
    /// @throws RunTimeError 76 when the system names no such folder.
    std::string StateFolder() override;

    /// Tried with a file that goes at once, because neither access lists nor attributes tell for sure.
    bool ProgramFolderIsWritable() override;

    /// A drive stands for its root folder: "C:" and "a" give "C:\a".
    std::string Join(std::string_view folder, std::string_view name) override;

    /// "C:\a", "\\server\share" and "\a". "C:a" is counted from the working folder of its drive.
    bool IsAbsolute(std::string_view path) override;
    bool IgnoreCase() override { return true; }

 private:
    std::string exeName_;
};

}  // namespace ventlock
