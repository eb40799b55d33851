#pragma once

#include <wx/event.h>

#include <functional>
#include <string>

#include "stress/Dice.h"
#include "stress/StressWorld.h"
#include "stress/Trail.h"

namespace ventlock::test {

/// Who uses the window in a random sequence: decides by the dice, acts on the controls, and tells the trail
/// what was done.
class User {
 public:
    User(StressWorld& world, Dice& dice, Trail& trail) : world_(world), dice_(dice), trail_(trail) {}

    StressWorld& World() { return world_; }
    frmMain& Window() { return world_.Window(); }
    MainControls& Controls() { return world_.Controls(); }
    Dice& Decide() { return dice_; }

    /// Says to the trail what was decided.
    void Note(const std::string& detail) { trail_.Note(detail); }

    /// A text to type or paste: letters, digits, blanks, none, a long one, characters of other scripts.
    std::string Text();

    /// A text that a US keyboard has keys for.
    std::string Keys();

    /// A text box that can be used, its tab in front.
    TextField& Box();

    /// An editable list that can be used, its tab in front; nullptr when the one that was decided for cannot.
    EditableList* List();

    /// Puts a text into a text box as a paste of it does; nothing happens to a box that cannot be used.
    void Fill(std::size_t box, const std::string& text);

    /// Selects or deselects a version as a click on it does.
    void ToggleVersion(int index);

    /// Makes the entry one that every write command takes.
    void FillEntry();

    /// Names the target files that can be written, most of the time.
    void NameGoodFiles();

    /// Brings the window to the front and gives a control the keyboard.
    bool TakeKeyboard(wxWindow& control);

    /// Runs keys given by `press` in the control with the keyboard and waits until all of them have had their
    /// effect, whatever boxes that opened.
    void Press(const std::function<void()>& press);

    /// Chooses an item of a menu by its letters.
    void ChooseByKeys(char menu, const wxMenuItem& item);

    /// Presses a button by its event, or by the keyboard, or by the mouse.
    void PressButton(wxButton& button);

    /// Chooses a menu's item by its event or by its letters.
    void ChooseItem(char menu, const wxMenuItem& item);

 private:
    StressWorld& world_;
    Dice& dice_;
    Trail& trail_;
};

}  // namespace ventlock::test
