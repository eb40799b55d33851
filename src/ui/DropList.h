#pragma once

#include <wx/button.h>
#include <wx/textctrl.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace ventlock {

/// What a field's list offers at the moment it drops down.
struct DropListContent {
    struct Item {
        std::string text;
        std::string hint;  ///< shown behind the text; "" for none
    };
    std::vector<Item> items;
    std::string whenEmpty;  ///< shown where there are no items; cannot be chosen
    std::string clear;      ///< caption of the command that empties the list; "" for a list without one
};

/// What a user did with a list: picked the item of an index, or had the list emptied.
struct DropListChoice {
    std::optional<std::size_t> item;
    bool isToClear = false;
};

/// The list of a field that is typed into. It drops down below the field, from the button beside it or with
/// Alt+Down in the field; what it offers is found out only then.
class DropList {
 public:
    /// `field` and `button` must outlive this object. `onDrop` runs when the list is asked for; it is to call
    /// Choose.
    DropList(wxTextCtrl& field, wxButton& button, std::function<void()> onDrop);
    DropList(const DropList&) = delete;
    DropList& operator=(const DropList&) = delete;

    /// Drops the list down and waits for its end; a list that is closed without a choice gives none. The
    /// field has the keyboard then.
    [[nodiscard]] DropListChoice Choose(const DropListContent& content);

    [[nodiscard]] wxButton& Button() const noexcept { return button_; }

 private:
    wxTextCtrl& field_;
    wxButton& button_;
    std::function<void()> onDrop_;
};

}  // namespace ventlock
