#include "support/outside/Waiting.h"

#include <gtest/gtest.h>

#include <thread>

namespace ventlock::test {

void StopTest(const std::string& text) {
    ADD_FAILURE() << text;
    // Known to the test runner as one that has been reported already.
    throw testing::AssertionException(
        testing::TestPartResult(testing::TestPartResult::kFatalFailure, __FILE__, __LINE__, text.c_str()));
}

bool ComesTrue(const std::function<bool()>& condition) {
    constexpr std::chrono::milliseconds kBetween{10};
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (std::chrono::steady_clock::now() < end) {
        try {
            if (condition()) return true;
        } catch (const Gone&) {
            // What was there a moment ago has been replaced: look again.
        }
        std::this_thread::sleep_for(kBetween);
    }
    return false;
}

}  // namespace ventlock::test
