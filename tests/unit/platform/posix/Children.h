#pragma once

#include <sys/types.h>

#include <functional>

namespace ventlock::test {

/// A process of its own that runs `work` and ends with what it returns (0 to 100) as its exit code, with 255
/// when `work` throws. The destructor waits for it.
class Child {
 public:
    explicit Child(const std::function<int()>& work);
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    /// Waits for its end; -1 when a signal ended it.
    int ExitCode();

    /// Ends it at once, as a crash would.
    void Kill() const;

 private:
    pid_t process_;
    bool ended_ = false;
};

/// The exit code of `work` run in a child without the superuser's rights, whoever runs the tests.
int ExitCodeAsOrdinaryUser(const std::function<int()>& work);

/// A way to wait for a child's effect: one side signals, the other waits. Make it before the child.
class Signal {
 public:
    Signal();
    ~Signal();
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;

    void Give() const;
    void Await() const;

 private:
    int ends_[2];
};

}  // namespace ventlock::test
