#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "e2e/World.h"

namespace ventlock::test {

/// One system call that the program makes on something in its working folder. The run that finds it and the
/// run that fails it are two, and a program's other calls are not always as many: a sanitizer reads the list
/// of the program's own memory in as many pieces as the addresses of the day make long. What a call is known
/// by is therefore its file and its place among the calls on that file.
struct SystemCall {
    std::string name;         ///< "openat"
    std::size_t ordinal = 0;  ///< which of all its calls of this name it was, from 1
    std::string file;         ///< "./Pyx.ini", with a star for what is made up anew in each run
    std::size_t nth = 0;      ///< which of its calls of this name on this file, from 1
    std::string line;         ///< the whole call as the tracer writes it
};

/// Runs the program under a tracer and gives its calls that name, or whose descriptor is, the working folder
/// or something in it.
std::vector<SystemCall> TracedCalls(const World& world, const std::vector<std::string>& arguments);

/// Runs the program and has the system fail one of its calls.
/// @param error  the system's name of it, "ENOSPC"
/// @return what came of it; nothing when the call that failed was another one, because this run had made more
///         or fewer calls before it: to be tried again in a new world
std::optional<ProgramResult> RunWithFault(const World& world, const std::vector<std::string>& arguments,
                                          const SystemCall& call, const std::string& error);

}  // namespace ventlock::test
