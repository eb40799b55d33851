#include "unit/platform/posix/Children.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <exception>
#include <iostream>

#ifdef VENTLOCK_COVERAGE
extern "C" {
#include <gcov.h>
}
#endif

namespace ventlock::test {
namespace {

constexpr int kThrown = 255;
constexpr uid_t kNobody = 65534;

/// Ends the child without what its parent has prepared for an end.
[[noreturn]] void Leave(int code) {
#ifdef VENTLOCK_COVERAGE
    __gcov_dump();
#endif
    _exit(code);
}

int Run(const std::function<int()>& work) {
    try {
        return work();
    } catch (const std::exception& error) {
        std::cerr << "in the child: " << error.what() << std::endl;
        return kThrown;
    }
}

}  // namespace

Child::Child(const std::function<int()>& work) : process_(fork()) {
    if (process_ == 0) Leave(Run(work));
    EXPECT_GT(process_, 0) << "no process could be made";
}

Child::~Child() {
    if (!ended_) ExitCode();
}

int Child::ExitCode() {
    int status = 0;
    while (waitpid(process_, &status, 0) == -1 && errno == EINTR) {
    }
    ended_ = true;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void Child::Kill() const {
    kill(process_, SIGKILL);
}

int ExitCodeAsOrdinaryUser(const std::function<int()>& work) {
    return Child([&] {
               if (geteuid() == 0 &&
                   (setgroups(0, nullptr) != 0 || setgid(kNobody) != 0 || setuid(kNobody) != 0)) {
                   return kThrown;
               }
               return work();
           })
        .ExitCode();
}

Signal::Signal() : ends_{-1, -1} {
    EXPECT_EQ(pipe(ends_), 0);
}

Signal::~Signal() {
    close(ends_[0]);
    close(ends_[1]);
}

void Signal::Give() const {
    EXPECT_EQ(write(ends_[1], "x", 1), 1);
}

void Signal::Await() const {
    char received = 0;
    EXPECT_EQ(read(ends_[0], &received, 1), 1);
}

}  // namespace ventlock::test
