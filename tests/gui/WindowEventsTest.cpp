#include "ui/WindowEvents.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace ventlock::test {
namespace {

using std::chrono::milliseconds;

class PendingEvents : public testing::Test {
 protected:
    std::chrono::steady_clock::time_point now_;
    int runs_ = 0;
    std::function<void()> meanwhile_ = [] {};
    WindowEvents events_{[this] {
                             ++runs_;
                             meanwhile_();
                         },
                         [this] { return now_; }};
};

TEST_F(PendingEvents, RunOnlyWhenTenMillisecondsHavePassed) {
    events_.Yield();
    EXPECT_EQ(runs_, 0);
    now_ += milliseconds(9);
    events_.Yield();
    EXPECT_EQ(runs_, 0);
    now_ += milliseconds(1);
    events_.Yield();
    EXPECT_EQ(runs_, 1);
}

TEST_F(PendingEvents, RunAgainTenMillisecondsLater) {
    now_ += milliseconds(10);
    events_.Yield();
    events_.Yield();
    EXPECT_EQ(runs_, 1);
    now_ += milliseconds(10);
    events_.Yield();
    EXPECT_EQ(runs_, 2);
}

TEST_F(PendingEvents, ThatTakeLongLetTheWorkGoOnFirst) {
    meanwhile_ = [this] { now_ += milliseconds(50); };
    now_ += milliseconds(10);
    events_.Yield();
    events_.Yield();
    EXPECT_EQ(runs_, 1);
}

TEST_F(PendingEvents, NeverRunWithinThemselves) {
    meanwhile_ = [this] {
        now_ += milliseconds(50);
        if (runs_ < 3) events_.Yield();
    };
    now_ += milliseconds(10);
    events_.Yield();
    EXPECT_EQ(runs_, 1);
}

TEST_F(PendingEvents, RunAgainAfterOneOfThemFailed) {
    meanwhile_ = [] { throw std::runtime_error("an event's own error"); };
    now_ += milliseconds(10);
    EXPECT_THROW(events_.Yield(), std::runtime_error);
    meanwhile_ = [] {};
    now_ += milliseconds(10);
    events_.Yield();
    EXPECT_EQ(runs_, 2);
}

}  // namespace
}  // namespace ventlock::test
