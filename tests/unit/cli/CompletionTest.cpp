#include "cli/Completion.h"

#include <gtest/gtest.h>

#include "support/OdbcFolder.h"
#include "unit/cli/CommandLineHost.h"

namespace ventlock::test {
namespace {

/// The answer to "complete" for a call whose last word is being typed.
std::string CompletionsOf(std::vector<std::string> words) {
    CommandLineHost host;
    words.insert(words.begin(), std::string(kCompleteCommand));
    const Answer answer = Call(host, words);
    EXPECT_EQ(answer.code, ExitCode::Done);
    EXPECT_EQ(answer.err, "");
    return answer.out;
}

/// The same without what stands behind the candidates.
std::string CandidatesOf(const std::vector<std::string>& words) {
    const std::string lines = CompletionsOf(words);
    std::string candidates;
    for (std::size_t start = 0; start < lines.size(); start = lines.find('\n', start) + 1) {
        candidates += lines.substr(start, lines.find('\t', start) - start) + '\n';
    }
    return candidates;
}

TEST(Completion, ACallBeginsWithACommand) {
    const std::string commands =
        "register\tWrite entries to the database and the files\n"
        "verify\tCompare entries with what the database and the files hold; nothing is written\n"
        "export\tWrite an entry file from what the database or Ddinstal.ini holds of a device\n"
        "check\tCheck entry files by every rule\n"
        "database\tMake and look into device databases\n"
        "settings\tShow and change the stored settings\n";
    EXPECT_EQ(CompletionsOf({""}), commands);
    EXPECT_EQ(CompletionsOf({}), commands);
    EXPECT_EQ(CompletionsOf({"se"}), "settings\tShow and change the stored settings\n");
    EXPECT_EQ(CompletionsOf({"inscribe"}), "");
}

TEST(Completion, ACommandsOwnCommandsFollowIt) {
    EXPECT_EQ(CandidatesOf({"database", ""}), "create\ninfo\nlist\nsources\n");
    EXPECT_EQ(CandidatesOf({"--json", "database", "--timeout", "5", "s"}), "sources\n");
}

TEST(Completion, ADashAsksForTheOptionsThatMayStandThere) {
    EXPECT_EQ(CandidatesOf({"database", "info", "-"}),
              "--help\n-h\n--dsn\n--version\n--json\n--quiet\n-q\n--timeout\n");
    EXPECT_EQ(CompletionsOf({"register", "--dr"}),
              "--dry-run\tWrite nothing; print the statements and what would change in the files\n");
}

TEST(Completion, AnOptionIsOfferedOnce) {
    EXPECT_EQ(CandidatesOf({"register", "--dry-run", "--d"}), "--db\n--ddinstall\n--ddinstall-path\n--dsn\n");
    EXPECT_EQ(CandidatesOf({"register", "-q", "--q"}), "");
}

TEST(Completion, WhereNothingElseMayStandOptionsDo) {
    EXPECT_EQ(CandidatesOf({"database", "sources", ""}),
              "--help\n-h\n--version\n--json\n--quiet\n-q\n--timeout\n");
}

TEST(Completion, BehindTwoDashesNoOptionStands) {
    EXPECT_EQ(CompletionsOf({"register", "--", "-"}), "\tini-files\n");
    EXPECT_EQ(CompletionsOf({"database", "sources", "--", "-"}), "");
}

TEST(Completion, FilesAreLeftToTheShell) {
    EXPECT_EQ(CompletionsOf({"register", ""}), "\tini-files\n");
    EXPECT_EQ(CompletionsOf({"check", "a.ini", "fl"}), "\tini-files\n");
    EXPECT_EQ(CompletionsOf({"register", "--ini-path", ""}), "\tini-files\n");
    EXPECT_EQ(CompletionsOf({"register", "--ini-path=/etc/"}), "\tini-files\n");
    EXPECT_EQ(CompletionsOf({"database", "create", "--file", ""}), "\tfiles\n");
}

TEST(Completion, ValuesAreThoseThatTheGrammarTakes) {
    EXPECT_EQ(CandidatesOf({"check", "--schema", ""}), "current\nold\n");
    EXPECT_EQ(CandidatesOf({"check", "--schema=o"}), "--schema=old\n");
    EXPECT_EQ(CandidatesOf({"database", "list", "m"}), "major-categories\nminor-categories\nmanufacturers\n");
    EXPECT_EQ(CandidatesOf({"settings", "get", "DD"}), "DDInstallPath\nDDRev\nDDVersion\n");
    EXPECT_EQ(CandidatesOf({"settings", "set", "Da"}), "DataSourceName\n");
    EXPECT_EQ(CandidatesOf({"database", "create", "--dsn", ""}), "");
    EXPECT_EQ(CandidatesOf({"--timeout", ""}), "");
    EXPECT_EQ(CandidatesOf({"settings", "set", "ManName", ""}), "");
}

TEST(Completion, OnlySettingsThatAreTakenAreOfferedForAChange) {
    EXPECT_EQ(CandidatesOf({"settings", "get", "TAVVersionS"}), "TAVVersionSupport\n");
    EXPECT_EQ(CandidatesOf({"settings", "set", "TAVVersionS"}), "");
    EXPECT_EQ(CandidatesOf({"settings", "set", "La"}), "Language\n");
}

TEST(Completion, DataSourcesAreNamedWithTheirDrivers) {
    OdbcFolder& folder = OdbcFolder::Get();
    const std::string name = folder.UnusedName();
    const std::string driver = OdbcFolder::DriverLibrary("libsqlite3odbc.so");
    folder.AddDataSource(name, driver, {});
    EXPECT_EQ(CompletionsOf({"register", "--dsn", name}), name + "\t" + driver + "\n");
    EXPECT_EQ(CandidatesOf({"database", "info", "--dsn=" + name}), "--dsn=" + name + "\n");
    EXPECT_EQ(CandidatesOf({"database", "info", "--dsn", name + "x"}), "");
}

TEST(Completion, NoHelpNamesTheQuestionOfTheShells) {
    CommandLineHost host;
    EXPECT_EQ(Call(host, {"--help"}).out.find(kCompleteCommand), std::string::npos);
}

}  // namespace
}  // namespace ventlock::test
