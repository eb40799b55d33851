#include "gui/CaptionRows.h"

#include <cstddef>
#include <memory>

#include "ui/WxText.h"

namespace ventlock::test {
namespace {

CaptionRow Bar(const char* name, const char* key, std::size_t position) {
    return {name, key, "",
            [position](frmMain& window) { return FromWx(window.Menu().bar->GetMenuLabel(position)); }};
}

CaptionRow Item(const char* name, const char* key, wxMenuItem* MainMenu::*item, const char* suffix = "") {
    return {name, key, suffix, [item](frmMain& window) {
                return FromWx((window.Menu().*item)->GetItemLabel().BeforeFirst('\t'));
            }};
}

CaptionRow Tab(const char* key, std::size_t page) {
    return {"tab" + std::to_string(page), key, "",
            [page](frmMain& window) { return FromWx(window.Controls().sstVentlock->GetPageText(page)); }};
}

CaptionRow Button(const char* name, const char* key, wxButton* MainControls::*button) {
    return {name, key, "",
            [button](frmMain& window) { return FromWx((window.Controls().*button)->GetLabel()); }};
}

CaptionRow Label(const char* key, std::size_t index, const char* suffix = ":") {
    return {"lblMain" + std::to_string(index), key, suffix,
            [index](frmMain& window) { return FromWx(window.Controls().lblMain[index]->GetLabel()); }};
}

CaptionRow ListTip(const char* name, const char* key, std::unique_ptr<DropList> MainControls::*list) {
    return {name, key, "",
            [list](frmMain& window) { return FromWx((window.Controls().*list)->Button().GetToolTipText()); }};
}

}  // namespace

std::vector<CaptionRow> WindowCaptions() {
    return {
        {"frmMain", "IDS_TITLE", "", [](frmMain& window) { return FromWx(window.GetTitle()); }},
        Bar("mnuFile", "IDS_MNU_FILE", 0),
        Item("mnuSelectDDInstall", "IDS_MNU_SELECT_DD", &MainMenu::mnuSelectDDInstall, "..."),
        Item("mnuSelectINI", "IDS_MNU_SELECT_INI", &MainMenu::mnuSelectINI, "..."),
        Item("mnuWriteDB", "IDS_MNU_WRITE_DB", &MainMenu::mnuWriteDB),
        Item("mnuWriteINI", "IDS_MNU_WRITE_INI", &MainMenu::mnuWriteINI),
        Item("mnuWriteDDInstall", "IDS_MNU_WRITE_DD", &MainMenu::mnuWriteDDInstall),
        Item("mnuExit", "IDS_MNU_FILE_EXIT", &MainMenu::mnuExit),
        Bar("mnuEdit", "IDS_MNU_EDIT", 1),
        Item("mnuCopy", "IDS_MNU_EDIT_COPY", &MainMenu::mnuCopy),
        Item("mnuCut", "IDS_MNU_EDIT_CUT", &MainMenu::mnuCut),
        Item("mnuPaste", "IDS_MNU_EDIT_PASTE", &MainMenu::mnuPaste),
        Item("mnuClear", "IDS_MNU_CLEAR", &MainMenu::mnuClear),
        Bar("mnuHelp", "IDS_MNU_HELP", 2),
        Item("mnuHelpSearch", "IDS_MNU_HELP_INDEX", &MainMenu::mnuHelpSearch, "..."),
        Item("mnuHelpContents", "IDS_MNU_HELP_CONTENTS", &MainMenu::mnuHelpContents, "..."),
        Item("mnuHelpAbout", "IDS_MNU_HELP_ABOUT", &MainMenu::mnuHelpAbout, "..."),
        Tab("IDS_TAB_GEN", 0),
        Tab("IDS_TAB_MAN", 1),
        Tab("IDS_TAB_DEV", 2),
        Tab("IDS_TAB_REV", 3),
        Button("cmdWriteDB", "IDS_CMD_WRITE_DB", &MainControls::cmdWriteDB),
        Button("cmdWriteINI", "IDS_CMD_WRITE_INI", &MainControls::cmdWriteINI),
        Button("cmdWriteDDInstall", "IDS_CMD_WRITE_DD", &MainControls::cmdWriteDDInstall),
        Button("cmdClose", "IDS_CMD_CLOSE", &MainControls::cmdClose),
        Button("cmdSwitchDSN", "IDS_CMD_SWITCH", &MainControls::cmdSwitchDSN),
    };
}

std::vector<CaptionRow> LabelCaptions() {
    return {
        Label("IDS_LBL_DSN", 0),      Label("IDS_LBL_DD", 1),
        Label("IDS_LBL_INI", 2),      Label("IDS_LBL_ID", 3),
        Label("IDS_LBL_NAME", 4),     Label("IDS_LBL_DESC", 5),
        Label("IDS_LBL_PROT", 6),     Label("IDS_LBL_CONV_CAT", 20, ""),
        Label("IDS_LBL_ID", 7),       Label("IDS_LBL_NAME", 8),
        Label("IDS_LBL_DESC", 9),     Label("IDS_LBL_DLL", 10),
        Label("IDS_LBL_MRG", 11),     Label("IDS_LBL_DEVHELP", 21),
        Label("IDS_LBL_BLKHELP", 22), Label("IDS_LBL_NAME", 12),
        Label("IDS_LBL_DESC", 18),    Label("IDS_LBL_CAT", 13),
        Label("IDS_LBL_MINCAT", 19),  Label("IDS_LBL_TAVVER", 14),
        Label("IDS_LBL_DEVREV", 15),  Label("IDS_LBL_DDREV", 16),
        Label("IDS_LBL_HART", 17),
    };
}

std::vector<CaptionRow> ToolsMenuCaptions() {
    return {
        Bar("mnuTools", "IDS_MNU_TOOLS", 3),
        Item("mnuOpenEntry", "IDS_MNU_OPEN_ENTRY", &MainMenu::mnuOpenEntry, "..."),
        Item("mnuSaveEntry", "IDS_MNU_SAVE_ENTRY", &MainMenu::mnuSaveEntry, "..."),
        Item("mnuPreview", "IDS_MNU_PREVIEW", &MainMenu::mnuPreview, "..."),
        Item("mnuLog", "IDS_MNU_LOG", &MainMenu::mnuLog),
    };
}

std::vector<CaptionRow> ToolTipCaptions() {
    return {
        ListTip("lstDataSources", "IDS_TIP_SOURCES", &MainControls::lstDataSources),
        ListTip("lstRecentDDInstall", "IDS_TIP_RECENT_DD", &MainControls::lstRecentDDInstall),
        ListTip("lstRecentINI", "IDS_TIP_RECENT_INI", &MainControls::lstRecentINI),
    };
}

std::vector<CaptionRow> PassCaptions() {
    std::vector<CaptionRow> pass = WindowCaptions();
    const std::vector<CaptionRow> labels = LabelCaptions();
    pass.insert(pass.end(), labels.begin(), labels.end());
    return pass;
}

std::vector<CaptionRow> AllCaptions() {
    std::vector<CaptionRow> all = PassCaptions();
    for (const std::vector<CaptionRow>& more : {ToolsMenuCaptions(), ToolTipCaptions()})
        all.insert(all.end(), more.begin(), more.end());
    return all;
}

}  // namespace ventlock::test
