#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ui/frmMain.h"

namespace ventlock::test {

/// A caption that the window takes from the dictionary.
struct CaptionRow {
    std::string name;  ///< of the control
    std::string key;
    std::string suffix;
    std::function<std::string(frmMain&)> shown;  ///< as it stands in the window, without a shortcut
};

/// The 26 captions of the window, its menus, tabs and buttons, in the order they are set.
std::vector<CaptionRow> WindowCaptions();

/// The 23 labels in the order they are set.
std::vector<CaptionRow> LabelCaptions();

/// Both, as one pass over the captions sets them.
std::vector<CaptionRow> PassCaptions();

/// The captions of the menu "Tools".
std::vector<CaptionRow> ToolsMenuCaptions();

/// The tool tips that come from the dictionary.
std::vector<CaptionRow> ToolTipCaptions();

/// All of them, the tool tips last.
std::vector<CaptionRow> AllCaptions();

}  // namespace ventlock::test
