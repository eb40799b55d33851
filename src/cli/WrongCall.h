#pragma once

#include <CLI/CLI.hpp>

#include "cli/CliError.h"

namespace ventlock {

/// What to tell of the call that `app` has parsed as far as it understands it: what is wrong with it, the
/// command or option that was probably meant, and the help of the command it is about.
CliError WrongCall(const CLI::App& app, const CLI::ParseError& error);

}  // namespace ventlock
