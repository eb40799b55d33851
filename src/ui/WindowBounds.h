#pragma once

#include <wx/window.h>

#include "core/IList.h"

namespace ventlock {

/// A window's place and size on the screen, in pixels.
class WindowBounds final : public IBounds {
 public:
    /// `window` must outlive this object.
    explicit WindowBounds(wxWindow& window) : window_(window) {}

    [[nodiscard]] double Left() const override { return window_.GetScreenRect().x; }
    [[nodiscard]] double Top() const override { return window_.GetScreenRect().y; }
    [[nodiscard]] double Width() const override { return window_.GetScreenRect().width; }
    [[nodiscard]] double Height() const override { return window_.GetScreenRect().height; }
    void Move(double left, double top) override {
        window_.Move(static_cast<int>(left), static_cast<int>(top));
    }

 private:
    wxWindow& window_;
};

}  // namespace ventlock
