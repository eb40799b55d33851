#include "e2e/RunProgram.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

namespace ventlock::test {
namespace {

/// The two ends of a stream: the test reads `ours`, the program writes to `theirs`.
struct Stream {
    int ours = -1;
    int theirs = -1;
};

Stream Pipe() {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
    return {ends[0], ends[1]};
}

Stream Terminal() {
    Stream stream;
    winsize size{};
    size.ws_row = 24;
    size.ws_col = 80;
    EXPECT_EQ(openpty(&stream.ours, &stream.theirs, nullptr, nullptr, &size), 0);
    for (const int end : {stream.ours, stream.theirs}) EXPECT_EQ(fcntl(end, F_SETFD, FD_CLOEXEC), 0);
    return stream;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// Appends what can be read now; false at the stream's end. A terminal whose other end is closed gives EIO.
bool ReadSome(int stream, std::string& text) {
    std::array<char, 4096> buffer{};
    const ssize_t count = read(stream, buffer.data(), buffer.size());
    if (count < 0) return errno == EINTR;
    text.append(buffer.data(), static_cast<std::size_t>(count));
    return count > 0;
}

}  // namespace

struct RunningProgram::Handles {
    pid_t process = -1;
    int out = -1;
    int err = -1;
};

RunningProgram::RunningProgram(const ProgramCall& call) : handles_(std::make_unique<Handles>()) {
    const Stream out = Pipe();
    const Stream err = call.errorsGoToTerminal ? Terminal() : Pipe();
    handles_->out = out.ours;
    handles_->err = err.ours;

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, out.theirs, STDOUT_FILENO);
    if (call.answersGoToAFullDisk) {
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/full", O_WRONLY, 0);
    }
    posix_spawn_file_actions_adddup2(&actions, err.theirs, STDERR_FILENO);
    posix_spawn_file_actions_addchdir_np(&actions, call.folder.c_str());

    std::vector<std::string> command = call.command;
    std::vector<std::string> environment = call.environment;
    // Whoever started the tests may pass signals over; the program gets them as from a terminal.
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : {SIGINT, SIGHUP, SIGQUIT, SIGTERM}) sigaddset(&signals, number);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setsigdefault(&attributes, &signals);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);

    const int error = posix_spawn(&handles_->process, command.front().c_str(), &actions, &attributes,
                                  Pointers(command).data(), Pointers(environment).data());
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    close(out.theirs);
    close(err.theirs);
    if (error == 0) return;
    handles_->process = -1;
    ADD_FAILURE() << command.front() << " cannot be started: " << strerrordesc_np(error);
}

RunningProgram::~RunningProgram() {
    EXPECT_EQ(handles_->process, -1) << "a program was started and not waited for";
    close(handles_->out);
    close(handles_->err);
}

int RunningProgram::Process() const {
    return handles_->process;
}

ProgramResult RunningProgram::Wait() {
    ProgramResult result;
    std::array<pollfd, 2> streams{{{handles_->out, POLLIN, 0}, {handles_->err, POLLIN, 0}}};
    while (streams[0].fd >= 0 || streams[1].fd >= 0) {
        if (poll(streams.data(), streams.size(), -1) < 0 && errno != EINTR) break;
        if (streams[0].revents != 0 && !ReadSome(handles_->out, result.out)) streams[0].fd = -1;
        if (streams[1].revents != 0 && !ReadSome(handles_->err, result.err)) streams[1].fd = -1;
    }
    int status = 0;
    if (handles_->process > 0 && waitpid(handles_->process, &status, 0) == handles_->process &&
        WIFEXITED(status)) {
        result.exitCode = WEXITSTATUS(status);
    }
    handles_->process = -1;
    return result;
}

ProgramResult RunProgram(const ProgramCall& call) {
    return RunningProgram(call).Wait();
}

}  // namespace ventlock::test
