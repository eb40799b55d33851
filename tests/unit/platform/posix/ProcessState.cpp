#include "unit/platform/posix/ProcessState.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <utility>

namespace ventlock::test {
namespace fs = std::filesystem;

EnvironmentVariable::EnvironmentVariable(std::string name, const std::optional<std::string>& value)
    : name_(std::move(name)) {
    if (const char* const before = std::getenv(name_.c_str())) before_ = before;
    Set(value);
}

EnvironmentVariable::~EnvironmentVariable() {
    Set(before_);
}

void EnvironmentVariable::Set(const std::optional<std::string>& value) const {
    EXPECT_EQ(value ? setenv(name_.c_str(), value->c_str(), 1) : unsetenv(name_.c_str()), 0);
}

int ModeOf(const std::string& path) {
    struct stat facts {};
    return stat(path.c_str(), &facts) == 0 ? static_cast<int>(facts.st_mode & 07777U) : -1;
}

struct stat FactsOf(const std::string& path) {
    struct stat facts {};
    EXPECT_EQ(stat(path.c_str(), &facts), 0) << path;
    return facts;
}

int OpenFileCount() {
    return static_cast<int>(std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator()));
}

}  // namespace ventlock::test
