#include "ui/TargetWatch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

#include "gui/Input.h"

namespace ventlock::test {
namespace {

using States = std::vector<std::optional<TargetState>>;

/// A look that does not come back before it is let go.
struct SlowLook {
    std::promise<void> release;
    std::shared_future<void> isReleased{release.get_future()};

    TargetWatch::Look Giving(TargetState state) const {
        return [waited = isReleased, state] {
            waited.wait();
            return state;
        };
    }
};

class Watch : public testing::Test {
 protected:
    void Expect(const char* what, const States& expected) {
        WaitUntil(what, [&] { return told_ == expected; });
        EXPECT_EQ(told_, expected);
    }

    TargetWatch::Look next_ = [] { return TargetState::WillBeMade; };
    int prepared_ = 0;
    States told_;
    std::unique_ptr<TargetWatch> watch_ = std::make_unique<TargetWatch>(
        [this] {
            ++prepared_;
            return next_;
        },
        [this](std::optional<TargetState> state) { told_.push_back(state); });
};

TEST_F(Watch, LooksOnceForManyWishes) {
    for (int i = 0; i < 10; ++i) watch_->LookSoon();
    EXPECT_EQ(prepared_, 0) << "not at once";
    Expect("the state", {TargetState::WillBeMade});
    EXPECT_EQ(prepared_, 1);
}

TEST_F(Watch, LooksOnAThreadOfItsOwn) {
    const std::thread::id window = std::this_thread::get_id();
    auto other = std::make_shared<std::atomic<bool>>(false);
    next_ = [window, other] {
        *other = std::this_thread::get_id() != window;
        return TargetState::Writable;
    };
    watch_->LookSoon();
    Expect("the state", {TargetState::Writable});
    EXPECT_TRUE(*other);
}

TEST_F(Watch, TellsNothingWhileALookHangsAndTheNextAnswerBehindIt) {
    SlowLook slow;
    next_ = slow.Giving(TargetState::ReadOnly);
    watch_->LookSoon();
    WaitUntil("the look", [&] { return prepared_ == 1; });
    next_ = [] { return TargetState::FolderMissing; };
    watch_->LookSoon();
    Expect("the wish behind it", {std::nullopt});
    slow.release.set_value();
    Expect("the answer to the latest wish", {std::nullopt, TargetState::FolderMissing});
    EXPECT_EQ(prepared_, 2);
}

TEST_F(Watch, MayGoWhileALookHangs) {
    SlowLook slow;
    next_ = slow.Giving(TargetState::ReadOnly);
    watch_->LookSoon();
    WaitUntil("the look", [&] { return prepared_ == 1; });
    watch_.reset();
    slow.release.set_value();
    Pump();
    EXPECT_TRUE(told_.empty());
}

}  // namespace
}  // namespace ventlock::test
