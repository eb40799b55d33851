#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "cli/CliError.h"

namespace ventlock {

/// What to tell of a call that the grammar of `app` does not understand: what is wrong with it, the option
/// that was probably meant, and the help of the command it is about.
CliError WrongCall(const CLI::App& app, const std::vector<std::string>& arguments,
                   const CLI::ParseError& error);

}  // namespace ventlock
