#pragma once

#include <string>
#include <string_view>

#include "platform/IPaths.h"

namespace ventlock {

/// Folders by the rules of the freedesktop base directories: the "Windows directory" is the program's folder
/// of the user's configuration. The environment is read at every call; relative values in it are ignored.
class PosixPaths final : public IPaths {
 public:
    /// @param exeName      what ExeName reports, so that every program of the family shares one INI file
    /// @param programLink  the link that leads to the running program
    explicit PosixPaths(std::string exeName, std::string programLink = "/proc/self/exe");

    /// @throws RunTimeError 53 when the system does not tell.
    std::string ProgramFolder() override;
    std::string ExeName() override;
    std::string WindowsDirectory() override;

    /// @throws RunTimeError 76 when the working folder has been removed.
    std::string WorkingFolder() override;

    /// $XDG_STATE_HOME/ventlock or ~/.local/state/ventlock. It is made when missing, because it is asked for
    /// in order to write there; when that fails the writing will say so.
    std::string StateFolder() override;

    /// False in /usr as well, other than in /usr/local: not even an administrator's log belongs there.
    bool ProgramFolderIsWritable() override;
    std::string Join(std::string_view folder, std::string_view name) override;
    bool IsAbsolute(std::string_view path) override;
    bool IgnoreCase() override { return false; }

 private:
    std::string exeName_;
    std::string programLink_;
};

}  // namespace ventlock
