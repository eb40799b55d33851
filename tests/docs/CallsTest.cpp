// Commands and options that stand in running text: each is one of the program's.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

#include "cli/CommandDescription.h"
#include "cli/Completion.h"
#include "docs/Document.h"
#include "docs/Paths.h"
#include "platform/Host.h"
#include "support/TempFolder.h"

namespace ventlock::test {
namespace {

constexpr std::string_view kProgram = "ventlock-cli";

const CommandDescription& Program() {
    static const CommandDescription kDescription = DescribeCommandLine(*CreateHost("ventlock"));
    return kDescription;
}

bool HasOption(const CommandDescription& command, const std::string& name) {
    if (name == "--version") return true;
    return std::any_of(command.options.begin(), command.options.end(), [&](const OptionDescription& option) {
        return std::find(option.names.begin(), option.names.end(), name) != option.names.end();
    });
}

bool AnyHasOption(const CommandDescription& command, const std::string& name) {
    return HasOption(command, name) ||
           std::any_of(command.commands.begin(), command.commands.end(),
                       [&](const CommandDescription& part) { return AnyHasOption(part, name); });
}

/// What is wrong with a call as a text has it; nothing when all its commands and options are known.
std::string WrongWord(const std::string& call) {
    std::istringstream words(call);
    std::string word;
    words >> word;
    const CommandDescription* command = &Program();
    while (words >> word) {
        if (word.starts_with("-")) {
            if (!HasOption(*command, word) && !HasOption(Program(), word)) return word;
        } else if (!command->commands.empty()) {
            const auto part =
                std::find_if(command->commands.begin(), command->commands.end(),
                             [&](const CommandDescription& known) { return known.name == word; });
            if (part == command->commands.end()) return word == kCompleteCommand ? "" : word;
            command = &*part;
        }
    }
    return "";
}

TEST(Calls, AWrongWordIsSeen) {
    EXPECT_EQ(WrongWord("ventlock-cli database list devices --dsn X --json"), "");
    EXPECT_EQ(WrongWord("ventlock-cli registre flow.ini"), "registre");
    EXPECT_EQ(WrongWord("ventlock-cli check flow.ini --all"), "--all");
    EXPECT_EQ(WrongWord("ventlock-cli database drop"), "drop");
}

class CallsOf : public testing::TestWithParam<std::string> {};

TEST_P(CallsOf, AreOnesThatTheProgramUnderstands) {
    const std::string text = ReadBytes(InSource(GetParam()));
    for (const std::string& span : CodeSpans(text)) {
        if (!span.starts_with(std::string(kProgram) + " ")) continue;
        EXPECT_EQ(WrongWord(span), "") << span;
    }
}

INSTANTIATE_TEST_SUITE_P(Docs, CallsOf, testing::ValuesIn(DocumentPaths()), NameOfPath);

class OptionsOf : public testing::TestWithParam<std::string> {};

/// In the guides for users, where nothing else has options.
TEST_P(OptionsOf, AreTheProgramsOwn) {
    for (const std::string& span : CodeSpans(ReadBytes(InSource(GetParam())))) {
        if (!span.starts_with("--")) continue;
        const std::string name = span.substr(0, span.find(' '));
        EXPECT_TRUE(AnyHasOption(Program(), name)) << span;
    }
}

INSTANTIATE_TEST_SUITE_P(Docs, OptionsOf,
                         testing::Values("docs/command-line.md", "docs/entry-files.md", "docs/guide.md",
                                         "docs/ini-files.md", "docs/settings.md"),
                         NameOfPath);

/// Calls that begin a line, as in a text without marks.
TEST(Calls, OfTheWindowsPackagesAreUnderstood) {
    std::istringstream lines(ReadBytes(InSource("packaging/windows/README.txt")));
    int calls = 0;
    for (std::string line; std::getline(lines, line);) {
        const std::size_t begin = line.find_first_not_of(' ');
        if (begin == std::string::npos || !line.substr(begin).starts_with(std::string(kProgram) + " "))
            continue;
        EXPECT_EQ(WrongWord(line), "") << line;
        ++calls;
    }
    EXPECT_GT(calls, 2);
}

TEST(Calls, OfTheHelpBookAreUnderstood) {
    for (const std::string& path : HelpPages()) {
        const std::string page = ReadBytes(InSource(path));
        for (std::size_t at = page.find(kProgram); at != std::string::npos;
             at = page.find(kProgram, at + 1)) {
            const std::string call = page.substr(at, page.find('<', at) - at);
            EXPECT_EQ(WrongWord(call), "") << path << ": " << call;
        }
    }
}

}  // namespace
}  // namespace ventlock::test
