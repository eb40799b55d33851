#include "platform/posix/Folders.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>

#include "platform/posix/FileErrors.h"
#include "platform/posix/FileTarget.h"

namespace ventlock {
namespace {

constexpr mode_t kPrivateMode = 0700;

std::string AbsoluteVariable(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr && value[0] == '/' ? value : "";
}

std::string WithoutLastSlashes(std::string path) {
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    return path;
}

}  // namespace

void MakeFolders(const std::string& path) {
    if (mkdir(path.c_str(), kPrivateMode) == 0) return;
    if (errno == ENOENT && FolderOf(path) != path) {
        MakeFolders(FolderOf(path));
        if (mkdir(path.c_str(), kPrivateMode) == 0) return;
    }
    const int reason = errno;
    struct stat facts {};
    if (stat(path.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode)) return;
    throw FileError(ErrorNumber::PathFileAccessError, path, reason);
}

std::string HomeFolder() {
    const std::string home = AbsoluteVariable("HOME");
    if (!home.empty()) return WithoutLastSlashes(home);
    std::array<char, 16384> buffer{};
    passwd entry{};
    passwd* found = nullptr;
    const int status = getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &found);
    return status == 0 && found != nullptr && found->pw_dir[0] == '/' ? WithoutLastSlashes(found->pw_dir)
                                                                      : "/";
}

std::string UserFolder(const char* variable, const std::string& fallback) {
    const std::string base = AbsoluteVariable(variable);
    const std::string folder = base.empty() ? HomeFolder() + "/" + fallback : WithoutLastSlashes(base);
    return folder + "/ventlock";
}

std::string ConfigurationFolder() {
    return UserFolder("XDG_CONFIG_HOME", ".config");
}

}  // namespace ventlock
