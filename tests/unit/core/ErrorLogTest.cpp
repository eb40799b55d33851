#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <string>

#include "support/RowName.h"
#include "unit/core/LogWorld.h"

namespace ventlock::test {
namespace {

using ErrorLog = LogWorld;

struct InitMode {
    std::string name;
    std::optional<Variant> operation;
    bool initialized;
};

void PrintTo(const InitMode& row, std::ostream* out) {
    *out << row.name;
}

class ErrorLogInit : public LogWorld, public testing::WithParamInterface<InitMode> {};

TEST_P(ErrorLogInit, SwitchesTheLogOnWithModeTwoOnly) {
    const auto log = MakeLog();
    EXPECT_EQ(log->Init(LogPath(), GetParam().operation), GetParam().initialized);
    EXPECT_EQ(log->Initialized, GetParam().initialized);
}

INSTANTIATE_TEST_SUITE_P(
    Modes, ErrorLogInit,
    testing::Values(InitMode{"Two", 2, true}, InitMode{"None", std::nullopt, false},
                    InitMode{"Zero", 0, false}, InitMode{"One", 1, false}, InitMode{"Three", 3, false},
                    InitMode{"MinusTwo", -2, false}, InitMode{"TextTwo", "2", true},
                    InitMode{"TextThatBeginsWithTwo", "2abc", true},
                    InitMode{"TextWithoutNumber", "abc", false}, InitMode{"EmptyText", "", false},
                    InitMode{"TextOneAndAHalf", "1.5", true}, InitMode{"TwoPointFour", 2.4, true},
                    InitMode{"TwoAndAHalf", 2.5, true}, InitMode{"ThreeAndAHalf", 3.5, false},
                    InitMode{"BeyondSixteenBits", "65538", false},
                    InitMode{"NumberBeyondSixteenBits", 65538, false}),
    RowName());

TEST_F(ErrorLog, CaptionIsLogEntryWhenOmittedAndTheGivenTextElse) {
    const auto log = MakeLog();
    EXPECT_EQ(log->Caption, "Log Entry");
    log->Init(LogPath(), 2, "Ventlock");
    EXPECT_EQ(log->Caption, "Ventlock");
    log->Init(LogPath(), 2, "");
    EXPECT_EQ(log->Caption, "");
    log->Init(LogPath(), 2);
    EXPECT_EQ(log->Caption, "Log Entry");
}

TEST_F(ErrorLog, HelpFileIsSetByAnExistingFileAndLeftUnchangedByAMissingOne) {
    WriteBytes(folder_ / "Ventlock.hlp", "help");
    const auto log = MakeLog();
    log->Init(LogPath(), 2, "", folder_ / "missing.hlp");
    EXPECT_EQ(log->HelpFile, "");
    log->Init(LogPath(), 2, "", folder_ / "Ventlock.hlp");
    EXPECT_EQ(log->HelpFile, folder_ / "Ventlock.hlp");
    log->Init(LogPath(), 2, "", folder_ / "missing.hlp");
    EXPECT_EQ(log->HelpFile, folder_ / "Ventlock.hlp");
    log->Init(LogPath(), 2, "", folder_.Path());
    EXPECT_EQ(log->HelpFile, folder_ / "Ventlock.hlp") << "a folder is no file";
    log->Init(LogPath(), 2);
    EXPECT_EQ(log->HelpFile, folder_ / "Ventlock.hlp");
}

TEST_F(ErrorLog, LogFileIsThePathEvenWhenTheModeIsNotTwo) {
    const auto log = MakeLog();
    EXPECT_FALSE(log->Init("/some/where.log", 1));
    EXPECT_EQ(log->LogFile, "/some/where.log");
}

TEST_F(ErrorLog, StartsWithItsPropertiesEmpty) {
    const auto log = MakeLog();
    EXPECT_EQ(log->LogFile, "");
    EXPECT_EQ(log->LogLevel, 0);
    EXPECT_EQ(log->HelpFile, "");
    EXPECT_EQ(log->LogText, "");
    EXPECT_EQ(log->LineInfo, "");
    EXPECT_EQ(log->FileInfo, "");
    EXPECT_FALSE(log->Initialized);
}

TEST_F(ErrorLog, AllEightPropertiesCanBeWrittenAndTakeEffect) {
    const auto log = MakeLog();
    log->Initialized = true;
    log->LogFile = folder_ / "other.log";
    log->LogLevel = 3;
    log->Caption = "Title";
    log->HelpFile = "help.hlp";
    log->LogText = log->LineInfo = log->FileInfo = "earlier";
    EXPECT_TRUE(log->Log("text", "1", "a.cpp", std::nullopt, std::nullopt, 5));
    EXPECT_EQ(ReadBytes(folder_ / "other.log"),
              Header() + "1-->\r\n     text\r\n     Line: 1\r\n     File: a.cpp\r\n");
    ASSERT_EQ(messageBox_.messages.size(), 1U);
    EXPECT_EQ(messageBox_.messages[0].title, "Title");
    ASSERT_TRUE(messageBox_.messages[0].help.has_value());
    EXPECT_EQ(messageBox_.messages[0].help->file, "help.hlp");
    EXPECT_EQ(log->LogText, "text");
}

TEST_F(ErrorLog, SettingInitializedFalseSilencesIt) {
    const auto log = StartedLog(7);
    log->Initialized = false;
    EXPECT_FALSE(log->Log("text"));
    EXPECT_EQ(messageBox_.messages.size(), 0U);
    EXPECT_EQ(eventLog_.entries.size(), 0U);
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(ErrorLog, BeforeInitGivesFalseWithoutFileOrBox) {
    const auto log = MakeLog();
    log->LogFile = LogPath();
    log->LogLevel = 7;
    EXPECT_FALSE(log->Log("text"));
    EXPECT_EQ(log->LogText, "");
    EXPECT_EQ(messageBox_.messages.size(), 0U);
    EXPECT_EQ(eventLog_.entries.size(), 0U);
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(ErrorLog, AfterInitWithModeOneGivesFalseAndWritesNothing) {
    const auto log = MakeLog();
    log->Init(LogPath(), 1);
    log->LogLevel = 3;
    EXPECT_FALSE(log->Log("text"));
    EXPECT_EQ(messageBox_.messages.size(), 0U);
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(ErrorLog, SetsTheDetailsOfAnEntryAndClearsThoseThatAreOmitted) {
    const auto log = StartedLog(0);
    log->Log("first", "12", "a.cpp");
    EXPECT_EQ(log->LogText, "first");
    EXPECT_EQ(log->LineInfo, "12");
    EXPECT_EQ(log->FileInfo, "a.cpp");
    log->Log("second");
    EXPECT_EQ(log->LogText, "second");
    EXPECT_EQ(log->LineInfo, "");
    EXPECT_EQ(log->FileInfo, "");
}

TEST_F(ErrorLog, ALevelThatIsGivenCountsForThatEntryOnly) {
    const auto log = StartedLog(kLogToScreen);
    EXPECT_TRUE(log->Log("to the file", std::nullopt, std::nullopt, 1));
    EXPECT_EQ(messageBox_.messages.size(), 0U);
    EXPECT_EQ(log->LogLevel, kLogToScreen);
    EXPECT_TRUE(log->Log("to the screen"));
    EXPECT_EQ(messageBox_.messages.size(), 1U);
    EXPECT_EQ(LogText(), Header() + "1-->\r\n     to the file\r\n");
}

TEST_F(ErrorLog, ALevelOfZeroThatIsGivenOverridesToo) {
    const auto log = StartedLog(7);
    EXPECT_TRUE(log->Log("text", std::nullopt, std::nullopt, 0));
    EXPECT_EQ(messageBox_.messages.size(), 0U);
    EXPECT_EQ(eventLog_.entries.size(), 0U);
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(ErrorLog, ALevelThatIsNoNumberGivesFalseAndShowsNothing) {
    const auto log = StartedLog(3);
    for (const char* const level : {"abc", "2abc", ""}) {
        EXPECT_FALSE(log->Log("text", std::nullopt, std::nullopt, level)) << level;
    }
    EXPECT_FALSE(log->Log("text", std::nullopt, std::nullopt, 65536 + 2));
    EXPECT_EQ(messageBox_.messages.size(), 0U);
    EXPECT_EQ(folder_.Listing(), "");
    EXPECT_TRUE(log->Log("text", std::nullopt, std::nullopt, " 2 "));
    EXPECT_EQ(messageBox_.messages.size(), 1U);
}

TEST_F(ErrorLog, TheEventTypeIsOneWhenOmittedAndAsGivenElse) {
    const auto log = StartedLog(kLogToEventLog);
    log->Log("error");
    log->Log("warning", std::nullopt, std::nullopt, std::nullopt, std::int16_t{2});
    log->Log("information", std::nullopt, std::nullopt, std::nullopt, std::int16_t{4});
    ASSERT_EQ(eventLog_.entries.size(), 3U);
    EXPECT_EQ(eventLog_.entries[0].type, 1);
    EXPECT_EQ(eventLog_.entries[1].type, 2);
    EXPECT_EQ(eventLog_.entries[2].type, 4);
}

TEST_F(ErrorLog, LevelZeroWritesNothingGivesTrueAndKeepsTheCounter) {
    const auto log = StartedLog(0);
    EXPECT_TRUE(log->Log("text"));
    EXPECT_EQ(folder_.Listing(), "");
    log->LogLevel = 1;
    log->Log("first");
    EXPECT_EQ(LogText(), Header() + "1-->\r\n     first\r\n");
}

TEST_F(ErrorLog, LevelOneCountsAndWritesTheFile) {
    const auto log = StartedLog(1);
    EXPECT_TRUE(log->Log("first"));
    EXPECT_TRUE(log->Log("second"));
    EXPECT_EQ(LogText(), Header() + "1-->\r\n     first\r\n2-->\r\n     second\r\n");
    EXPECT_EQ(messageBox_.messages.size(), 0U);
    EXPECT_EQ(eventLog_.entries.size(), 0U);
}

TEST_F(ErrorLog, LevelTwoShowsABoxWithoutFileAndKeepsTheCounter) {
    const auto log = StartedLog(2);
    EXPECT_TRUE(log->Log("shown"));
    ASSERT_EQ(messageBox_.messages.size(), 1U);
    EXPECT_EQ(folder_.Listing(), "");
    log->LogLevel = 1;
    log->Log("first");
    EXPECT_EQ(LogText(), Header() + "1-->\r\n     first\r\n");
}

TEST_F(ErrorLog, LevelThreeWithAnUnwritablePathShowsTheBoxAndGivesFalse) {
    const auto log = MakeLog();
    log->Init(folder_ / "missing/Ventlock.log", 2, "Ventlock");
    log->LogLevel = 3;
    EXPECT_FALSE(log->Log("text"));
    ASSERT_EQ(messageBox_.messages.size(), 1U);
    EXPECT_EQ(messageBox_.messages[0].text, "text");
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(ErrorLog, LevelFourCountsWritesTheEventAndGivesItsResult) {
    const auto log = StartedLog(4);
    EXPECT_TRUE(log->Log("event"));
    eventLog_.refuses = true;
    EXPECT_FALSE(log->Log("refused"));
    ASSERT_EQ(eventLog_.entries.size(), 2U);
    EXPECT_EQ(eventLog_.entries[0].text, "event");
    EXPECT_EQ(folder_.Listing(), "");
    log->LogLevel = 1;
    log->Log("file");
    EXPECT_EQ(LogText(), Header() + "3-->\r\n     file\r\n");
}

TEST_F(ErrorLog, LevelFiveCountsTwiceAndTheFileShowsTheFirstNumber) {
    const auto log = StartedLog(5);
    EXPECT_TRUE(log->Log("first"));
    EXPECT_TRUE(log->Log("second"));
    EXPECT_EQ(LogText(), Header() + "1-->\r\n     first\r\n3-->\r\n     second\r\n");
    EXPECT_EQ(eventLog_.entries.size(), 2U);
}

TEST_F(ErrorLog, LevelFiveWithAnUnwritableFileGivesFalseSkipsTheEventAndCountsOnce) {
    const auto log = StartedLog(5);
    files_.FailAt(FileOperation::Append, 1, RunTimeError(ErrorNumber::DiskFull));
    EXPECT_FALSE(log->Log("lost"));
    EXPECT_EQ(eventLog_.entries.size(), 0U);
    log->LogLevel = 1;
    EXPECT_TRUE(log->Log("kept"));
    EXPECT_EQ(LogText(), Header() + "2-->\r\n     kept\r\n");
}

TEST_F(ErrorLog, LevelSevenDoesAllThreeAndCountsTwice) {
    const auto log = StartedLog(7);
    EXPECT_TRUE(log->Log("first"));
    EXPECT_EQ(messageBox_.messages.size(), 1U);
    EXPECT_EQ(eventLog_.entries.size(), 1U);
    EXPECT_TRUE(log->Log("second"));
    EXPECT_EQ(LogText(), Header() + "1-->\r\n     first\r\n3-->\r\n     second\r\n");
}

TEST_F(ErrorLog, OtherBitsThanOneTwoAndFourDoNothingAndGiveTrue) {
    const auto log = StartedLog(8);
    EXPECT_TRUE(log->Log("text"));
    log->LogLevel = 16 + 32;
    EXPECT_TRUE(log->Log("text"));
    EXPECT_EQ(messageBox_.messages.size(), 0U);
    EXPECT_EQ(eventLog_.entries.size(), 0U);
    EXPECT_EQ(folder_.Listing(), "");
    log->LogLevel = 8 + 1;
    log->Log("first");
    EXPECT_EQ(LogText(), Header() + "1-->\r\n     first\r\n");
}

TEST_F(ErrorLog, TheBoxAppearsBeforeTheFileIsWritten) {
    struct WatchingBox final : IMessageBox {
        std::string listing = "never shown";
        const TempFolder* folder = nullptr;
        void Show(const std::string&, const std::string&, const std::optional<MessageHelp>&) override {
            listing = folder->Listing();
        }
    } box;
    box.folder = &folder_;
    clsLog log(files_, clock_, box, eventLog_, appInfo_);
    log.Init(LogPath(), 2);
    log.LogLevel = 3;
    EXPECT_TRUE(log.Log("text"));
    EXPECT_EQ(box.listing, "");
    EXPECT_EQ(folder_.Listing(), "Ventlock.log");
}

TEST_F(ErrorLog, TheBoxHasTheCaptionAsTitleAndTheTextAloneWithoutDetails) {
    const auto log = StartedLog(2);
    log->Log("text", "12", "a.cpp");
    ASSERT_EQ(messageBox_.messages.size(), 1U);
    EXPECT_EQ(messageBox_.messages[0].title, "Ventlock");
    EXPECT_EQ(messageBox_.messages[0].text, "text");
}

TEST_F(ErrorLog, TheBoxHasAHelpButtonOnlyWithAHelpFileAndAContext) {
    const auto log = StartedLog(2);
    const auto logWithContext = [&](std::optional<std::int32_t> context) {
        log->Log("text", std::nullopt, std::nullopt, std::nullopt, std::nullopt, context);
        return messageBox_.messages.back().help;
    };
    EXPECT_FALSE(logWithContext(std::nullopt).has_value());
    EXPECT_FALSE(logWithContext(7).has_value());
    log->HelpFile = "Ventlock.hlp";
    EXPECT_FALSE(logWithContext(std::nullopt).has_value());
    const auto help = logWithContext(70000);
    ASSERT_TRUE(help.has_value());
    EXPECT_EQ(help->file, "Ventlock.hlp");
    EXPECT_EQ(help->context, 70000);
}

TEST_F(ErrorLog, PastCounter32767GivesFalseAndWritesNothing) {
    const auto log = StartedLog(4);
    for (int i = 1; i < std::numeric_limits<std::int16_t>::max(); ++i) ASSERT_TRUE(log->Log("event"));
    log->LogLevel = 1;
    EXPECT_TRUE(log->Log("last"));
    const std::string full = Header() + "32767-->\r\n     last\r\n";
    EXPECT_EQ(LogText(), full);
    EXPECT_FALSE(log->Log("too many"));
    log->LogLevel = 4;
    EXPECT_FALSE(log->Log("too many"));
    EXPECT_EQ(LogText(), full);
    EXPECT_EQ(eventLog_.entries.size(), 32766U);
    EXPECT_EQ(messageBox_.messages.size(), 0U) << "the log reports nothing about itself";
}

}  // namespace
}  // namespace ventlock::test
