#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "support/win32/OpenFile.h"
#include "unit/core/LogWorld.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;
using ErrorLogHandle = LogWorld;

TEST_F(ErrorLogHandle, StaysOpenAfterNoEntry) {
    const auto log = StartedLog(1);
    EXPECT_TRUE(log->Log("x"));
    EXPECT_FALSE(IsOpen(LogPath()));
    EXPECT_TRUE(log->Log("y"));
    EXPECT_FALSE(IsOpen(LogPath()));
    const std::ifstream opened(LogPath());
    EXPECT_TRUE(IsOpen(LogPath())) << "an open file would be seen";
}

TEST_F(ErrorLogHandle, AnEntryIsTakenWhileAnotherProgramReadsTheFile) {
    const auto log = StartedLog(1);
    EXPECT_TRUE(log->Log("x"));
    const std::ifstream viewer(LogPath());
    EXPECT_TRUE(log->Log("y"));
    EXPECT_EQ(LogText(), Header() + "1-->\r\n     x\r\n2-->\r\n     y\r\n");
}

TEST_F(ErrorLogHandle, AReadOnlyFileGivesFalseAndStaysAsItIs) {
    WriteBytes(LogPath(), "old\r\n");
    fs::permissions(LogPath(), fs::perms::owner_read);
    const auto log = StartedLog(3);
    EXPECT_FALSE(log->Log("x"));
    EXPECT_EQ(messageBox_.messages.size(), 1U);
    EXPECT_EQ(LogText(), "old\r\n");
    fs::permissions(LogPath(), fs::perms::all);
}

}  // namespace
}  // namespace ventlock::test
