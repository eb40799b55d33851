#include "support/KeyPresses.h"

#include <gtk/gtk.h>
#include <valgrind/callgrind.h>
#include <wx/app.h>
#include <wx/notebook.h>
#include <wx/utils.h>

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <vector>

namespace ventlock::bench {
namespace {

using Seconds = std::chrono::duration<double>;

constexpr int kWarmUp = 4;
constexpr int kPresses = 20;
constexpr std::chrono::milliseconds kQuiet{40};  // longer than a frame: the next one is then painted at once

/// Tells when a window has been painted.
class Painting {
 public:
    explicit Painting(GtkWidget* window) : clock_(gtk_widget_get_frame_clock(window)) {
        if (clock_ == nullptr) throw std::runtime_error("the window is not on the screen");
        handler_ = g_signal_connect(clock_, "after-paint", G_CALLBACK(OnPainted), this);
    }
    ~Painting() { g_signal_handler_disconnect(clock_, handler_); }
    Painting(const Painting&) = delete;
    Painting& operator=(const Painting&) = delete;

    void Begin() { isPainted_ = false; }
    void Await() const {
        while (!isPainted_) gtk_main_iteration();
    }

    /// Lets the window do what it has to, until nothing moves any more: while it does, frames have their
    /// fixed times.
    void AwaitQuiet() {
        auto end = std::chrono::steady_clock::now() + kQuiet;
        while (std::chrono::steady_clock::now() < end) {
            isPainted_ = false;
            while (gtk_events_pending()) gtk_main_iteration();
            if (isPainted_) end = std::chrono::steady_clock::now() + kQuiet;
            wxMilliSleep(1);
        }
    }

 private:
    static void OnPainted(GdkFrameClock*, gpointer painting) {
        static_cast<Painting*>(painting)->isPainted_ = true;
    }

    GdkFrameClock* clock_;
    gulong handler_ = 0;
    bool isPainted_ = false;
};

/// A key as the display would send it to the window.
void Send(GtkWidget* window, GdkEventType type, guint key) {
    GdkDisplay* const display = gtk_widget_get_display(window);
    GdkKeymapKey* keys = nullptr;
    gint count = 0;
    if (!gdk_keymap_get_entries_for_keyval(gdk_keymap_get_for_display(display), key, &keys, &count))
        throw std::runtime_error("the keyboard lacks a key");
    GdkEvent* const event = gdk_event_new(type);
    event->key.window = GDK_WINDOW(g_object_ref(gtk_widget_get_window(window)));
    event->key.time = GDK_CURRENT_TIME;
    event->key.keyval = key;
    event->key.hardware_keycode = static_cast<guint16>(keys[0].keycode);
    gdk_event_set_device(event, gdk_seat_get_keyboard(gdk_display_get_default_seat(display)));
    gtk_main_do_event(event);
    gdk_event_free(event);
    g_free(keys);
}

double Middle(std::vector<double>& values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

}  // namespace

KeyPressTimes TimesOfKeyPress(wxTextCtrl& field, const std::function<void()>& afterEach) {
    auto* const page = field.GetParent();
    auto* const tabs = dynamic_cast<wxNotebook*>(page->GetParent());
    if (tabs == nullptr) throw std::runtime_error("the field stands on no tab");
    tabs->SetSelection(static_cast<std::size_t>(tabs->FindPage(page)));
    // Else a button would take its time to look different, and frames would have fixed times meanwhile.
    g_object_set(gtk_settings_get_default(), "gtk-enable-animations", FALSE, nullptr);
    GtkWidget* const window = wxGetTopLevelParent(&field)->GetHandle();
    while (!gtk_widget_get_mapped(window)) gtk_main_iteration();
    field.SetFocus();
    field.Clear();
    Painting painting(window);
    painting.AwaitQuiet();

    std::vector<double> handled;
    std::vector<double> painted;
    const int presses = RUNNING_ON_VALGRIND != 0 ? 1 : kPresses;
    for (int i = -kWarmUp; i < presses; ++i) {
        const bool isLetter = i % 2 == 0;
        const guint key = isLetter ? GDK_KEY_a : GDK_KEY_BackSpace;
        painting.Begin();
        if (i >= 0) CALLGRIND_START_INSTRUMENTATION;
        const auto begin = std::chrono::steady_clock::now();
        Send(window, GDK_KEY_PRESS, key);
        const Seconds untilHandled = std::chrono::steady_clock::now() - begin;
        painting.Await();
        const Seconds untilPainted = std::chrono::steady_clock::now() - begin;
        if (i >= 0) CALLGRIND_DUMP_STATS_AT("key press");
        Send(window, GDK_KEY_RELEASE, key);
        painting.AwaitQuiet();
        if (field.GetValue() != (isLetter ? "a" : "")) throw std::runtime_error("a key has not arrived");
        afterEach();
        if (i < 0) continue;
        handled.push_back(untilHandled.count());
        painted.push_back(untilPainted.count());
    }
    return {Middle(handled), Middle(painted)};
}

std::string ToText(const KeyPressTimes& times) {
    return std::to_string(1e9 * times.handled) + ' ' + std::to_string(1e9 * times.painted);
}

}  // namespace ventlock::bench
