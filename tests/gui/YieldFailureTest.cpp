#include <gtest/gtest.h>

#include <chrono>

#include "base/RunTimeError.h"
#include "support/Raised.h"
#include "ui/WindowEvents.h"

namespace ventlock::test {
namespace {

TEST(Yield, DispatchesAgainAfterAnEventHasFailed) {
    int dispatches = 0;
    std::chrono::steady_clock::time_point now;
    const auto dispatch = [&] {
        if (++dispatches == 1) throw RunTimeError(ErrorNumber::Overflow);
    };
    WindowEvents events(dispatch, [&] { return now += std::chrono::milliseconds(10); });
    EXPECT_EQ(NumberRaisedBy([&] { events.Yield(); }), 6);
    events.Yield();
    EXPECT_EQ(dispatches, 2);
}

}  // namespace
}  // namespace ventlock::test
