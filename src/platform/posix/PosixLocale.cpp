#include "platform/posix/PosixLocale.h"

#include <cstdlib>
#include <string_view>

#include "platform/Casing.h"

namespace ventlock {
namespace {

std::string_view Setting() {
    for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* const value = std::getenv(name);
        if (value != nullptr && value[0] != '\0') return value;
    }
    return "C";
}

}  // namespace

std::string PosixLocale::LanguageName() {
    const std::string_view setting = Setting();
    const std::string code = UpperCase(setting.substr(0, setting.find_first_of("_.@")));
    if (code == "DE" || code == "DEU") return "Deutsch";
    if (code.empty() || code == "EN" || code == "C" || code == "POSIX") return "English";
    return code.starts_with("DE") ? "(" + code + ")" : code;
}

}  // namespace ventlock
