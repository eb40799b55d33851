#include "support/Starter.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <span>
#include <sstream>
#include <stdexcept>

namespace ventlock::bench {
namespace {

constexpr std::size_t kLongestRequest = 16384;

std::vector<std::string> Prefixed(const std::vector<std::string>& command) {
    const char* const prefix = std::getenv("VENTLOCK_BENCH_PREFIX");
    std::istringstream words(prefix == nullptr ? "" : prefix);
    std::vector<std::string> all;
    for (std::string word; words >> word;) all.push_back(word);
    all.insert(all.end(), command.begin(), command.end());
    return all;
}

double Seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

/// What a program is given: nothing to read, an output that leads nowhere, and a place in memory for its
/// errors.
class Streams {
 public:
    Streams() : errors_(memfd_create("errors", MFD_CLOEXEC)) {
        posix_spawn_file_actions_init(&actions_);
        posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_adddup2(&actions_, errors_, STDERR_FILENO);
    }
    ~Streams() {
        posix_spawn_file_actions_destroy(&actions_);
        close(errors_);
    }
    Streams(const Streams&) = delete;
    Streams& operator=(const Streams&) = delete;

    [[nodiscard]] const posix_spawn_file_actions_t* Get() const noexcept { return &actions_; }

    /// The last of the errors, as much as there is room for.
    void LastErrors(std::span<char> text) const {
        const off_t size = lseek(errors_, 0, SEEK_END);
        const auto room = static_cast<off_t>(text.size());
        const ssize_t count = pread(errors_, text.data(), text.size(), std::max<off_t>(0, size - room));
        std::fill(text.begin() + std::max<ssize_t>(0, count), text.end(), '\0');
    }

 private:
    posix_spawn_file_actions_t actions_{};
    int errors_;
};

/// What comes back for one command; `isDone` is false when it did not end with 0.
struct Report {
    Usage usage;
    bool isDone = false;
    std::array<char, 400> errors{};  ///< the last of what it said on standard error
};

/// Sends the process as soon as it has started, and its report at its end; 0 and nothing when there is none.
void RunOne(const std::vector<char*>& arguments, const std::vector<char*>& variables, int socket) {
    const Streams streams;
    Report report;
    const auto begin = std::chrono::steady_clock::now();
    pid_t process = 0;
    const bool isStarted =
        posix_spawnp(&process, arguments[0], streams.Get(), nullptr, arguments.data(), variables.data()) == 0;
    if (!isStarted) process = 0;
    if (write(socket, &process, sizeof process) != sizeof process) _exit(1);
    if (!isStarted) return;
    int status = 0;
    rusage taken{};
    pid_t ended = 0;
    do {
        ended = wait4(process, &status, 0, &taken);
    } while (ended < 0 && errno == EINTR);
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - begin;
    report.usage = {.seconds = passed.count(),
                    .userSeconds = Seconds(taken.ru_utime),
                    .systemSeconds = Seconds(taken.ru_stime),
                    .peakKiB = taken.ru_maxrss};
    report.isDone = ended == process && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    streams.LastErrors(report.errors);
    if (write(socket, &report, sizeof report) != sizeof report) _exit(1);
}

// A request is one message of texts ended by NUL: "a" and an argument, "v" and a variable.

std::string Packed(const std::vector<std::string>& arguments, const std::vector<std::string>& variables) {
    std::string message;
    for (const std::string& argument : arguments) message.append("a").append(argument).push_back('\0');
    for (const std::string& variable : variables) message.append("v").append(variable).push_back('\0');
    return message;
}

/// Answers one request after the other until the other end is closed.
[[noreturn]] void Serve(int socket) {
    static std::array<char, kLongestRequest> request;
    for (;;) {
        const ssize_t size = read(socket, request.data(), request.size());
        if (size <= 0) _exit(0);
        std::vector<char*> arguments;
        std::vector<char*> variables;
        for (char* at = request.data(); at < request.data() + size; at += std::strlen(at) + 1) {
            (*at == 'a' ? arguments : variables).push_back(at + 1);
        }
        arguments.push_back(nullptr);
        variables.push_back(nullptr);
        RunOne(arguments, variables, socket);
    }
}

}  // namespace

Starter::Starter() {
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0 || (process_ = fork()) < 0) {
        throw std::runtime_error("no process to start programs from");
    }
    if (process_ == 0) {
        close(ends[0]);
        Serve(ends[1]);
    }
    close(ends[1]);
    socket_ = ends[0];
}

Starter::~Starter() {
    close(socket_);
    waitpid(process_, nullptr, 0);
}

Usage Starter::Run(const std::vector<std::vector<std::string>>& commands,
                   const std::vector<std::string>& environment) const {
    Usage all;
    for (const auto& command : commands) {
        Start(command, environment);
        const Usage usage = Finish(command.front());
        all.seconds += usage.seconds;
        all.userSeconds += usage.userSeconds;
        all.systemSeconds += usage.systemSeconds;
        all.peakKiB = std::max(all.peakKiB, usage.peakKiB);
    }
    return all;
}

int Starter::Start(const std::vector<std::string>& command,
                   const std::vector<std::string>& environment) const {
    const std::string request = Packed(Prefixed(command), environment);
    pid_t process = 0;
    if (request.size() > kLongestRequest || write(socket_, request.data(), request.size()) < 0 ||
        read(socket_, &process, sizeof process) != sizeof process) {
        throw std::runtime_error(command.front() + " cannot be started");
    }
    if (process == 0) throw std::runtime_error(command.front() + " cannot be started");
    return process;
}

Usage Starter::Finish(const std::string& program) const {
    Report report;
    if (read(socket_, &report, sizeof report) != sizeof report)
        throw std::runtime_error("nothing is known of " + program);
    if (!report.isDone) {
        const std::string errors(report.errors.data(), strnlen(report.errors.data(), report.errors.size()));
        throw std::runtime_error(program + " failed: " + errors);
    }
    return report.usage;
}

bool Starter::EndsWithin(std::chrono::milliseconds patience) const {
    pollfd answer{socket_, POLLIN, 0};
    return poll(&answer, 1, static_cast<int>(patience.count())) == 1;
}

}  // namespace ventlock::bench
