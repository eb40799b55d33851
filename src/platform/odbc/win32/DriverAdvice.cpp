#include "platform/odbc/DriverAdvice.h"

#include <windows.h>

#include <array>
#include <string_view>

#include "platform/win32/WideText.h"

namespace ventlock::odbc {
namespace {

std::string WordSize() {
    return std::to_string(8 * sizeof(void*)) + "-bit";
}

// The folder of the system's programs of this program's own word size. A 32-bit program on a 64-bit system is
// shown another folder under the name of the 64-bit one, so that it must name its own.
std::string SystemFolder() {
    std::array<wchar_t, MAX_PATH + 1> folder{};
    const auto room = static_cast<UINT>(folder.size());
    UINT length = sizeof(void*) == 4 ? GetSystemWow64DirectoryW(folder.data(), room) : 0;
    if (length == 0) length = GetSystemDirectoryW(folder.data(), room);
    if (length >= room) length = 0;  // it did not fit; the name alone is found, too
    return FromWideText(std::wstring_view(folder.data(), length));
}

std::string Administrator() {
    const std::string folder = SystemFolder();
    return "\"ODBC Data Sources (" + WordSize() + ")\" (" + folder + (folder.empty() ? "" : "\\") +
           "odbcad32.exe)";
}

}  // namespace

std::string WordSizeAdvice() {
    return "This program is a " + WordSize() + " one: install the " + WordSize() +
           " driver and make the data source with " + Administrator() + ".";
}

std::string MissingDriverAdvice() {
    return "Install the " + WordSize() + " driver; " + Administrator() + " lists those that are installed.";
}

}  // namespace ventlock::odbc
