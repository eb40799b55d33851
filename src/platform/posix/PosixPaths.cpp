#include "platform/posix/PosixPaths.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#include "base/RunTimeError.h"
#include "platform/posix/FileErrors.h"
#include "platform/posix/FileTarget.h"
#include "platform/posix/Folders.h"

namespace ventlock {
namespace {

/// What lies there is put there by packages and taken away by them; whatever else were in it would stay.
bool IsOfPackages(const std::string& folder) {
    return folder.starts_with("/usr/") && !folder.starts_with("/usr/local/");
}

}  // namespace

PosixPaths::PosixPaths(std::string exeName, std::string programLink)
    : exeName_(std::move(exeName)), programLink_(std::move(programLink)) {}

std::string PosixPaths::ProgramFolder() {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink(programLink_, error);
    if (error) throw FileError(programLink_, error.value());
    return FolderOf(program.string());
}

std::string PosixPaths::ExeName() {
    return exeName_;
}

std::string PosixPaths::WindowsDirectory() {
    return ConfigurationFolder();
}

std::string PosixPaths::WorkingFolder() {
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::current_path(error);
    if (error) throw FileError(ErrorNumber::PathNotFound, ".", error.value());
    return folder.string();
}

std::string PosixPaths::StateFolder() {
    std::string folder = UserFolder("XDG_STATE_HOME", ".local/state");
    try {
        MakeFolders(folder);
    } catch (const RunTimeError&) {
        return folder;  // whoever writes there meets the same reason and reports it
    }
    return folder;
}

bool PosixPaths::ProgramFolderIsWritable() {
    const std::string folder = ProgramFolder();
    return !IsOfPackages(folder) && faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

std::string PosixPaths::Join(std::string_view folder, std::string_view name) {
    std::string path(folder);
    if (!path.empty() && path.back() != '/') path += '/';
    path += name;
    return path;
}

bool PosixPaths::IsAbsolute(std::string_view path) {
    return path.starts_with('/') || IsDrivePath(path);
}

}  // namespace ventlock
