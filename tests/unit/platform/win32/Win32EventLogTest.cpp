#include "platform/win32/Win32EventLog.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace ventlock::test {
namespace {

using Entries = std::vector<std::pair<std::uint16_t, std::wstring>>;

Entries& Received() {
    static Entries entries;
    return entries;
}

bool Receive(std::uint16_t type, const std::wstring& text) {
    Received().emplace_back(type, text);
    return true;
}

bool Refuse(std::uint16_t /*type*/, const std::wstring& /*text*/) {
    return false;
}

TEST(Win32EventLog, HandsTypeAndTextOnAsTheyAre) {
    Win32EventLog log(Receive);
    Received().clear();
    EXPECT_TRUE(log.Write("text\rLine: x\rFile: y", 1));
    EXPECT_TRUE(log.Write("100 % Größe\n", 2));
    EXPECT_TRUE(log.Write("", 4));
    EXPECT_TRUE(log.Write("d", 0));
    EXPECT_TRUE(log.Write("e", 16));
    EXPECT_EQ(
        Received(),
        (Entries{{1, L"text\rLine: x\rFile: y"}, {2, L"100 % Größe\n"}, {4, L""}, {0, L"d"}, {16, L"e"}}));
}

TEST(Win32EventLog, IsFalseWhenTheEntryIsRefused) {
    EXPECT_FALSE(Win32EventLog(Refuse).Write("text", 1));
}

TEST(Win32EventLog, TheSystemsServiceTakesEveryTypeThatTheLogHas) {
    Win32EventLog log;
    EXPECT_TRUE(log.Write("A test has written this.", 1));
    EXPECT_TRUE(log.Write("A test has written this.", 2));
    EXPECT_TRUE(log.Write("A test has written this.", 4));
}

}  // namespace
}  // namespace ventlock::test
