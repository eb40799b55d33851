#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <optional>
#include <string>

namespace ventlock::test {

/// Sets (or with nothing: removes) an environment variable for as long as this object lives.
class EnvironmentVariable {
 public:
    EnvironmentVariable(std::string name, const std::optional<std::string>& value);
    ~EnvironmentVariable();
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

 private:
    void Set(const std::optional<std::string>& value) const;

    std::string name_;
    std::optional<std::string> before_;
};

/// Another file mode mask for as long as this object lives.
class FileModeMask {
 public:
    explicit FileModeMask(mode_t mask) : before_(umask(mask)) {}
    ~FileModeMask() { umask(before_); }
    FileModeMask(const FileModeMask&) = delete;
    FileModeMask& operator=(const FileModeMask&) = delete;

 private:
    mode_t before_;
};

/// Permission bits of a file or folder, -1 when it is missing.
int ModeOf(const std::string& path);

/// What the system tells about a file, links followed; fails the test when it is missing.
struct stat FactsOf(const std::string& path);

/// Files that this process has open now.
int OpenFileCount();

}  // namespace ventlock::test
