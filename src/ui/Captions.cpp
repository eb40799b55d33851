#include "ui/Captions.h"

#include <cstddef>

#include "ui/WxText.h"

namespace ventlock {
namespace {

using Setter = std::function<void(const std::string&)>;

Setter Item(wxMenuItem* item) {
    return [item](const std::string& text) { MainMenu::SetCaption(*item, text); };
}

// A control with a new caption is measured anew, and most of them are born with the one they are given.
Setter Control(wxControl* control) {
    return [control](const std::string& caption) {
        const wxString text = ToWx(caption);
        if (control->GetLabel() != text) control->SetLabel(text);
    };
}

Setter ToolTip(wxControl* control) {
    return [control](const std::string& text) { control->SetToolTip(ToWx(text)); };
}

}  // namespace

std::vector<Caption> Captions(wxTopLevelWindow& window, MainMenu& menu, MainControls& controls) {
    const auto title = [&](const std::string& text) { window.SetTitle(ToWx(text)); };
    const auto bar = [&](std::size_t position) -> Setter {
        return [&, position](const std::string& text) { menu.bar->SetMenuLabel(position, ToWx(text)); };
    };
    const auto tab = [&](std::size_t page) -> Setter {
        return [&, page](const std::string& text) { controls.sstVentlock->SetPageText(page, ToWx(text)); };
    };
    const auto label = [&](std::size_t index) { return Control(controls.lblMain[index]); };
    return {
        {"IDS_TITLE", "", title},
        {"IDS_MNU_FILE", "", bar(0)},
        {"IDS_MNU_SELECT_DD", "...", Item(menu.mnuSelectDDInstall)},
        {"IDS_MNU_SELECT_INI", "...", Item(menu.mnuSelectINI)},
        {"IDS_MNU_WRITE_DB", "", Item(menu.mnuWriteDB)},
        {"IDS_MNU_WRITE_INI", "", Item(menu.mnuWriteINI)},
        {"IDS_MNU_WRITE_DD", "", Item(menu.mnuWriteDDInstall)},
        {"IDS_MNU_FILE_EXIT", "", Item(menu.mnuExit)},
        {"IDS_MNU_EDIT", "", bar(1)},
        {"IDS_MNU_EDIT_COPY", "", Item(menu.mnuCopy)},
        {"IDS_MNU_EDIT_CUT", "", Item(menu.mnuCut)},
        {"IDS_MNU_EDIT_PASTE", "", Item(menu.mnuPaste)},
        {"IDS_MNU_CLEAR", "", Item(menu.mnuClear)},
        {"IDS_MNU_HELP", "", bar(2)},
        {"IDS_MNU_HELP_INDEX", "...", Item(menu.mnuHelpSearch)},
        {"IDS_MNU_HELP_CONTENTS", "...", Item(menu.mnuHelpContents)},
        {"IDS_MNU_HELP_ABOUT", "...", Item(menu.mnuHelpAbout)},
        {"IDS_TAB_GEN", "", tab(0)},
        {"IDS_TAB_MAN", "", tab(1)},
        {"IDS_TAB_DEV", "", tab(2)},
        {"IDS_TAB_REV", "", tab(3)},
        {"IDS_CMD_WRITE_DB", "", Control(controls.cmdWriteDB)},
        {"IDS_CMD_WRITE_INI", "", Control(controls.cmdWriteINI)},
        {"IDS_CMD_WRITE_DD", "", Control(controls.cmdWriteDDInstall)},
        {"IDS_CMD_CLOSE", "", Control(controls.cmdClose)},
        {"IDS_CMD_SWITCH", "", Control(controls.cmdSwitchDSN)},
        // The labels' numbers do not follow their order.
        {"IDS_LBL_DSN", ":", label(0)},
        {"IDS_LBL_DD", ":", label(1)},
        {"IDS_LBL_INI", ":", label(2)},
        {"IDS_LBL_ID", ":", label(3)},
        {"IDS_LBL_NAME", ":", label(4)},
        {"IDS_LBL_DESC", ":", label(5)},
        {"IDS_LBL_PROT", ":", label(6)},
        {"IDS_LBL_CONV_CAT", "", label(20)},
        {"IDS_LBL_ID", ":", label(7)},
        {"IDS_LBL_NAME", ":", label(8)},
        {"IDS_LBL_DESC", ":", label(9)},
        {"IDS_LBL_DLL", ":", label(10)},
        {"IDS_LBL_MRG", ":", label(11)},
        {"IDS_LBL_DEVHELP", ":", label(21)},
        {"IDS_LBL_BLKHELP", ":", label(22)},
        {"IDS_LBL_NAME", ":", label(12)},
        {"IDS_LBL_DESC", ":", label(18)},
        {"IDS_LBL_CAT", ":", label(13)},
        {"IDS_LBL_MINCAT", ":", label(19)},
        {"IDS_LBL_TAVVER", ":", label(14)},
        {"IDS_LBL_DEVREV", ":", label(15)},
        {"IDS_LBL_DDREV", ":", label(16)},
        {"IDS_LBL_HART", ":", label(17)},
    };
}

std::vector<Caption> ToolCaptions(MainMenu& menu) {
    return {
        {"IDS_MNU_TOOLS", "",
         [&menu](const std::string& text) {
             constexpr std::size_t kTools = 3;
             menu.bar->SetMenuLabel(kTools, ToWx(text));
         }},
        {"IDS_MNU_OPEN_ENTRY", "...", Item(menu.mnuOpenEntry)},
        {"IDS_MNU_SAVE_ENTRY", "...", Item(menu.mnuSaveEntry)},
        {"IDS_MNU_PREVIEW", "...", Item(menu.mnuPreview)},
        {"IDS_MNU_LOG", "", Item(menu.mnuLog)},
    };
}

std::vector<Caption> ListCaptions(MainControls& controls) {
    return {
        {"IDS_TIP_SOURCES", "", ToolTip(&controls.lstDataSources->Button())},
        {"IDS_TIP_RECENT_DD", "", ToolTip(&controls.lstRecentDDInstall->Button())},
        {"IDS_TIP_RECENT_INI", "", ToolTip(&controls.lstRecentINI->Button())},
    };
}

}  // namespace ventlock
