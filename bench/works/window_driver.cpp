#include <wx/button.h>
#include <wx/modalhook.h>

#include <stdexcept>

#include "support/KeyPresses.h"
#include "support/Processes.h"
#include "support/WindowRun.h"
#include "ui/VentlockApp.h"
#include "ui/frmMain.h"

namespace ventlock::bench {
namespace {

frmMain& WindowOf(VentlockApp& app) {
    auto* const window = dynamic_cast<frmMain*>(app.GetTopWindow());
    if (window == nullptr || !window->IsConnected()) throw std::runtime_error("no window with a database");
    return *window;
}

/// In a field that an entry cannot do without, so that each key turns the write commands on or off.
std::string PressKeys(VentlockApp& app) {
    MainControls& controls = WindowOf(app).Controls();
    wxTextCtrl& field = controls.txtMain[kManufacturerNameBox]->Box();
    return ToText(TimesOfKeyPress(field, [&] {
        if (controls.cmdWriteDB->IsEnabled() == field.IsEmpty())
            throw std::runtime_error("the commands are not as the rules ask");
    }));
}

/// Says yes to every message box, and remembers that there was one.
class Answers final : public wxModalDialogHook {
 public:
    Answers() { Register(); }
    ~Answers() override { Unregister(); }
    int Enter(wxDialog*) override {
        ++count_;
        return wxID_OK;
    }
    [[nodiscard]] int Count() const noexcept { return count_; }

 private:
    int count_ = 0;
};

std::string WriteDatabase(VentlockApp& app) {
    frmMain& window = WindowOf(app);
    const int process = static_cast<int>(wxGetProcessId());
    Answers answers;
    const long before = ResidentKiB(process);
    ForgetPeak(process);
    const auto begin = std::chrono::steady_clock::now();
    window.mnuWriteDB_Click();
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - begin;
    if (answers.Count() != 1 || window.Controls().cmdWriteDB->IsEnabled())
        throw std::runtime_error("the entry was not written");
    return std::to_string(1e9 * passed.count()) + ' ' + std::to_string(before) + ' ' +
           std::to_string(PeakKiB(process));
}

}  // namespace
}  // namespace ventlock::bench

/// window_driver key <answer>: what a key press costs, as KeyPressTimes.
/// window_driver write <answer>: what writing the stored entry into the database costs in nanoseconds, and in
/// KiB the memory before and at the most.
int main(int count, char** arguments) {
    using namespace ventlock::bench;
    if (count != 3) return 2;
    const std::string work = arguments[1];
    if (work != "key" && work != "write") return 2;
    return RunInWindow<ventlock::VentlockApp>(new ventlock::VentlockApp, arguments[0], arguments[2],
                                              work == "key" ? PressKeys : WriteDatabase);
}
