// The guide to the command line, docs/command-line.md, beside the program's grammar.

#include <gtest/gtest.h>

#include <string>

#include "cli/CommandDescription.h"
#include "unit/cli/CommandLineHost.h"

namespace ventlock::test {
namespace {

/// True when the words stand in the guide as a whole, up to a blank or the end of a quotation.
bool Tells(const std::string& guide, const std::string& words) {
    return guide.find(words + ' ') != std::string::npos || guide.find(words + '`') != std::string::npos;
}

/// @param path  the commands that lead to `command`, as they are typed
void ExpectTold(const std::string& guide, const CommandDescription& command, const std::string& path) {
    // "settings list`, `get NAME`, `set NAME VALUE" share a row.
    EXPECT_TRUE(path.empty() || Tells(guide, path) || Tells(guide, '`' + command.name)) << path;
    for (const OptionDescription& option : command.options) {
        EXPECT_TRUE(Tells(guide, option.names.front())) << path << ' ' << option.names.front();
    }
    for (const CommandDescription& part : command.commands) {
        ExpectTold(guide, part, path.empty() ? part.name : path + ' ' + part.name);
    }
}

TEST(Guide, TellsEveryCommandAndOption) {
    CommandLineHost host;
    ExpectTold(ReadBytes(VENTLOCK_SOURCE_FOLDER "/docs/command-line.md"), DescribeCommandLine(host), "");
}

}  // namespace
}  // namespace ventlock::test
