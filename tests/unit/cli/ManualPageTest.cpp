#include "cli/ManualPage.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "unit/cli/CommandLineHost.h"

namespace ventlock::test {
namespace {

constexpr const char* kOutline = ".Sh A\n%COMMANDS%\n%OPTIONS%\n.Sh B\n%EXIT STATUS%\n%EXAMPLES%\n";

CommandDescription Program() {
    CommandDescription write{"write", "Write it", {}, {}, {}};
    write.options = {
        {{"--help", "-h"}, std::nullopt, "Print this", "", false},
        {{"--to"}, ValueDescription{"PATH", ValueSource::Files, {}}, ".hidden\\file", "", true},
        {{"--form", "-f"},
         ValueDescription{"FORM", ValueSource::Words, {"old", "new"}},
         "Its form",
         "new",
         false},
    };
    write.arguments = {{{"FILE", ValueSource::IniFiles, {}}, "What to write", true, true},
                       {{"KIND", ValueSource::Words, {"a", "b", "c"}}, "How", true, false}};
    CommandDescription more{"more", "More of it.", {}, {}, {write}};
    return {"program", "Does it", {{{"--json"}, std::nullopt, "Answer as JSON", "", false}}, {}, {more}};
}

TEST(ManualPage, HasWhatTheGrammarSaysInPlaceOfItsLines) {
    const std::string page = ManualPage(kOutline, Program());
    const std::string expected =
        ".Sh A\n"
        ".Bl -tag -width Ds\n"
        ".It Cm \\&more write Fl \\&\\-to Ar \\&PATH Oo Ar option ... Oc Ar \\&FILE ... Ar \\&KIND\n"
        "Write it.\n"
        "KIND is a, b or c.\n"
        ".Bl -tag -width Ds -compact\n"
        ".It Fl \\&\\-to Ar \\&PATH\n"
        "\\&.hidden\\efile.\n"
        ".It Fl \\&\\-form , Fl \\&f Ar \\&FORM\n"
        "Its form.\n"
        "FORM is old or new; new when it is not given.\n"
        ".El\n"
        ".El\n"
        ".Bl -tag -width Ds -compact\n"
        ".It Fl \\&\\-json\n"
        "Answer as JSON.\n"
        ".El\n"
        ".Sh B\n"
        ".Bl -tag -width Ds -compact\n"
        ".It 0\n";
    EXPECT_EQ(page.substr(0, expected.size()), expected);
}

TEST(ManualPage, TellsEveryCommandAndOptionOfTheProgram) {
    CommandLineHost host;
    const std::string page = ManualPage(kOutline, DescribeCommandLine(host));
    for (const char* const part :
         {".It Cm \\&register Oo Ar option ... Oc Ar \\&FILE ...\n", ".It Cm \\&check ",
          ".It Cm \\&database create Fl \\&\\-file Ar \\&PATH Oo Ar option ... Oc\n",
          ".It Cm \\&database info ", ".It Cm \\&database list ", ".It Cm \\&database sources\n",
          ".It Cm \\&settings list\n", ".It Cm \\&settings get Ar \\&NAME\n",
          ".It Cm \\&settings set Ar \\&NAME Ar \\&VALUE\n", ".It Fl \\&\\-one\\-transaction\n",
          ".It Fl \\&\\-timeout Ar \\&SECONDS\n", ".It Fl \\&\\-quiet , Fl \\&q\n",
          ".It 3\nA target cannot be reached.\nUnknown data source, missing driver, ",
          ".Dl $ \\&ventlock\\-cli check flow.ini\n"}) {
        EXPECT_NE(page.find(part), std::string::npos) << part << page;
    }
}

TEST(ManualPage, LongTextsAreBrokenIntoLines) {
    CommandDescription program = Program();
    program.options[0].text =
        std::string(40, 'a') + ' ' + std::string(37, 'b') + " .c '" + std::string(75, 'd');
    const std::string expected = std::string(40, 'a') + ' ' + std::string(37, 'b') + "\n\\&.c\n\\&'" +
                                 std::string(75, 'd') + ".\n.El\n";
    EXPECT_NE(ManualPage(kOutline, program).find(expected), std::string::npos);
}

TEST(ManualPage, AnOutlineWithoutOneOfTheLinesIsRefused) {
    try {
        ManualPage("%COMMANDS%\n%OPTIONS%\n%EXIT STATUS%\n", Program());
        ADD_FAILURE() << "nothing was refused";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "the outline lacks the line %EXAMPLES%");
    }
}

TEST(ManualPage, TellsVariablesAndFiles) {
    const std::string page = WithPlaces(".Sh A\n%ENVIRONMENT%\n.Sh B\n%FILES%\nC\n");
    const std::string begin =
        ".Sh A\n.Bl -tag -width Ds\n.It Ev VENTLOCK_REGISTRY\nThe file that settings are kept in, in place "
        "of";
    EXPECT_EQ(page.substr(0, begin.size()), begin);
    EXPECT_NE(page.find(".El\n.Sh B\n.Bl -tag -width Ds\n.It Pa ~/.config/ventlock/registry.ini\n"),
              std::string::npos)
        << page;
    EXPECT_EQ(page.find('`'), std::string::npos);
    EXPECT_TRUE(page.ends_with(".El\nC\n"));
    EXPECT_THROW(WithPlaces("%FILES%\n"), std::runtime_error);
}

}  // namespace
}  // namespace ventlock::test
