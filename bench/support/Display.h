#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <set>
#include <string>

namespace ventlock::bench {

/// The display that DISPLAY names, on which programs are seen from outside as a window manager sees them.
class Display {
 public:
    /// A program's window on the screen.
    struct Window {
        xcb_window_t id = 0;
        int process = 0;
        std::chrono::steady_clock::time_point mappedAt;
    };

    /// @throws std::runtime_error when there is no display
    Display();
    ~Display();
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    /// Forgets the windows seen so far: only those that are made from now on are awaited.
    void Forget();

    /// Waits until a main window whose title begins so is mapped; dialogs are none.
    /// @return nothing when it does not come in time
    std::optional<Window> AwaitWindow(const std::string& title, std::chrono::seconds patience);

    /// Asks the window's program to close it, as the button of its frame does.
    void Close(const Window& window);

 private:
    [[nodiscard]] xcb_atom_t Atom(const char* name) const;
    [[nodiscard]] std::string Property(xcb_window_t window, xcb_atom_t property) const;
    [[nodiscard]] bool IsMainWindow(xcb_window_t window, const std::string& title) const;
    [[nodiscard]] bool IsMapped(xcb_window_t window) const;
    void Watch(xcb_window_t window);

    /// The window that an event tells to have been mapped, 0 for any other event.
    xcb_window_t MappedBy(const xcb_generic_event_t& event);

    xcb_connection_t* connection_;
    xcb_window_t root_ = 0;
    std::set<xcb_window_t> watched_;
};

}  // namespace ventlock::bench
