#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

#include "unit/core/LogWorld.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;
using ErrorLogHandle = LogWorld;

bool IsOpenHere(const std::string& path) {
    for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
        std::error_code closedMeanwhile;
        if (fs::read_symlink(entry.path(), closedMeanwhile) == path) return true;
    }
    return false;
}

TEST_F(ErrorLogHandle, StaysOpenAfterNoEntry) {
    const auto log = StartedLog(1);
    EXPECT_TRUE(log->Log("x"));
    EXPECT_TRUE(log->Log("y"));
    ASSERT_TRUE(fs::exists(LogPath()));
    EXPECT_FALSE(IsOpenHere(LogPath()));
    const std::ifstream opened(LogPath());
    EXPECT_TRUE(IsOpenHere(LogPath())) << "an open file would be seen";
}

TEST_F(ErrorLogHandle, AReadOnlyFileGivesFalseAndStaysAsItIs) {
    WriteBytes(LogPath(), "old\r\n");
    fs::permissions(LogPath(), fs::perms(0444));
    const auto log = StartedLog(3);
    EXPECT_FALSE(log->Log("x"));
    EXPECT_EQ(messageBox_.messages.size(), 1U);
    EXPECT_EQ(LogText(), "old\r\n");
}

}  // namespace
}  // namespace ventlock::test
