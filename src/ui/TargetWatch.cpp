#include "ui/TargetWatch.h"

#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace ventlock {
namespace {

constexpr int kPauseMs = 150;  // shorter than between two keys of most who type

}  // namespace

/// What a look that is under way knows of who waits for it: nobody, once that has gone.
struct TargetWatch::Link {
    std::mutex mutex;
    TargetWatch* watch = nullptr;
};

TargetWatch::TargetWatch(std::function<Look()> prepare,
                         std::function<void(std::optional<TargetState>)> onState)
    : prepare_(std::move(prepare)), onState_(std::move(onState)), link_(std::make_shared<Link>()) {
    link_->watch = this;
    pause_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { LookNow(); });
}

TargetWatch::~TargetWatch() {
    const std::lock_guard lock(link_->mutex);
    link_->watch = nullptr;
}

void TargetWatch::LookSoon() {
    pause_.StartOnce(kPauseMs);
}

void TargetWatch::LookNow() {
    if (isLooking_) {
        isToLookAgain_ = true;
        onState_(std::nullopt);
        return;
    }
    const auto run = [link = link_, look = prepare_()] {
        const TargetState state = look();
        const std::lock_guard lock(link->mutex);
        if (link->watch == nullptr) return;
        link->watch->CallAfter([watch = link->watch, state] { watch->Take(state); });
    };
    try {
        std::thread(run).detach();
        isLooking_ = true;
    } catch (const std::system_error&) {
        onState_(std::nullopt);  // no thread to be had: nothing is known
    }
}

void TargetWatch::Take(TargetState state) {
    isLooking_ = false;
    if (std::exchange(isToLookAgain_, false)) {
        LookNow();
    } else {
        onState_(state);
    }
}

}  // namespace ventlock
