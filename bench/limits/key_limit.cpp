#include "limits/BareWindow.h"
#include "support/KeyPresses.h"
#include "support/WindowRun.h"

namespace {

using ventlock::bench::BareWindow;

class BareApp final : public wxApp {
 public:
    bool OnInit() override {
        window_ = new BareWindow;
        return window_->Show();
    }
    [[nodiscard]] BareWindow& Window() { return *window_; }

 private:
    BareWindow* window_ = nullptr;
};

}  // namespace

/// key_limit <answer>: what a key press in a window costs that does nothing about it.
int main(int count, char** arguments) {
    using namespace ventlock::bench;
    if (count != 2) return 2;
    return RunInWindow<BareApp>(new BareApp, arguments[0], arguments[1], [](BareApp& app) {
        return ToText(TimesOfKeyPress(app.Window().FirstField(), [] {}));
    });
}
