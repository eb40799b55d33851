#include "platform/posix/PosixProcess.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>
#include <thread>

namespace ventlock {
namespace {

constexpr int kFirstOwnDescriptor = 3;

/// How a program starts: nothing of this program's signal handling or open files goes with it.
class StartConditions {
 public:
    StartConditions() {
        posix_spawn_file_actions_init(&files_);
        posix_spawn_file_actions_addclosefrom_np(&files_, kFirstOwnDescriptor);
        posix_spawnattr_init(&attributes_);
        sigset_t signals;
        sigfillset(&signals);
        posix_spawnattr_setsigdefault(&attributes_, &signals);
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&attributes_, &signals);
        posix_spawnattr_setflags(&attributes_,
                                 POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSID);
    }
    ~StartConditions() {
        posix_spawnattr_destroy(&attributes_);
        posix_spawn_file_actions_destroy(&files_);
    }
    StartConditions(const StartConditions&) = delete;
    StartConditions& operator=(const StartConditions&) = delete;

    bool Spawn(const std::string& path, pid_t& child) const {
        std::string name = path;
        const std::array<char*, 2> arguments{name.data(), nullptr};
        return posix_spawn(&child, path.c_str(), &files_, &attributes_, arguments.data(), environ) == 0;
    }

 private:
    posix_spawn_file_actions_t files_{};
    posix_spawnattr_t attributes_{};
};

void WaitFor(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) == -1 && errno == EINTR) {
    }
}

}  // namespace

bool PosixProcess::Start(const std::string& path) {
    if (path.find('\0') != std::string::npos) return false;
    pid_t child = 0;
    if (!StartConditions().Spawn(path, child)) return false;
    try {
        std::thread(WaitFor, child).detach();
    } catch (const std::system_error&) {
        return true;  // the program runs all the same; what is left of it goes when this one ends
    }
    return true;
}

}  // namespace ventlock
