#include "e2e/OrdinaryUser.h"

#include <unistd.h>

#include <filesystem>

namespace ventlock::test {

namespace fs = std::filesystem;

void BecomeOrdinaryUser(const std::string& world, const std::string& programFolder,
                        const std::vector<std::string>& own, ProgramCall& call) {
    constexpr auto kReadable = fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec |
                               fs::perms::others_read | fs::perms::others_exec;
    constexpr auto kWritten = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    fs::permissions(world, kReadable);
    for (const std::string& path : own) fs::permissions(path, fs::perms::all);
    fs::permissions(programFolder, kReadable & ~kWritten);
    if (geteuid() != 0) return;
    call.command.insert(call.command.begin(),
                        {"/usr/bin/setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"});
}

}  // namespace ventlock::test
