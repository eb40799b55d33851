#include "ui/frmMain.h"

#include <wx/accel.h>

#include <array>

#include "core/clsLog.h"
#include "core/modCommonTools.h"
#include "core/modLocalization.h"
#include "entry/ControlStates.h"
#include "entry/WindowPlace.h"
#include "ui/Busy.h"
#include "ui/FileDrop.h"
#include "ui/ProgramIcon.h"

namespace ventlock {
namespace {

constexpr int kScrollStep = 10;

wxScrolledWindow* NewContents(wxWindow& parent) {
    auto* contents = new wxScrolledWindow(&parent);
    contents->SetScrollRate(parent.FromDIP(kScrollStep), parent.FromDIP(kScrollStep));
    return contents;
}

}  // namespace

frmMain::frmMain(const WindowServices& services)
    : wxFrame(nullptr, wxID_ANY, "Ventlock"),
      services_(services),
      contents_(NewContents(*this)),
      controls_(*contents_, Handlers()),
      place_(*this),
      records_(services.events, services.profiles),
      ddInstallWatch_(
          [this] { return LookAtTarget(kDDInstallPathBox); },
          [this](std::optional<TargetState> state) { ShowTargetState(kDDInstallPathBox, state); }),
      iniWatch_([this] { return LookAtTarget(kIniPathBox); },
                [this](std::optional<TargetState> state) { ShowTargetState(kIniPathBox, state); }) {
    SetIcons(ProgramIcons());
    SetMenuBar(menu_.bar);
    SetMinSize(wxSize(kSmallestWindow.width, kSmallestWindow.height));
    BindEvents();
    UseModuleMessageBox(&services_.messages);
}

frmMain::~frmMain() {
    delete log_.get();  // before what it works with
    UseDictionary(nullptr);
    UseModuleMessageBox(nullptr);
}

FieldHandlers frmMain::Handlers() {
    const auto evaluate = [this] { SetControlStates(); };
    return {.txtMain_Change = [this](std::size_t box) { txtMain_Change(box); },
            .cboDeviceProtocol_Click = evaluate,
            .cboDeviceCategory_Change = evaluate,
            .cboDevRev_Change = evaluate,
            .cboDDRev_Change = evaluate,
            .cboHARTRev_Change = evaluate,
            .lstTAVVersionSupport_Click = evaluate,
            .dropDown = [this](std::size_t box) { DropDown(box); }};
}

void frmMain::BindEvents() {
    const auto onMenu = [this](wxMenuItem* item, void (frmMain::*command)()) {
        Bind(
            wxEVT_MENU, [this, command](wxCommandEvent&) { (this->*command)(); }, item->GetId());
    };
    const auto onButton = [this](wxButton* button, void (frmMain::*command)()) {
        button->Bind(wxEVT_BUTTON, [this, command](wxCommandEvent&) { (this->*command)(); });
    };
    onMenu(menu_.mnuSelectDDInstall, &frmMain::mnuSelectDDInstall_Click);
    onMenu(menu_.mnuSelectINI, &frmMain::mnuSelectINI_Click);
    onMenu(menu_.mnuWriteDB, &frmMain::mnuWriteDB_Click);
    onMenu(menu_.mnuWriteINI, &frmMain::mnuWriteINI_Click);
    onMenu(menu_.mnuWriteDDInstall, &frmMain::mnuWriteDDInstall_Click);
    onMenu(menu_.mnuExit, &frmMain::mnuExit_Click);
    onMenu(menu_.mnuCut, &frmMain::mnuCut_Click);
    onMenu(menu_.mnuCopy, &frmMain::mnuCopy_Click);
    onMenu(menu_.mnuPaste, &frmMain::mnuPaste_Click);
    onMenu(menu_.mnuClear, &frmMain::mnuClear_Click);
    onMenu(menu_.mnuHelpContents, &frmMain::mnuHelpContents_Click);
    onMenu(menu_.mnuHelpSearch, &frmMain::mnuHelpSearch_Click);
    onMenu(menu_.mnuHelpAbout, &frmMain::mnuHelpAbout_Click);
    onMenu(menu_.mnuOpenEntry, &frmMain::mnuOpenEntry_Click);
    onMenu(menu_.mnuSaveEntry, &frmMain::mnuSaveEntry_Click);
    onMenu(menu_.mnuPreview, &frmMain::mnuPreview_Click);
    onMenu(menu_.mnuLog, &frmMain::mnuLog_Click);

    onButton(controls_.cmdSwitchDSN, &frmMain::cmdSwitchDSN_Click);
    onButton(controls_.cmdSelectDDInstall, &frmMain::mnuSelectDDInstall_Click);
    onButton(controls_.cmdSelectINI, &frmMain::mnuSelectINI_Click);
    onButton(controls_.cmdWriteDB, &frmMain::mnuWriteDB_Click);
    onButton(controls_.cmdWriteINI, &frmMain::mnuWriteINI_Click);
    onButton(controls_.cmdWriteDDInstall, &frmMain::mnuWriteDDInstall_Click);
    onButton(controls_.cmdClose, &frmMain::mnuExit_Click);

    BindKeys();
    controls_.txtMain[kDataSourceBox]->Box().Bind(wxEVT_TEXT_ENTER,
                                                  [this](wxCommandEvent&) { cmdSwitchDSN_Click(); });
    // The window owns it.
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
    SetDropTarget(new FileDrop(*this, [this](const auto& paths) { DropFiles(paths); }));
    Bind(wxEVT_CLOSE_WINDOW, &frmMain::OnClose, this);
    Bind(wxEVT_ACTIVATE, [this](wxActivateEvent& event) {
        event.Skip();
        if (event.GetActive()) LookAtTargetsSoon();  // another program may have been at work
    });
    Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
        event.Skip();
        controls_.RefreshColours();
    });
}

