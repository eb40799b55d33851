#include "ui/WindowEvents.h"

#include <wx/app.h>

#include <utility>

#include "ui/Busy.h"

namespace ventlock {
namespace {

constexpr std::chrono::milliseconds kBetweenDispatches{10};

}  // namespace

WindowEvents::WindowEvents(std::function<void()> dispatch, Clock now)
    : dispatch_(std::move(dispatch)), now_(std::move(now)), last_(now_()) {}

void WindowEvents::Yield() {
    if (isDispatching_ || now_() - last_ < kBetweenDispatches) return;
    const Busy dispatching(isDispatching_);
    dispatch_();
    last_ = now_();
}

void DispatchPendingEvents() {
    wxTheApp->Yield(true);
}

}  // namespace ventlock
