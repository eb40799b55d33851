#pragma once

#include <wx/app.h>
#include <wx/timer.h>

#include <exception>
#include <fstream>
#include <functional>
#include <iostream>
#include <string>

namespace ventlock::bench {

/// The main procedure of a program that works with its own window: starts `app`, runs `work` once the window
/// is shown, and ends. What `work` gives is written into the file `answer`.
template <class App>
int RunInWindow(App* app, char* program, const char* answer, const std::function<std::string(App&)>& work) {
    wxApp::SetInstance(app);
    int count = 1;
    char* arguments[] = {program, nullptr};
    if (!wxEntryStart(count, arguments) || !app->CallOnInit()) return 1;
    bool isDone = false;
    wxTimer look;  // a program that yields while it starts would run what is queued too early
    look.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
        if (app->GetTopWindow() == nullptr || !app->GetTopWindow()->IsShown()) return;
        look.Stop();
        try {
            std::ofstream file(answer);
            file << work(*app);
            isDone = static_cast<bool>(file.flush());
        } catch (const std::exception& error) {
            std::cerr << error.what() << '\n';
        }
        app->ExitMainLoop();
    });
    look.Start(10);
    app->OnRun();
    look.Stop();
    app->OnExit();
    wxEntryCleanup();
    return isDone ? 0 : 1;
}

}  // namespace ventlock::bench
