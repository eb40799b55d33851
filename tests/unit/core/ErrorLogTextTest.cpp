#include <gtest/gtest.h>

#include <clocale>
#include <filesystem>
#include <optional>
#include <string>

#include "unit/core/LogWorld.h"

namespace ventlock::test {
namespace {

using ErrorLogFile = LogWorld;
using ErrorLogEvent = LogWorld;

TEST_F(ErrorLogFile, FirstEntryByteForByte) {
    const auto log = StartedLog(1);
    EXPECT_TRUE(log->Log("fMf_l-03: Object required (424)"));
    EXPECT_EQ(LogText(),
              "\r\n"
              "******************************************************************************\r\n"
              "Ventlock  Ver 2.1.5  11-16-2026  14:03:27\r\n"
              "******************************************************************************\r\n"
              "1-->\r\n"
              "     fMf_l-03: Object required (424)\r\n");
}

TEST_F(ErrorLogFile, HeaderNamesTitleAndVersionOfTheProgram) {
    appInfo_.title = "Another";
    appInfo_.major = 10;
    appInfo_.minor = 0;
    appInfo_.revision = 123;
    StartedLog(1)->Log("x");
    const std::string rule(78, '*');
    EXPECT_EQ(LogText(), "\r\n" + rule + "\r\nAnother  Ver 10.0.123  11-16-2026  14:03:27\r\n" + rule +
                             "\r\n1-->\r\n     x\r\n");
}

TEST_F(ErrorLogFile, HeaderHasTwoDigitsForEachPartFourForTheYearAndTwentyFourHours) {
    clock_.now = {2027, 1, 2, 3, 4, 5};
    StartedLog(1)->Log("x");
    EXPECT_NE(LogText().find("\r\nVentlock  Ver 2.1.5  01-02-2027  03:04:05\r\n"), std::string::npos)
        << LogText();
    clock_.now = {2026, 12, 31, 23, 59, 59};
    StartedLog(1)->Log("x");
    EXPECT_NE(LogText().find("\r\nVentlock  Ver 2.1.5  12-31-2026  23:59:59\r\n"), std::string::npos)
        << LogText();
}

TEST_F(ErrorLogFile, HeaderDoesNotDependOnTheLocale) {
    const char* const before = std::setlocale(LC_ALL, nullptr);
    const std::string kept = before != nullptr ? before : "C";
    for (const char* const name : {"de_DE.UTF-8", "en_US.UTF-8", "ar_EG.UTF-8", ""}) {
        std::setlocale(LC_ALL, name);
        std::filesystem::remove(LogPath());
        StartedLog(1)->Log("x");
        EXPECT_EQ(LogText(), Header() + "1-->\r\n     x\r\n") << name;
    }
    std::setlocale(LC_ALL, kept.c_str());
}

TEST_F(ErrorLogFile, HeaderIsWrittenOncePerRunEvenWhenTheFileIsDeleted) {
    const auto log = StartedLog(1);
    log->Log("first");
    std::filesystem::remove(LogPath());
    log->Log("second");
    EXPECT_EQ(LogText(), "2-->\r\n     second\r\n");
}

TEST_F(ErrorLogFile, ASecondRunAppendsASecondHeader) {
    StartedLog(1)->Log("first run");
    StartedLog(1)->Log("second run");
    EXPECT_EQ(LogText(), Header() + "1-->\r\n     first run\r\n" + Header() + "1-->\r\n     second run\r\n");
}

TEST_F(ErrorLogFile, StartsWithTheHeaderAndTheSecondNumberWhenTheFirstWriteFailed) {
    const auto log = StartedLog(1);
    files_.FailAt(FileOperation::Append, 1, RunTimeError(ErrorNumber::PermissionDenied));
    EXPECT_FALSE(log->Log("lost"));
    EXPECT_TRUE(log->Log("kept"));
    EXPECT_EQ(LogText(), Header() + "2-->\r\n     kept\r\n");
}

TEST_F(ErrorLogFile, KeepsWhatTheFileHeldBefore) {
    WriteBytes(LogPath(), "of another program\n");
    StartedLog(1)->Log("x");
    EXPECT_EQ(LogText(), "of another program\n" + Header() + "1-->\r\n     x\r\n");
}

TEST_F(ErrorLogFile, HasLinesForTheDetailsOnlyWhenTheyAreNotEmpty) {
    const auto log = StartedLog(1);
    log->Log("a", "12", "x.cpp");
    log->Log("b", "", "x.cpp");
    log->Log("c", "12", "");
    log->Log("d");
    EXPECT_EQ(LogText(), Header() +
                             "1-->\r\n     a\r\n     Line: 12\r\n     File: x.cpp\r\n"
                             "2-->\r\n     b\r\n     File: x.cpp\r\n"
                             "3-->\r\n     c\r\n     Line: 12\r\n"
                             "4-->\r\n     d\r\n");
}

TEST_F(ErrorLogFile, HasALineForADetailOfBlanksWhichTheEventTextHasNot) {
    const auto log = StartedLog(5);
    log->Log("text", "   ", " ");
    EXPECT_EQ(LogText(), Header() + "1-->\r\n     text\r\n     Line:    \r\n     File:  \r\n");
    ASSERT_EQ(eventLog_.entries.size(), 1U);
    EXPECT_EQ(eventLog_.entries[0].text, "text");
}

TEST_F(ErrorLogFile, TakesATextWithLineBreaksAsItIs) {
    StartedLog(1)->Log("one\ntwo\r\nthree\rfour");
    EXPECT_EQ(LogText(), Header() + "1-->\r\n     one\ntwo\r\nthree\rfour\r\n");
}

TEST_F(ErrorLogFile, IsNotMadeInAMissingFolder) {
    const auto log = MakeLog();
    log->Init(folder_ / "missing/Ventlock.log", 2);
    log->LogLevel = 1;
    EXPECT_FALSE(log->Log("x"));
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(ErrorLogFile, MayBeRemovedAfterEveryEntry) {
    const auto log = StartedLog(1);
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(log->Log("x"));
        EXPECT_TRUE(std::filesystem::remove(LogPath()));
        EXPECT_EQ(folder_.Listing(), "");
    }
}

TEST_F(ErrorLogEvent, JoinsTextAndDetailsWithCarriageReturnsAlone) {
    const auto log = StartedLog(4);
    log->Log("text", "x", "y");
    log->Log("text", " 12 ", "");
    log->Log("text", std::nullopt, "y");
    ASSERT_EQ(eventLog_.entries.size(), 3U);
    EXPECT_EQ(eventLog_.entries[0].text, "text\rLine: x\rFile: y");
    EXPECT_EQ(eventLog_.entries[1].text, "text\rLine:  12 ");
    EXPECT_EQ(eventLog_.entries[2].text, "text\rFile: y");
}

}  // namespace
}  // namespace ventlock::test
