#pragma once

#include <chrono>
#include <functional>
#include <stdexcept>
#include <string>

namespace ventlock::test {

/// How long any one step may take, all its repetitions together. Ample: only a failing test waits so long.
constexpr std::chrono::seconds kPatience{30};

/// What was asked of the other program could not be answered, mostly because the thing asked is no more.
class Gone final : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// Fails the running test and leaves it.
[[noreturn]] void StopTest(const std::string& text);

/// Asks again and again until the answer is true; Gone counts as false. False when kPatience is over.
[[nodiscard]] bool ComesTrue(const std::function<bool()>& condition);

}  // namespace ventlock::test
