#pragma once

#include <wx/event.h>
#include <wx/timer.h>

#include <functional>
#include <memory>
#include <optional>

#include "files/TargetState.h"

namespace ventlock {

/// Looks at the file that a field names, soon after it is asked to and never on the window's own thread: a
/// drive or a server that does not answer holds nobody up.
class TargetWatch final : private wxEvtHandler {
 public:
    /// Finds out a state; runs on a thread of its own, perhaps longer than the window lives, so that it must
    /// own all that it touches.
    using Look = std::function<TargetState()>;

    /// @param prepare  asked on the window's thread when it is time to look
    /// @param onState  told what was found; nothing, when a look before has not come to an end
    TargetWatch(std::function<Look()> prepare, std::function<void(std::optional<TargetState>)> onState);
    ~TargetWatch() override;
    TargetWatch(const TargetWatch&) = delete;
    TargetWatch& operator=(const TargetWatch&) = delete;

    /// Looks once nothing has asked for it any more for a moment.
    void LookSoon();

 private:
    struct Link;

    void LookNow();
    void Take(TargetState state);

    std::function<Look()> prepare_;
    std::function<void(std::optional<TargetState>)> onState_;
    std::shared_ptr<Link> link_;
    wxTimer pause_;
    bool isLooking_ = false;
    bool isToLookAgain_ = false;
};

}  // namespace ventlock
