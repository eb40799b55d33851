#include "support/OdbcHost.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <memory>

#include "platform/win32/WideText.h"

namespace ventlock::test {
namespace {

struct FreeFromHeap {
    void operator()(char* memory) const { HeapFree(GetProcessHeap(), 0, memory); }
};

}  // namespace

// The environment that a program changes for itself does not reach the driver manager of the system below
// Wine: what starts the program has made the folder, and names it by a path of that system.
std::string UseOdbcFolder() {
    std::array<wchar_t, 1024> folder{};
    const DWORD length =
        GetEnvironmentVariableW(L"VENTLOCK_TEST_ODBC", folder.data(), static_cast<DWORD>(folder.size()));
    EXPECT_GT(length, 0U) << "VENTLOCK_TEST_ODBC names no folder";
    EXPECT_LT(length, folder.size());
    return "Z:" + FromWideText(folder.data());
}

std::string DriversPath(const std::string& path) {
    using Convert = char*(__cdecl*)(const wchar_t*);
    const HMODULE kernel = GetModuleHandleW(L"kernel32");
    // By way of void*, because the compiler holds the two function types for too different.
    const auto convert =
        reinterpret_cast<Convert>(reinterpret_cast<void*>(GetProcAddress(kernel, "wine_get_unix_file_name")));
    if (convert == nullptr) return path;  // the drivers are this system's own
    const std::unique_ptr<char, FreeFromHeap> converted(convert(ToWideText(path).c_str()));
    EXPECT_NE(converted, nullptr) << path << " has no path on the system below";
    return converted ? converted.get() : path;
}

std::string LibraryFolder() {
    return "Z:/usr/lib";
}

}  // namespace ventlock::test