// Keys that no menu shows. The toolkit turns the tabs' pages only while one of their fields has the focus.
void frmMain::BindKeys() {
    const std::array keys{
        wxAcceleratorEntry(wxACCEL_NORMAL, WXK_F1, menu_.mnuHelpContents->GetId()),
        wxAcceleratorEntry(wxACCEL_CTRL, WXK_PAGEDOWN, nextPageId_),
        wxAcceleratorEntry(wxACCEL_CTRL, WXK_PAGEUP, previousPageId_),
    };
    SetAcceleratorTable(wxAcceleratorTable(static_cast<int>(keys.size()), keys.data()));
    const auto turn = [this](bool isForward) {
        controls_.sstVentlock->AdvanceSelection(isForward);
        controls_.sstVentlock->GetCurrentPage()->SetFocus();
    };
    Bind(
        wxEVT_MENU, [turn](wxCommandEvent&) { turn(true); }, nextPageId_);
    Bind(
        wxEVT_MENU, [turn](wxCommandEvent&) { turn(false); }, previousPageId_);
    Bind(wxEVT_CHAR_HOOK, &frmMain::TakeClipboardKey, this);
}

// The shortcuts of the menu by themselves would not do: each port of the toolkit gives them to a text field
// first.
void frmMain::TakeClipboardKey(wxKeyEvent& event) {
    switch (event.GetModifiers() == wxMOD_CONTROL ? event.GetKeyCode() : WXK_NONE) {
        case 'X':
            return mnuCut_Click();
        case 'C':
            return mnuCopy_Click();
        case 'V':
            return mnuPaste_Click();
        default:
            event.Skip();
    }
}

void frmMain::txtMain_Change(std::size_t box) {
    if (box == kDDInstallPathBox) ddInstallWatch_.LookSoon();
    if (box == kIniPathBox) iniWatch_.LookSoon();
    if (!captionsLoading_) entriesChanged_ = true;
    SetControlStates();
}

void frmMain::SetControlStates() {
    const ControlStateSet states = ControlStates(controls_.Read(), schemaVersion_, isConnected_);
    controls_.Apply(states);
    const auto enable = [](wxMenuItem& item, wxButton& button, bool isEnabled) {
        item.Enable(isEnabled);
        button.Enable(item.IsEnabled());
    };
    enable(*menu_.mnuWriteDB, *controls_.cmdWriteDB, states.canWrite.database);
    enable(*menu_.mnuWriteINI, *controls_.cmdWriteINI, states.canWrite.ini);
    enable(*menu_.mnuWriteDDInstall, *controls_.cmdWriteDDInstall, states.canWrite.ddInstall);
}

// The controls keep their places whatever the window's size; a window smaller than they need scrolls. It is
// the client size that is set: a frame whose outer size is set waits for the window manager before it shows,
// and forgets its place over that.
void frmMain::FitContents() {
    contents_->FitInside();
    SetClientSize(contents_->GetSizer()->GetMinSize());
}

void frmMain::RunCommand(const std::function<void()>& body) {
    if (isBusy_ || isUnloading_) return;
    {
        const Busy busy(isBusy_);
        focusedBefore_ = wxWindow::FindFocus();
        body();
    }
    if (isClosePending_) CallAfter([this] { Close(); });
}

void frmMain::RunCommand(std::string_view tag, const std::function<void(StepLabel&)>& body) {
    RunCommand([&] { Guarded(&oAppObjects_, tag, body); });
}

void frmMain::ReportUnhandled(const std::exception_ptr& error) noexcept {
    try {
        std::rethrow_exception(error);
    } catch (...) {
        const RunTimeError unhandled = CurrentError();
        if (!oAppObjects_.Contains(kLogKey)) return;
        oAppObjects_.Get<clsLog>(kLogKey).Log(FormatErrorText("fMain", "00", unhandled.Description(),
                                                              static_cast<std::int32_t>(unhandled.Number())),
                                              {}, {}, kLogToFile);
    }
}

}  // namespace ventlock
