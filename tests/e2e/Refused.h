#pragma once

#include <gtest/gtest.h>

#include "e2e/World.h"

namespace ventlock::test {

/// Arguments that register "entry.ini" in all three targets of the working folder.
inline const std::vector<std::string> kRegisterEntry = {
    "register", "entry.ini", "--all", "--ini-path", "Pyx.ini", "--ddinstall-path", "Ddinstal.ini"};

inline std::vector<std::string> With(std::vector<std::string> arguments,
                                     const std::vector<std::string>& more) {
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
}

/// Runs a call that must be refused with this exit code and exactly this text on the error stream, and
/// expects that nothing in the whole world has changed.
inline void ExpectRefused(const World& world, const std::vector<std::string>& arguments, int exitCode,
                          const std::string& message) {
    const auto before = world.Snapshot();
    const ProgramResult result = world.Run(arguments);
    EXPECT_EQ(result.exitCode, exitCode);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, message);
    EXPECT_EQ(world.Snapshot(), before);
}

/// The same call with --json: the same code, and one document that holds the message's first line.
inline void ExpectRefusedAsDocument(const World& world, const std::vector<std::string>& arguments,
                                    int exitCode, const std::string& text) {
    const auto before = world.Snapshot();
    const ProgramResult result = world.Run(With(arguments, {"--json"}));
    EXPECT_EQ(result.exitCode, exitCode);
    EXPECT_EQ(result.err, "");
    const auto document = DocumentOf(result.out);
    EXPECT_EQ(document.value("version", 0), 1);
    EXPECT_EQ(document.value("exitCode", -1), exitCode);
    EXPECT_EQ(document["error"].value("text", ""), text);
    EXPECT_NE(document["error"].value("advice", ""), "");
    EXPECT_EQ(world.Snapshot(), before);
}

}  // namespace ventlock::test
