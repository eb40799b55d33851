#include "platform/odbc/DriverAdvice.h"

namespace ventlock::odbc {

std::string WordSizeAdvice() {
    const std::string bits = std::to_string(8 * sizeof(void*)) + "-bit";
    return "This program is a " + bits + " one: install the " + bits +
           " driver and name its library in odbcinst.ini.";
}

std::string MissingDriverAdvice() {
    return "Install it, or name its library in odbcinst.ini.";
}

}  // namespace ventlock::odbc
