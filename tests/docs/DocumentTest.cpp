// What is taken for a command, and that none escapes.

#include "docs/Document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(Document, HasItsBlocksWithLanguageFileAndReason) {
    const Document document = ParseDocument(
        "Text\n\n```ini flow.ini\n[A]\n\nB=1\n```\n\n*Not tried by the tests: it builds for "
        "minutes.*\n\n```sh\n"
        "make\n```\n");
    EXPECT_THAT(document.problems, IsEmpty());
    ASSERT_EQ(document.blocks.size(), 2U);
    EXPECT_EQ(document.blocks[0].line, 3);
    EXPECT_EQ(document.blocks[0].language, "ini");
    EXPECT_EQ(document.blocks[0].file, "flow.ini");
    EXPECT_EQ(document.blocks[0].text, "[A]\n\nB=1\n");
    EXPECT_EQ(document.blocks[0].untried, "");
    EXPECT_EQ(document.blocks[1].text, "make\n");
    EXPECT_EQ(document.blocks[1].untried, "it builds for minutes");
}

TEST(Document, ABlockThatNoTestCanRunNeedsAReason) {
    EXPECT_THAT(ParseDocument("```powershell\ndir\n```\n").problems,
                ElementsAre(HasSubstr("line 1: a block that no test can run")));
    EXPECT_THAT(
        ParseDocument("*Not tried by the tests: it is for Windows.*\n```powershell\ndir\n```\n").problems,
        IsEmpty());
    EXPECT_THAT(ParseDocument("*Not tried by the tests: *\n```yaml\na: b\n```\n").problems,
                ElementsAre(HasSubstr("line 2")));
}

TEST(Document, ABlockThatHidesItsLanguageIsAProblem) {
    EXPECT_THAT(ParseDocument("```\nls\n```\n").problems,
                ElementsAre(HasSubstr("line 1: a block in no known")));
    EXPECT_THAT(ParseDocument("```bash\nls\n```\n").problems, ElementsAre(HasSubstr("\"bash\"")));
    EXPECT_THAT(ParseDocument("Text:\n\n    $ ls\n\nText\n").problems,
                ElementsAre(HasSubstr("line 3: a block made by indentation")));
    EXPECT_THAT(ParseDocument("- a\n\n  ```sh\n  ls\n  ```\n").problems.size(), 2U);
    EXPECT_THAT(ParseDocument("```sh\nls\n").problems, ElementsAre(HasSubstr("without end")));
    EXPECT_THAT(ParseDocument("1. a\n\n    more of the item\n").problems, IsEmpty());
}

TEST(Document, OfAManualPageHasItsExamples) {
    const Document document = ParseManual(
        "Text.\n.Dl $ \\&ventlock\\-cli check flow.ini\n.Bd -literal -offset indent\n$ a \\-\\-b\n$ "
        "c\n.Ed\n");
    ASSERT_EQ(document.blocks.size(), 2U);
    EXPECT_EQ(document.blocks[0].text, "$ ventlock-cli check flow.ini\n");
    EXPECT_EQ(document.blocks[1].text, "$ a --b\n$ c\n");
}

TEST(Document, HasTheCodeSpansOfItsText) {
    EXPECT_THAT(CodeSpans("a `b c` `d`\n```sh\n`e`\n```\n`f\n"), ElementsAre("b c", "d"));
}

}  // namespace
}  // namespace ventlock::test
