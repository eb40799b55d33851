#pragma once

#include <wx/app.h>
#include <wx/timer.h>

#include <memory>
#include <optional>
#include <string>

#include "platform/Host.h"
#include "platform/ProfileEdit.h"
#include "platform/RelativeFiles.h"
#include "ui/WindowEvents.h"
#include "ui/WindowMessages.h"
#include "ui/WxClipboard.h"
#include "ui/WxFileDialog.h"
#include "ui/WxHelp.h"

namespace ventlock {

class frmMain;

/// The window program: makes the real services, shows the main window and polls for the program's end.
class VentlockApp final : public wxApp {
 public:
    VentlockApp();
    ~VentlockApp() override;

    bool OnInit() override;
    int OnRun() override;
    void OnInitCmdLine(wxCmdLineParser& parser) override;
    bool OnCmdLineHelp(wxCmdLineParser& parser) override;
    bool OnCmdLineParsed(wxCmdLineParser& parser) override;
    bool OnCmdLineError(wxCmdLineParser& parser) override;
    bool OnExceptionInMainLoop() override;

 private:
    /// Tells what the call asked for instead of the window, and notes how the program is to end.
    void Answer(const std::string& text);

    /// Makes the main window, loads it and shows it.
    void Main();

    /// Ends the loop when the program is to end, and closes the window when the host wishes so.
    void Poll();

    std::unique_ptr<Host> host_;
    std::optional<int> exitCode_;  ///< once the program is to end without a window
    WindowEvents events_;
    WxClipboard clipboard_;
    WxFileDialog fileDialog_;
    WxHelp help_;
    std::unique_ptr<WindowMessages> messages_;
    std::unique_ptr<RelativeFiles> files_;
    std::unique_ptr<ProfileStore> profiles_;
    frmMain* window_ = nullptr;
    wxTimer poll_;
};

}  // namespace ventlock
