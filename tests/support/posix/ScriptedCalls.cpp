#include "support/posix/ScriptedCalls.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <utility>

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

}  // namespace

ScriptedCalls::ScriptedCalls() {
    EXPECT_EQ(current, nullptr) << "one script at a time";
    current = this;
}

ScriptedCalls::~ScriptedCalls() {
    current = nullptr;
}

void ScriptedCalls::FailAt(std::size_t index, int error) {
    failIndex_ = index;
    error_ = error;
}

void ScriptedCalls::FailFirst(const std::string& name, int error) {
    failName_ = name;
    error_ = error;
}

void ScriptedCalls::BeforeFirst(const std::string& name, std::function<void()> action) {
    actionName_ = name;
    action_ = std::move(action);
}

bool ScriptedCalls::Pass(const std::string& name) {
    made_.push_back(name);
    if (made_.size() - 1 == failIndex_ || name == failName_) {
        failName_.clear();
        errno = error_;
        return false;
    }
    if (action_ && name == actionName_) std::exchange(action_, nullptr)();
    return true;
}

bool ScriptedCalls::Interrupts() {
    interrupted_ = stutters_ && !interrupted_;
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
        const std::size_t most = current->Stutters() ? 1 : size;
        return Interruptible("write", [&] { return Real().write(descriptor, buffer, std::min(size, most)); });
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
