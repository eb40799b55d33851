#include "core/LogHistory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

#include "unit/core/LogWorld.h"

namespace ventlock::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class History : public LogWorld {
 protected:
    static std::vector<std::string> Texts(clsLog& log) {
        std::vector<std::string> texts;
        for (const LogHistory::Entry& entry : log.History().Entries()) texts.push_back(entry.text);
        return texts;
    }
};

TEST_F(History, HoldsEveryEntryThatWentSomewhereWithItsTime) {
    const auto log = StartedLog(kLogToScreen);
    log->Log("box");
    clock_.now.hour = 23;
    log->Log("file", "12", "a.ini", kLogToFile);
    log->Log("event", {}, {}, kLogToEventLog);
    log->Log("nowhere", {}, {}, 0);
    EXPECT_THAT(Texts(*log), ElementsAre("box", "file\r\n     Line: 12\r\n     File: a.ini", "event"));
    EXPECT_EQ(log->History().Entries()[0].time.hour, 14);
    EXPECT_EQ(log->History().Entries()[1].time.hour, 23);
}

TEST_F(History, HoldsAnEntryThatTheFileRefused) {
    const auto log = StartedLog(kLogToFile);
    log->LogFile = folder_ / "nowhere/Ventlock.log";
    EXPECT_FALSE(log->Log("lost"));
    EXPECT_THAT(Texts(*log), ElementsAre("lost"));
}

TEST_F(History, IsEmptyBeforeTheLogIsOn) {
    const auto log = MakeLog();
    log->Log("early", {}, {}, kLogToScreen);
    EXPECT_THAT(Texts(*log), IsEmpty());
}

TEST_F(History, HoldsAnEntryBeforeItsBoxIsShown) {
    const auto log = StartedLog(kLogToScreen);
    std::vector<std::size_t> boxesBefore;
    log->History().Follow([&] { boxesBefore.push_back(messageBox_.messages.size()); });
    log->Log("one");
    log->Log("two");
    EXPECT_THAT(boxesBefore, ElementsAre(0u, 1u));
}

TEST_F(History, ThatCannotHoldAnEntryKeepsItFromNobodyElse) {
    const auto log = StartedLog(kLogToScreen | kLogToFile);
    log->History().Follow([] { throw std::bad_alloc(); });
    EXPECT_TRUE(log->Log("one"));
    EXPECT_EQ(messageBox_.messages.size(), 1U);
    EXPECT_NE(LogText().find("one"), std::string::npos);
}

TEST(LogHistory, KeepsTheLastFiveHundred) {
    LogHistory history;
    for (int i = 0; i <= 500; ++i) history.Add({{}, std::to_string(i)});
    EXPECT_EQ(history.Entries().size(), 500u);
    EXPECT_EQ(history.Entries().front().text, "1");
    EXPECT_EQ(history.Entries().back().text, "500");
}

TEST(LogHistory, TellsNobodyOnceNobodyFollows) {
    LogHistory history;
    int told = 0;
    history.Follow([&] { ++told; });
    history.Add({{}, "one"});
    history.Follow({});
    history.Add({{}, "two"});
    EXPECT_EQ(told, 1);
}

}  // namespace
}  // namespace ventlock::test
