#include "ui/FramePlace.h"

#include <wx/display.h>

#include "entry/WindowPlace.h"

namespace ventlock {

FramePlace::FramePlace(wxTopLevelWindow& frame)
    : frame_(frame), restored_(frame.GetPosition()), givenAt_(restored_) {
    frame_.Bind(wxEVT_MOVE, [this](wxMoveEvent& event) {
        event.Skip();
        if (isSettled_) TakePosition();
    });
    frame_.Bind(wxEVT_ACTIVATE, &FramePlace::TakePositionOnceActive, this);
}

bool FramePlace::IsRestored() const {
    return !frame_.IsIconized() && !frame_.IsMaximized();
}

void FramePlace::TakePosition() {
    if (frame_.IsShown() && IsRestored()) restored_ = frame_.GetPosition();
}

// While the window manager puts its border around a new frame, positions are told that are none: they do not
// count until the frame becomes active.
void FramePlace::TakePositionOnceActive(wxActivateEvent& event) {
    event.Skip();
    if (!event.GetActive()) return;
    isSettled_ = true;
    TakePosition();
}

// A frame that nobody has moved keeps the place it was given to the twip, also one that had to be shown
// elsewhere.
FramePlace::Twips FramePlace::Current() const {
    return restored_ == givenAt_ ? given_ : Twips{ToTwips(restored_.x), ToTwips(restored_.y)};
}

std::int16_t FramePlace::Left() const {
    return Current().left;
}

std::int16_t FramePlace::Top() const {
    return Current().top;
}

void FramePlace::Move(std::int16_t left, std::int16_t top) {
    if (!IsRestored()) return;
    given_ = {left, top};
    wxPoint place(ToPixels(left), ToPixels(top));
    if (wxDisplay::GetFromPoint(place) == wxNOT_FOUND) place = wxDisplay(0u).GetClientArea().GetTopLeft();
    givenAt_ = restored_ = place;
    // The toolkit does not move a frame to where it believes it to be, which is (0, 0) before the first Show:
    // the window manager would then choose a place.
    if (!frame_.IsShown() && frame_.GetPosition() == place) frame_.Move(place + wxPoint(1, 1));
    frame_.Move(place);
}

}  // namespace ventlock
