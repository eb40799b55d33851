#include "support/outside/Keyboard.h"

#include <X11/XKBlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <map>
#include <sstream>
#include <vector>

#include "support/outside/Waiting.h"

namespace ventlock::test {

struct Keyboard::Connection {
    Display* display = nullptr;

    [[nodiscard]] KeyCode CodeOf(KeySym key) const { return XKeysymToKeycode(display, key); }

    void Move(KeyCode code, bool down) const {
        XTestFakeKeyEvent(display, code, down ? True : False, CurrentTime);
        XSync(display, False);
    }
};

Keyboard::Keyboard() : connection_(new Connection{XOpenDisplay(nullptr)}) {
    if (connection_->display == nullptr) StopTest("there is no display: run the tests by with_display.sh");
}

Keyboard::~Keyboard() {
    if (connection_->display != nullptr) XCloseDisplay(connection_->display);
    delete connection_;
}

void Keyboard::Type(std::string_view text) const {
    const KeyCode shift = connection_->CodeOf(XK_Shift_L);
    for (const char character : text) {
        // The keys of printable ASCII characters have their numbers.
        const auto key = static_cast<KeySym>(static_cast<unsigned char>(character));
        const KeyCode code = connection_->CodeOf(key);
        if (key < XK_space || key > XK_asciitilde || code == 0) {
            StopTest("the US keyboard has no key for a character of \"" + std::string(text) + "\"");
        }
        const bool shifted = XkbKeycodeToKeysym(connection_->display, code, 0, 0) != key;
        if (shifted) connection_->Move(shift, true);
        connection_->Move(code, true);
        connection_->Move(code, false);
        if (shifted) connection_->Move(shift, false);
    }
}

void Keyboard::Press(const std::string& keys) const {
    static const std::map<std::string, KeySym> kShort = {
        {"ctrl", XK_Control_L}, {"shift", XK_Shift_L}, {"alt", XK_Alt_L}};
    std::vector<KeyCode> codes;
    std::istringstream names(keys);
    for (std::string name; std::getline(names, name, '+');) {
        const auto found = kShort.find(name);
        const KeySym key = found != kShort.end() ? found->second : XStringToKeysym(name.c_str());
        const KeyCode code = connection_->CodeOf(key);
        if (code == 0) StopTest("the US keyboard has no key \"" + name + "\"");
        codes.push_back(code);
    }
    for (auto code = codes.begin(); code != codes.end(); ++code) connection_->Move(*code, true);
    for (auto code = codes.rbegin(); code != codes.rend(); ++code) connection_->Move(*code, false);
}

}  // namespace ventlock::test
