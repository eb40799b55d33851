#include "support/ServerProcess.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <system_error>

namespace ventlock::test {
namespace {

struct Started {
    pid_t process = -1;
    int output = -1;
};

// Starts a command whose output comes through a pipe.
Started Start(const std::vector<std::string>& command) {
    std::array<int, 2> ends{-1, -1};
    EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDERR_FILENO);
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    Started started{-1, ends[0]};
    EXPECT_EQ(posix_spawnp(&started.process, arguments[0], &actions, nullptr, arguments.data(), environ), 0)
        << command[0] << " cannot be started";
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    return started;
}

// What the pipe holds now, at least a byte; "" at its end.
std::string ReadSome(int output) {
    std::array<char, 4096> bytes{};
    const ssize_t count = read(output, bytes.data(), bytes.size());
    return count > 0 ? std::string(bytes.data(), static_cast<std::size_t>(count)) : std::string();
}

constexpr std::uintmax_t kRoomForServer = std::uintmax_t{1} << 30;

}  // namespace

std::string ServerFolders() {
    std::error_code missing;
    const std::filesystem::space_info memory = std::filesystem::space("/dev/shm", missing);
    if (!missing && memory.available >= kRoomForServer) return "/dev/shm";
    return std::filesystem::temp_directory_path().string();
}

std::vector<std::string> ServerAccount::Running(const std::vector<std::string>& command) const {
    std::vector<std::string> whole{"setpriv", "--pdeathsig=KILL"};
    if (geteuid() == 0) whole.insert(whole.end(), {"--reuid=" + name_, "--regid=" + name_, "--clear-groups"});
    whole.emplace_back("--");
    whole.insert(whole.end(), command.begin(), command.end());
    return whole;
}

void ServerAccount::MakeFolder(const std::string& path) const {
    std::filesystem::create_directory(path);
    if (geteuid() != 0) return;
    const passwd* const account = getpwnam(name_.c_str());
    ASSERT_NE(account, nullptr) << "there is no account " << name_;
    EXPECT_EQ(chown(path.c_str(), account->pw_uid, account->pw_gid), 0);
}

void RunToEnd(const std::vector<std::string>& command) {
    const Started started = Start(command);
    std::string written;
    for (std::string some = ReadSome(started.output); !some.empty(); some = ReadSome(started.output))
        written += some;
    close(started.output);
    int status = -1;
    EXPECT_EQ(waitpid(started.process, &status, 0), started.process);
    EXPECT_EQ(status, 0) << written;
}

ServerProcess::ServerProcess(const std::vector<std::string>& command, const std::string& ready) {
    const Started started = Start(command);
    process_ = started.process;
    output_ = started.output;
    std::string written;
    while (written.find(ready) == std::string::npos) {
        const std::string some = ReadSome(output_);
        if (some.empty()) {
            ADD_FAILURE() << command[0] << " ended: " << written;
            break;
        }
        written += some;
    }
    drain_ = std::thread([output = output_] {
        while (!ReadSome(output).empty()) {
        }
    });
}

ServerProcess::~ServerProcess() {
    if (process_ != -1) End(SIGTERM);
}

void ServerProcess::Send(int signal) const {
    EXPECT_EQ(kill(process_, signal), 0);
}

void ServerProcess::End(int signal) {
    Send(signal);
    int status = -1;
    waitpid(process_, &status, 0);
    process_ = -1;
    drain_.join();
    close(output_);
}

}  // namespace ventlock::test
