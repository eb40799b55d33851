#include "ui/VentlockApp.h"

#include <wx/cmdline.h>
#include <wx/filesys.h>
#include <wx/fs_arc.h>

#include "core/OwnFiles.h"
#include "core/TavDictionary.h"
#include "core/VersionLine.h"
#include "core/clsLog.h"
#include "platform/QuitRequest.h"
#include "platform/YieldingPause.h"
#include "platform/odbc/OdbcEngine.h"
#include "ui/CallAnswer.h"
#include "ui/WxText.h"
#include "ui/frmMain.h"
#include "ui/modMain.h"

namespace ventlock {
namespace {

constexpr int kPollMs = 100;

// Exit codes of a call that opens no window.
constexpr int kAnswered = 0;
constexpr int kNotAnswered = 1;
constexpr int kWrongCall = 2;

}  // namespace

VentlockApp::VentlockApp() : events_(DispatchPendingEvents) {}

VentlockApp::~VentlockApp() = default;

bool VentlockApp::OnInit() {
    host_ = CreateHost("ventlock", YieldingPause(events_));
    if (!wxApp::OnInit()) return exitCode_.has_value();
    WatchQuitRequests();
    // The file system keeps the handler.
    // NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks)
    wxFileSystem::AddHandler(new wxArchiveFSHandler);
    SetExitOnFrameDelete(false);
    // NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)
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
    if (exitCode_) return *exitCode_;
    wxApp::OnRun();
    return 0;
}

void VentlockApp::OnInitCmdLine(wxCmdLineParser& parser) {
    parser.SetLogo(
        "Opens the window; its help book (F1) tells the rest. ventlock-cli does the same from the command "
        "line.");
    parser.AddSwitch("h", "help", "Print this help and end", wxCMD_LINE_OPTION_HELP);
    parser.AddSwitch("", "version", "Print the version and end");
}

bool VentlockApp::OnCmdLineHelp(wxCmdLineParser& parser) {
    Answer(FromWx(parser.GetUsageString().Trim()));
    return false;
}

bool VentlockApp::OnCmdLineParsed(wxCmdLineParser& parser) {
    if (!parser.Found("version")) return true;
    Answer(VersionLine("ventlock", host_->AppInfo()));
    return false;
}

/// The toolkit has told what is wrong.
bool VentlockApp::OnCmdLineError(wxCmdLineParser& /*parser*/) {
    exitCode_ = kWrongCall;
    return false;
}

void VentlockApp::Answer(const std::string& text) {
    exitCode_ = TellAnswer(text) ? kAnswered : kNotAnswered;
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
