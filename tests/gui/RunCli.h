#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "cli/CommandLine.h"
#include "gui/GuiWorld.h"

namespace ventlock::test {

/// What the command line answers on the world's machine. It takes the dictionary, which the window and it
/// share in this process, with it: no window may be open.
inline std::string RunCli(GuiWorld& world, const std::vector<std::string>& arguments) {
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(RunCommandLine(arguments, world.host, out, err, false), ExitCode::Done) << err.str();
    EXPECT_EQ(err.str(), "");
    return out.str();
}

}  // namespace ventlock::test
