#pragma once

#include <string>
#include <string_view>

namespace ventlock::test {

/// The display's keyboard with its US layout. Keys are pressed as by hand: they go to what has the focus, so
/// that is to be made sure of first.
class Keyboard {
 public:
    Keyboard();
    ~Keyboard();
    Keyboard(const Keyboard&) = delete;
    Keyboard& operator=(const Keyboard&) = delete;

    /// Types a text of printable ASCII characters.
    void Type(std::string_view text) const;

    /// Presses a key, with others held down: "Return", "ctrl+o", "ctrl+shift+Tab", "alt+f". Names are those
    /// of X keys; "ctrl", "shift" and "alt" are the left ones.
    void Press(const std::string& keys) const;

 private:
    struct Connection;

    Connection* connection_;
};

}  // namespace ventlock::test
