#include "cli/GuideTables.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "cli/OwnPlaces.h"

namespace ventlock::test {
namespace {

CommandDescription Program() {
    CommandDescription write{"write", "Write a *.txt", {}, {}, {}};
    write.options = {
        {{"--help", "-h"}, std::nullopt, "Print this", "", false},
        {{"--to", "-t"}, ValueDescription{"PATH", ValueSource::Files, {}}, "Where to", "", true},
        {{"--form"}, ValueDescription{"FORM", ValueSource::Words, {"a", "b", "c"}}, "Its form", "b", false},
    };
    write.arguments = {{{"FILE", ValueSource::IniFiles, {}}, "What to write", true, true}};
    CommandDescription more{"more", "More of it.", {}, {}, {write}};
    return {"program", "Does it", {{{"--json"}, std::nullopt, "Answer as JSON", "", false}}, {}, {more}};
}

TEST(GuideTables, AreMadeAnewInTheirPlaces) {
    EXPECT_EQ(WithTables("# A\n<!-- table: commands -->\nold\n<!-- end of table -->\nB\n", Program()),
              "# A\n<!-- table: commands -->\n| Command | What it does |\n|---|---|\n"
              "| `more write --to PATH FILE...` | Write a \\*.txt |\n<!-- end of table -->\nB\n");
    EXPECT_EQ(WithTables("<!-- table: options -->\n<!-- end of table -->\n", Program()),
              "<!-- table: options -->\nAll commands:\n\n| Option | Meaning |\n|---|---|\n"
              "| `--json` | Answer as JSON |\n\n`more write`:\n\n| Option | Meaning |\n|---|---|\n"
              "| `--to`, `-t PATH` | Where to |\n"
              "| `--form FORM` | Its form: `a`, `b` or `c`; without it `b` |\n<!-- end of table -->\n");
}

TEST(GuideTables, HaveEveryExitCodeVariableAndFile) {
    const auto table = [](const std::string& name) {
        return WithTables("<!-- table: " + name + " -->\n<!-- end of table -->\n", Program());
    };
    for (const char* const code : {"| 0 | everything ", "| 1 | ", "| 2 | ", "| 3 | a target cannot "}) {
        EXPECT_NE(table("exit codes").find(code), std::string::npos) << code;
    }
    for (const Place& place : EnvironmentVariables()) {
        EXPECT_NE(table("environment").find("| `" + std::string(place.name) + "` | "), std::string::npos);
    }
    for (const Place& place : KeptFiles()) {
        EXPECT_NE(table("files").find("| `" + std::string(place.name) + "` | "), std::string::npos);
    }
}

TEST(GuideTables, ATextWithoutThemStaysAsItIs) {
    const std::string text = "a\n\n  <!-- table: none -->\n| b |\n";
    EXPECT_EQ(WithTables(text, Program()), text);
}

TEST(GuideTables, AnUnknownOneOrOneWithoutEndIsRefused) {
    const auto refusal = [](const std::string& text) -> std::string {
        try {
            return WithTables(text, Program());
        } catch (const std::runtime_error& error) {
            return error.what();
        }
    };
    EXPECT_EQ(refusal("<!-- table: colours -->\n<!-- end of table -->\n"), "there is no table \"colours\"");
    EXPECT_EQ(refusal("<!-- table: files -->\nb\n"), "the table \"files\" has no end");
}

}  // namespace
}  // namespace ventlock::test
