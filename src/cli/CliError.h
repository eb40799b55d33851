#pragma once

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "cli/ExitCode.h"

namespace ventlock {

/// Why a command ends before it is done: what, where and why in `what()`, then what the driver said and what
/// to do.
class CliError : public std::runtime_error {
 public:
    CliError(ExitCode code, const std::string& text, std::vector<std::string> details = {},
             std::string advice = {})
        : std::runtime_error(text), code_(code), details_(std::move(details)), advice_(std::move(advice)) {}

    [[nodiscard]] ExitCode Code() const noexcept { return code_; }

    /// Entries of the log and records of the driver, in order.
    [[nodiscard]] const std::vector<std::string>& Details() const noexcept { return details_; }

    /// What to do about it, or nothing.
    [[nodiscard]] const std::string& Advice() const noexcept { return advice_; }

 private:
    ExitCode code_;
    std::vector<std::string> details_;
    std::string advice_;
};

}  // namespace ventlock
