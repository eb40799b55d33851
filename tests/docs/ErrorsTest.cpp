// The messages in the guide's table of errors are those that the program prints.

#include <gtest/gtest.h>

#include <sstream>

#include "docs/Paths.h"
#include "docs/Reader.h"

namespace ventlock::test {
namespace {

/// What users do that leads to the messages of the table, on a machine with a registered device.
constexpr const char* kMistakes[] = {
    "ventlock-cli registre flow.ini",
    "ventlock-cli register flow.ini --al",
    "ventlock-cli register flow.ini",
    "ventlock-cli check none.ini",
    "mkdir empty; ventlock-cli check empty",
    "cp Pyx.ini devices/station.ini; ventlock-cli check devices --strict",
    "printf '[A]\\nManID=2G\\n' >wrong.ini; ventlock-cli register wrong.ini --all",
    "sed 's/HART/HORT/' flow.ini >hort.ini; ventlock-cli verify hort.ini --db",
    "ventlock-cli database info --dsn NOWHERE",
    "ventlock-cli database create --file old.db --schema old --dsn OLD; "
    "ventlock-cli register flow.ini devices/level.ini --db --dsn OLD",
    "ventlock-cli register flow.ini --ini --ini-path none/Pyx.ini",
    "ventlock-cli register flow.ini --ini --ini-path devices",
    "echo mine >notes.txt; ventlock-cli register flow.ini --ini --report notes.txt",
    "ventlock-cli register flow.ini --ini --report flow.ini",
    "ventlock-cli export --db --dev-id 7 --output flow.ini",
    "ventlock-cli export --db --dev-id 7 --output Ddinstal.ini --force",
    "ventlock-cli database create --file new.db --dsn PYX",
    "ventlock-cli export --db --man-id 27",
    "ventlock-cli export --db --man-id 26",
    "ventlock-cli export --list",
    "ventlock-cli register flow.ini --ini --one-transaction",
    "ventlock-cli settings get Colour",
    "ventlock-cli settings set DDVersion 3",
};

std::vector<std::string> MessagesOfTable() {
    const std::string guide = ReadBytes(InSource("docs/guide.md"));
    std::istringstream lines(guide.substr(guide.find("| Message | What it means | What to do |")));
    std::vector<std::string> messages;
    for (std::string line; std::getline(lines, line) && line.starts_with("|");) {
        if (line.starts_with("| `")) messages.push_back(line.substr(3, line.find("` |") - 3));
    }
    return messages;
}

/// Without the marks that stand in front of a message.
std::vector<std::string> MessagesOf(const std::string& output) {
    constexpr std::string_view kProgram = "ventlock-cli: ";
    std::vector<std::string> messages;
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(kProgram)) line.erase(0, kProgram.size());
        line.erase(0, line.find_first_not_of(' '));
        messages.push_back(line);
    }
    return messages;
}

TEST(Errors, OfTheGuideAreThoseThatAreMet) {
    const std::vector<std::string> table = MessagesOfTable();
    EXPECT_GT(table.size(), 20U);
    std::vector<bool> isMet(table.size(), false);
    std::string mistakes;
    for (const char* const mistake : kMistakes) mistakes.append("$ ").append(mistake).append("\n$ echo $?\n");
    Reader reader;
    const Trial trial = reader.Run(ParseDocument("```console\n" + mistakes + "```\n"));
    ASSERT_EQ(trial.breaches.size(), 0U) << trial.breaches.front();
    for (std::size_t i = 0; i < std::size(kMistakes); ++i) {
        bool isTold = false;
        for (const std::string& message : MessagesOf(trial.printed[2 * i])) {
            for (std::size_t row = 0; row < table.size(); ++row) {
                if (!IsShownAs(message, table[row])) continue;
                isMet[row] = isTold = true;
            }
        }
        EXPECT_NE(trial.printed[2 * i + 1], "0\n") << kMistakes[i];
        EXPECT_TRUE(isTold) << kMistakes[i] << "\nprints what the table lacks:\n" << trial.printed[2 * i];
    }
    for (std::size_t row = 0; row < table.size(); ++row) {
        EXPECT_TRUE(isMet[row]) << "never printed as the table has it: " << table[row];
    }
}

}  // namespace
}  // namespace ventlock::test
