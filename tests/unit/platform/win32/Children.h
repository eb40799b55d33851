#pragma once

#include <optional>
#include <string>

#include "platform/win32/FileHandle.h"

namespace ventlock::test {

/// As long as this object lives, this test program does not run tests when it is started, but the task of
/// that name of Children.cpp in a folder. What is told below are the tasks.
class ChildTask {
 public:
    ChildTask(const std::string& task, const std::string& folder);
    ~ChildTask();
    ChildTask(const ChildTask&) = delete;
    ChildTask& operator=(const ChildTask&) = delete;
};

/// Holds the lock of "a.ini": gives the signal "held", awaits "release".
inline constexpr const char* kHoldLock = "hold lock";

/// Writes its command line into "report.txt": gives "started", awaits "end".
inline constexpr const char* kReport = "report";

/// Writes the keys 0 to 24, each "here", into the section of the task's name of "Pyx.ini".
inline constexpr const char* kWriteFirst = "first";
inline constexpr const char* kWriteSecond = "second";

/// Ends at once.
inline constexpr const char* kNothing = "nothing";

/// Runs the task that this program was started for, if any; its exit code.
std::optional<int> RunTask();

/// The path of this test program.
std::string ThisProgram();

/// A process of its own that does a task. The destructor waits for it.
class Child {
 public:
    Child(const std::string& task, const std::string& folder);
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    /// Waits for its end.
    int ExitCode() const;

    /// Ends it at once, as a crash would.
    void Kill() const;

 private:
    FileHandle process_;
};

/// A way to wait for another process's or thread's effect: one side gives the signal, the other waits for it.
/// Both know it by the folder of the test and its name.
class Signal {
 public:
    Signal(const std::string& folder, const std::string& name);
    void Give() const;
    void Await() const;

 private:
    FileHandle event_;
};

}  // namespace ventlock::test
