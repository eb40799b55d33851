#pragma once

#include <string>

namespace ventlock::test {

/// Changes the desktop's theme, as its user would in the desktop's settings.
void UseTheme(const std::string& name);

/// Makes every assertion of the toolkit's own ground that does not hold (GLib, GTK) a failed test.
void FailOnCriticals();

}  // namespace ventlock::test
