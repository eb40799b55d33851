#pragma once

#include <wx/toplevel.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/MainControls.h"
#include "ui/MainMenu.h"

namespace ventlock {

/// One text that the window takes from the dictionary.
struct Caption {
    std::string_view key;
    std::string_view suffix;  ///< appended to the dictionary's text whatever it ends in
    std::function<void(const std::string&)> set;
};

/// All captions in the order they are set: title and menus, tabs, buttons, then the labels tab by tab.
std::vector<Caption> Captions(wxTopLevelWindow& window, MainMenu& menu, MainControls& controls);

/// Those of the menu "Tools", which come behind them.
std::vector<Caption> ToolCaptions(MainMenu& menu);

}  // namespace ventlock
