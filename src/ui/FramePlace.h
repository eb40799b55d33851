#pragma once

#include <wx/toplevel.h>

#include "platform/IWindowPlace.h"

namespace ventlock {

/// The place of a frame, as it is stored.
class FramePlace final : public IWindowPlace {
 public:
    /// `frame` must outlive this object.
    explicit FramePlace(wxTopLevelWindow& frame);
    FramePlace(const FramePlace&) = delete;
    FramePlace& operator=(const FramePlace&) = delete;

    [[nodiscard]] std::int16_t Left() const override;
    [[nodiscard]] std::int16_t Top() const override;
    void Move(std::int16_t left, std::int16_t top) override;

 private:
    struct Twips {
        std::int16_t left = 0;
        std::int16_t top = 0;
    };

    [[nodiscard]] bool IsRestored() const;
    [[nodiscard]] Twips Current() const;
    void TakePosition();
    void TakePositionOnceActive(wxActivateEvent& event);

    wxTopLevelWindow& frame_;
    wxPoint restored_;  ///< last position that was neither minimised nor maximised
    Twips given_;       ///< by the last Move
    wxPoint givenAt_;   ///< where the frame was put for it
    bool isSettled_ = false;
};

}  // namespace ventlock
