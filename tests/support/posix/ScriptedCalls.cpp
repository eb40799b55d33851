#include "support/posix/ScriptedCalls.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <optional>

namespace ventlock::test {
namespace {

ScriptedCalls* current = nullptr;

const FileCalls& Real() {
    return SystemFileCalls();
}

template <class Call>
auto Scripted(const char* name, Call call) -> decltype(call()) {
    return current->Pass(name) ? call() : -1;
}

template <class Call>
auto Interruptible(const char* name, Call call) -> decltype(call()) {
    if (current->Interrupts()) return -1;
    return Scripted(name, call);
}

int OpenDescriptors() {
    int count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) ++count;
    return count;
}

}  // namespace

ScriptedCalls::ScriptedCalls() : openBefore_(OpenDescriptors()) {
    EXPECT_EQ(current, nullptr) << "one script at a time";
    current = this;
}

ScriptedCalls::~ScriptedCalls() {
    current = nullptr;
}

int ScriptedCalls::OpenFiles() const {
    return OpenDescriptors() - openBefore_;
}

bool ScriptedCalls::Pass(const std::string& name) {
    const std::optional<int> failure = Failure(name);
    if (failure) errno = *failure;
    return !failure;
}

bool ScriptedCalls::Interrupts() {
    interrupted_ = Stutters() && !interrupted_;
    if (interrupted_) errno = EINTR;
    return interrupted_;
}

FileCalls ScriptedCalls::Calls() {
    FileCalls calls{};
    calls.open = [](const char* path, int flags, mode_t mode) {
        current->NoteOpen(path, flags);
        return Interruptible("open", [&] { return Real().open(path, flags, mode); });
    };
    calls.close = [](int descriptor) {
        const int closed = Real().close(descriptor);
        return Scripted("close", [&] { return closed; });
    };
    calls.read = [](int descriptor, void* buffer, std::size_t size) {
        return Interruptible("read", [&] { return Real().read(descriptor, buffer, size); });
    };
    calls.write = [](int descriptor, const void* buffer, std::size_t size) {
        return Interruptible("write", [&] {
            const ssize_t written = Real().write(descriptor, buffer, current->Room(size));
            if (written > 0) current->Take(static_cast<std::size_t>(written));
            return written;
        });
    };
    calls.fsync = [](int descriptor) {
        return Interruptible("fsync", [&] { return current->Flushes() ? Real().fsync(descriptor) : 0; });
    };
    calls.fstat = [](int descriptor, struct stat* facts) {
        return Scripted("fstat", [&] { return Real().fstat(descriptor, facts); });
    };
    calls.lstat = [](const char* path, struct stat* facts) {
        return Scripted("lstat", [&] { return Real().lstat(path, facts); });
    };
    calls.stat = [](const char* path, struct stat* facts) {
        return Scripted("stat", [&] { return Real().stat(path, facts); });
    };
    calls.readlink = [](const char* path, char* buffer, std::size_t size) {
        return Scripted("readlink", [&] { return Real().readlink(path, buffer, size); });
    };
    calls.access = [](const char* path, int mode) {
        return Scripted("access", [&] { return Real().access(path, mode); });
    };
    calls.fchmod = [](int descriptor, mode_t mode) {
        return Scripted("fchmod", [&] { return Real().fchmod(descriptor, mode); });
    };
    calls.fchown = [](int descriptor, uid_t user, gid_t group) {
        return Scripted("fchown", [&] { return Real().fchown(descriptor, user, group); });
    };
    calls.rename = [](const char* from, const char* to) {
        return Scripted("rename", [&] { return Real().rename(from, to); });
    };
    calls.unlink = [](const char* path) { return Scripted("unlink", [&] { return Real().unlink(path); }); };
    calls.flock = [](int descriptor, int operation) {
        return Interruptible("flock", [&] { return Real().flock(descriptor, operation); });
    };
    calls.list = [](const char* folder, std::vector<std::string>& names) {
        return Scripted("list", [&] { return Real().list(folder, names); });
    };
    return calls;
}

}  // namespace ventlock::test
