#include "ui/WindowEvents.h"

#include <wx/app.h>

#include <utility>

namespace ventlock {
namespace {

constexpr std::chrono::milliseconds kBetweenDispatches{10};

}  // namespace

WindowEvents::WindowEvents(std::function<void()> dispatch, Clock now)
    : dispatch_(std::move(dispatch)), now_(std::move(now)), last_(now_()) {}

void WindowEvents::Yield() {
    if (isDispatching_ || now_() - last_ < kBetweenDispatches) return;
    isDispatching_ = true;
    dispatch_();
    isDispatching_ = false;
    last_ = now_();
}

void DispatchPendingEvents() {
    wxTheApp->Yield(true);
}

}  // namespace ventlock
