#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "e2e/World.h"

namespace ventlock::test {

/// One system call that the program makes on something in its working folder.
struct SystemCall {
    std::string name;         ///< "openat"
    std::size_t ordinal = 0;  ///< which of all its calls of this name, from 1
    std::string line;         ///< the whole call as the tracer writes it
};

/// Runs the program under a tracer and gives its calls that name, or whose descriptor is, the working folder
/// or something in it.
std::vector<SystemCall> TracedCalls(const World& world, const std::vector<std::string>& arguments);

/// Runs the program and has the system fail one of its calls.
/// @param error  the system's name of it, "ENOSPC"
ProgramResult RunWithFault(const World& world, const std::vector<std::string>& arguments,
                           const SystemCall& call, const std::string& error);

}  // namespace ventlock::test
