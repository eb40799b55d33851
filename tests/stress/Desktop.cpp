#include "stress/Desktop.h"

#include <dlfcn.h>
#include <glib-object.h>
#include <gtest/gtest.h>

#include <cstring>

namespace ventlock::test {
namespace {

/// GTK's own: a scrolled window that comes up has no room for its bars yet.
constexpr const char* kNoRoomForScrollbar =
    "gtk_box_gadget_distribute: assertion 'size >= 0' failed in GtkScrollbar";

/// What was logged under a key of a structured message.
std::string FieldOf(const GLogField* fields, gsize count, const char* key) {
    for (gsize i = 0; i < count; ++i)
        if (std::strcmp(fields[i].key, key) == 0) return static_cast<const char*>(fields[i].value);
    return {};
}

GLogWriterOutput TakeMessage(GLogLevelFlags level, const GLogField* fields, gsize count, gpointer data) {
    if ((level & (G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_ERROR)) == 0)
        return g_log_writer_default(level, fields, count, data);
    const std::string text = FieldOf(fields, count, "MESSAGE");
    if (text == kNoRoomForScrollbar) return G_LOG_WRITER_HANDLED;
    ADD_FAILURE() << FieldOf(fields, count, "GLIB_DOMAIN") << ": " << text;
    return G_LOG_WRITER_HANDLED;
}

}  // namespace

void PickItem(wxWindow& list, int item) {
    g_object_set(list.GetHandle(), "active", item, nullptr);
}

bool IsOnScreen(wxWindow& window) {
    gboolean isVisible = FALSE;
    g_object_get(window.GetHandle(), "visible", &isVisible, nullptr);
    return isVisible != FALSE;
}

wxHtmlHelpFrame* HelpWindow() {
    for (wxWindow* window : wxTopLevelWindows)
        if (auto* frame = dynamic_cast<wxHtmlHelpFrame*>(window)) return frame;
    return nullptr;
}

// GTK is in the process with the toolkit, but its headers are no part of what the program is built with.
void UseTheme(const std::string& name) {
    using Settings = void*();
    auto* const settings = reinterpret_cast<Settings*>(dlsym(RTLD_DEFAULT, "gtk_settings_get_default"));
    ASSERT_NE(settings, nullptr);
    g_object_set(settings(), "gtk-theme-name", name.c_str(), nullptr);
}

void FailOnCriticals() {
    g_log_set_writer_func(TakeMessage, nullptr, nullptr);
}

}  // namespace ventlock::test
