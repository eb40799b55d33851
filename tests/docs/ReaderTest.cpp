// That the reader sees it when a document says otherwise than the program does.

#include "docs/Reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

Trial Tried(const std::string& console) {
    return Reader().Run(ParseDocument("```console\n" + console + "```\n"));
}

TEST(Reader, GoesOnFromCommandToCommand) {
    const Trial trial = Tried(
        "$ cd ..\n$ NAME=x; false\n$ echo $?\n1\n$ echo $NAME \\\n> $HOME  # the home folder\nx /home/me\n$ "
        "cd ~-; pwd\n/home/me/flow\n");
    EXPECT_THAT(trial.breaches, IsEmpty());
    EXPECT_EQ(trial.commands, 5);
}

TEST(Reader, SeesACommandThatFails) {
    EXPECT_THAT(Tried("$ ventlock-cli check none.ini\n").breaches,
                ElementsAre(HasSubstr("line 2: ventlock-cli check none.ini\nends with 2\n")));
    EXPECT_THAT(Reader().Run(ParseDocument("```sh\nfalse\ntrue\n```\n")).breaches,
                ElementsAre(HasSubstr("ends with 1")));
    EXPECT_THAT(Tried("$ exit 0\n$ true\n").breaches, ElementsAre(HasSubstr("the shell ended here")));
}

TEST(Reader, SeesOtherOutput) {
    EXPECT_THAT(Tried("$ ventlock-cli settings get DevRev\n01\n").breaches, IsEmpty());
    EXPECT_THAT(Tried("$ ventlock-cli settings get DevRev\n02\n").breaches,
                ElementsAre(HasSubstr("prints:\n01\nand is shown as:\n02\n")));
}

TEST(Reader, HasADatabaseUnlessTheDocumentMakesOne) {
    EXPECT_THAT(Tried("$ ventlock-cli verify flow.ini devices --all --quiet\n").breaches, IsEmpty());
    EXPECT_THAT(Tried("$ ls\nflow.ini\n$ ventlock-cli database create --file pyx.db\n"
                      "/home/me/flow/pyx.db: made with the current schema\n")
                    .breaches,
                IsEmpty());
}

TEST(Reader, MakesFilesAndLeavesOutWhatHasAReason) {
    const Trial trial = Reader().Run(ParseDocument(
        "```ini a/b.ini\n[A]\n```\n\n*Not tried by the tests: it needs root.*\n\n```sh\nfalse\n```\n\n"
        "```console\n$ cat a/b.ini\n[A]\n```\n"));
    EXPECT_THAT(trial.breaches, IsEmpty());
    EXPECT_THAT(trial.untried, ElementsAre("line 7: it needs root"));
    EXPECT_EQ(trial.commands, 1);
}

TEST(IsShownAs, ComparesLinesAndKnowsTheMarkForAnyText) {
    EXPECT_TRUE(IsShownAs("a\nb \n", "a\nb\n"));
    EXPECT_FALSE(IsShownAs("a\nb\nc\n", "a\nb\n"));
    EXPECT_FALSE(IsShownAs("a\n", "a\nb\n"));
    EXPECT_TRUE(IsShownAs("a\nb\nc\nd\n", "a\n...\nd\n"));
    EXPECT_TRUE(IsShownAs("a\nd\n", "a\n...\nd\n"));
    EXPECT_FALSE(IsShownAs("a\nb\nc\n", "a\n...\nd\n"));
    EXPECT_TRUE(IsShownAs("made 12:30 here\n", "made ... here\n"));
    EXPECT_FALSE(IsShownAs("made 12:30 there\n", "made ... here\n"));
}

}  // namespace
}  // namespace ventlock::test
