#pragma once

namespace ventlock {

/// The pending-events hook of long work.
class IEvents {
 public:
    virtual ~IEvents() = default;

    /// Lets pending window events run. Called once per row or item, so it must be cheap: an implementation
    /// dispatches only when 10 ms have passed since the last dispatch, and never from within itself.
    virtual void Yield() = 0;
};

/// For programs without a window: there is nothing to let run.
class NoEvents final : public IEvents {
 public:
    void Yield() override {}
};

}  // namespace ventlock
