#include "stress/Desktop.h"

#include <dlfcn.h>
#include <glib-object.h>
#include <gtest/gtest.h>

namespace ventlock::test {
namespace {

void TakeMessage(const gchar* domain, GLogLevelFlags level, const gchar* text, gpointer /*data*/) {
    if ((level & (G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_ERROR)) != 0) {
        ADD_FAILURE() << (domain != nullptr ? domain : "") << ": " << text;
    }
}

}  // namespace

// GTK is in the process with the toolkit, but its headers are no part of what the program is built with.
void UseTheme(const std::string& name) {
    using Settings = void*();
    auto* const settings = reinterpret_cast<Settings*>(dlsym(RTLD_DEFAULT, "gtk_settings_get_default"));
    ASSERT_NE(settings, nullptr);
    g_object_set(settings(), "gtk-theme-name", name.c_str(), nullptr);
}

void FailOnCriticals() {
    g_log_set_default_handler(TakeMessage, nullptr);
}

}  // namespace ventlock::test
