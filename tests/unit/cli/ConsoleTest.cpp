#include "cli/Console.h"

#include <gtest/gtest.h>

#include <sstream>

namespace ventlock::test {
namespace {

/// A console whose two streams are one text, in the order of writing, and also apart.
class ConsoleOf : public testing::Test {
 protected:
    std::ostringstream out_;
    std::ostringstream err_;
    Console onTerminal_{out_, err_, true};
    Console elsewhere_{out_, err_, false};
};

TEST_F(ConsoleOf, DataGoesToOutAndProblemsToErr) {
    elsewhere_.WriteLine("data");
    elsewhere_.WriteNews("news");
    elsewhere_.WriteProblem("problem");
    EXPECT_EQ(out_.str(), "data\nnews\n");
    EXPECT_EQ(err_.str(), "problem\n");
}

/// Counts how often it is asked to pass on what it holds.
class CountingBuffer final : public std::stringbuf {
 public:
    int flushes = 0;

 protected:
    int sync() override {
        ++flushes;
        return std::stringbuf::sync();
    }
};

TEST_F(ConsoleOf, NewsArePassedOnAtOnce) {
    CountingBuffer buffer;
    std::ostream out(&buffer);
    Console console(out, err_, false);
    console.WriteNews("written");
    EXPECT_EQ(buffer.str(), "written\n");
    EXPECT_EQ(buffer.flushes, 1);
}

TEST_F(ConsoleOf, QuietLeavesOutNewsButNeitherDataNorProblems) {
    elsewhere_.isQuiet = true;
    elsewhere_.WriteLine("data");
    elsewhere_.WriteNews("news");
    elsewhere_.WriteProblem("problem");
    EXPECT_EQ(out_.str(), "data\n");
    EXPECT_EQ(err_.str(), "problem\n");
}

TEST_F(ConsoleOf, LinesCommandNoTerminal) {
    elsewhere_.WriteLine(
        "[\x1B[2J] \a\b\x7F \xC2\x9B"
        "31m caf\xC3\xA9\tend");
    elsewhere_.WriteLine("a diff\r\nof lines\r");
    elsewhere_.WriteProblem("over\rwritten");
    EXPECT_EQ(out_.str(),
              "[\\x1B[2J] \\x07\\x08\\x7F \\x9B"
              "31m caf\xC3\xA9\tend\na diff\r\nof lines\r\n");
    EXPECT_EQ(err_.str(), "over\\x0Dwritten\n");
}

TEST_F(ConsoleOf, JsonWritesNothingButTheDocument) {
    elsewhere_.isJson = true;
    elsewhere_.document["command"] = "check";
    elsewhere_.WriteLine("data");
    elsewhere_.WriteNews("news");
    elsewhere_.WriteError(CliError(ExitCode::Unreachable, "cannot", {"log", "driver"}, "try"));
    EXPECT_EQ(out_.str(), "");
    elsewhere_.Finish(ExitCode::Unreachable);
    EXPECT_EQ(out_.str(),
              "{\n"
              "  \"command\": \"check\",\n"
              "  \"error\": {\n"
              "    \"text\": \"cannot\",\n"
              "    \"details\": [\n"
              "      \"log\",\n"
              "      \"driver\"\n"
              "    ],\n"
              "    \"advice\": \"try\"\n"
              "  },\n"
              "  \"exitCode\": 3\n"
              "}\n");
    EXPECT_EQ(err_.str(), "");
}

TEST_F(ConsoleOf, JsonStaysValidWhenADriverSpeaksNoUtf8) {
    elsewhere_.isJson = true;
    elsewhere_.WriteError(CliError(ExitCode::TargetFailed, "K\xFChler", {}, ""));
    elsewhere_.Finish(ExitCode::TargetFailed);
    EXPECT_EQ(nlohmann::json::parse(out_.str())["error"]["text"], "K\xEF\xBF\xBDhler");
}

TEST_F(ConsoleOf, ErrorsAreToldWithDetailsAndAdvice) {
    elsewhere_.WriteError(CliError(ExitCode::TargetFailed, "it failed", {"first", "second"}, "Do this."));
    EXPECT_EQ(err_.str(), "ventlock-cli: it failed\n  first\n  second\n  Do this.\n");
    EXPECT_EQ(out_.str(), "");
}

TEST_F(ConsoleOf, AnErrorWithoutAdviceEndsAfterItsDetails) {
    elsewhere_.WriteError(CliError(ExitCode::TargetFailed, "it failed"));
    EXPECT_EQ(err_.str(), "ventlock-cli: it failed\n");
}

TEST_F(ConsoleOf, FindingsNamePathLineSeverityAndId) {
    const Finding warning{0, Severity::Warning, "too-wide", "too wide"};
    EXPECT_EQ(Console::FindingJson("b.ini", warning).dump(),
              R"({"file":"b.ini","line":0,"severity":"warning","id":"too-wide","text":"too wide"})");
}

TEST_F(ConsoleOf, ProgressStandsUntilTheNextLineOfAnyKind) {
    onTerminal_.ShowProgress(1, 3);
    EXPECT_EQ(err_.str(), "\r1 of 3 entries");
    onTerminal_.WriteLine("data");
    EXPECT_EQ(err_.str(), "\r1 of 3 entries\r\x1B[K");
    onTerminal_.WriteLine("more");
    EXPECT_EQ(err_.str(), "\r1 of 3 entries\r\x1B[K");
    err_.str("");
    onTerminal_.ShowProgress(2, 3);
    onTerminal_.WriteProblem("problem");
    EXPECT_EQ(err_.str(), "\r2 of 3 entries\r\x1B[Kproblem\n");
    err_.str("");
    onTerminal_.ShowProgress(3, 3);
    onTerminal_.Finish(ExitCode::Done);
    EXPECT_EQ(err_.str(), "\r3 of 3 entries\r\x1B[K");
    EXPECT_EQ(out_.str(), "data\nmore\n");
}

TEST_F(ConsoleOf, ProgressIsShownOnATerminalForSeveralEntriesOnly) {
    elsewhere_.ShowProgress(1, 3);
    onTerminal_.ShowProgress(0, 1);
    onTerminal_.isQuiet = true;
    onTerminal_.ShowProgress(1, 3);
    onTerminal_.isQuiet = false;
    onTerminal_.isJson = true;
    onTerminal_.ShowProgress(1, 3);
    EXPECT_EQ(err_.str(), "");
}

}  // namespace
}  // namespace ventlock::test
