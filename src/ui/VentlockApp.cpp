#include "ui/VentlockApp.h"

#include <wx/filesys.h>
#include <wx/fs_arc.h>

#include "core/OwnFiles.h"
#include "core/TavDictionary.h"
#include "core/clsLog.h"
#include "platform/QuitRequest.h"
#include "platform/YieldingPause.h"
#include "platform/odbc/OdbcEngine.h"
#include "ui/frmMain.h"
#include "ui/modMain.h"

namespace ventlock {
namespace {

constexpr int kPollMs = 100;

}  // namespace

VentlockApp::VentlockApp() : events_(DispatchPendingEvents) {}

VentlockApp::~VentlockApp() = default;

bool VentlockApp::OnInit() {
    if (!wxApp::OnInit()) return false;
    WatchQuitRequests();
    // The file system keeps the handler.
    // NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks)
    wxFileSystem::AddHandler(new wxArchiveFSHandler);
    SetExitOnFrameDelete(false);
    // NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)
    host_ = CreateHost("ventlock", YieldingPause(events_));
    messages_ = std::make_unique<WindowMessages>(host_->AppInfo(), help_);
    files_ = std::make_unique<RelativeFiles>(host_->Files(), host_->Paths(), host_->Paths().ProgramFolder());
    try {
        profiles_ = std::make_unique<ProfileStore>(OpenProfileStore(host_->Paths(), *files_));
    } catch (const RunTimeError& error) {
        messages_->Show(OwnIniPath(host_->Paths(), *files_) + ": " + error.what(), "", {});
        return false;
    }
    poll_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Poll(); });
    poll_.Start(kPollMs);
    CallAfter([this] { Main(); });
    return true;
}

int VentlockApp::OnRun() {
    wxApp::OnRun();
    return 0;
}

void VentlockApp::Main() {
    window_ =
        new frmMain({.host = *host_,
                     .profiles = *profiles_,
                     .events = events_,
                     .messages = *messages_,
                     .clipboard = clipboard_,
                     .fileDialog = fileDialog_,
                     .help = help_,
                     .createEngine = [this] { return CreateOdbcEngine(events_, {}); },
                     .createDictionary = [this] { return std::make_shared<TavDictionary>(host_->Files()); },
                     .listDataSources = ListDataSources});
    SetTopWindow(window_);
    window_->Form_Load();
    if (!window_->IsUnloading()) window_->Show();
}

void VentlockApp::Poll() {
    if (QuitRequested() && window_ != nullptr && !window_->IsUnloading()) window_->Close();
    if (gbTerminate && window_ != nullptr && !window_->IsBusy()) ExitMainLoop();
}

bool VentlockApp::OnExceptionInMainLoop() {
    if (window_ == nullptr) throw;
    window_->ReportUnhandled(std::current_exception());
    return true;
}

}  // namespace ventlock
