// What the window program answers to its arguments.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "e2e/window/posix/WindowWorld.h"

namespace ventlock::test {
namespace {

using testing::HasSubstr;
using testing::Not;

class WindowCalled : public testing::Test {
 protected:
    [[nodiscard]] ProgramResult With(const std::vector<std::string>& arguments,
                                     bool toAFullDisk = false) const {
        ProgramCall call = world_.WindowCall();
        call.command.insert(call.command.end(), arguments.begin(), arguments.end());
        call.answersGoToAFullDisk = toAFullDisk;
        const Program program(call);
        return program.WaitForEnd();
    }

    const WindowWorld world_;
};

TEST_F(WindowCalled, ForItsVersionPrintsItAndEnds) {
    const ProgramResult result = With({"--version"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, "ventlock 2.1.5 (" + std::to_string(8 * sizeof(void*)) + " bit)\n");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(world_.Log(), "");
}

TEST_F(WindowCalled, ForHelpPrintsItAndEnds) {
    for (const char* const option : {"--help", "-h"}) {
        const ProgramResult result = With({option});
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.out,
                  "Opens the window; its help book (F1) tells the rest. ventlock-cli does the same from the "
                  "command line.\n"
                  "Usage: ventlock [-h] [--version]\n"
                  "  -h, --help\tPrint this help and end\n"
                  "  --version \tPrint the version and end\n");
        EXPECT_EQ(result.err, "");
    }
}

TEST_F(WindowCalled, WithAnythingElseTellsWhatIsWrongInALineAndEndsWithCode2) {
    const ProgramResult option = With({"--verbose"});
    EXPECT_EQ(option.exitCode, 2);
    EXPECT_EQ(option.out, "");
    EXPECT_EQ(option.err, "Unknown long option 'verbose'\n");
    const ProgramResult file = With({"flow.ini"});
    EXPECT_EQ(file.exitCode, 2);
    EXPECT_EQ(file.out, "");
    EXPECT_EQ(file.err, "Unexpected parameter 'flow.ini'\n");
}

TEST_F(WindowCalled, ForAnAnswerThatCannotBeWrittenEndsWithCode1) {
    EXPECT_EQ(With({"--version"}, true).exitCode, 1);
}

}  // namespace
}  // namespace ventlock::test
