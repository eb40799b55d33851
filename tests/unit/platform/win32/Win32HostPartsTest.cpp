#include <gtest/gtest.h>
#include <windows.h>

#include <memory>
#include <optional>
#include <string>

#include "platform/Host.h"
#include "platform/QuitRequest.h"
#include "platform/Terminal.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32Clock.h"
#include "support/TempFolder.h"
#include "support/win32/RegistryTree.h"

namespace ventlock::test {
namespace {

/// Seconds of a local time since a day long ago.
std::uint64_t SecondsOf(const SYSTEMTIME& time) {
    constexpr std::uint64_t kTicksPerSecond = 10'000'000;
    FILETIME ticks{};
    EXPECT_NE(SystemTimeToFileTime(&time, &ticks), 0);
    return (static_cast<std::uint64_t>(ticks.dwHighDateTime) << 32U | ticks.dwLowDateTime) / kTicksPerSecond;
}

std::uint64_t SecondsNow() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return SecondsOf(now);
}

TEST(Win32Clock, TellsTheLocalTime) {
    const std::uint64_t before = SecondsNow();
    const LocalTime told = Win32Clock().Now();
    const std::uint64_t after = SecondsNow();
    SYSTEMTIME parts{};
    parts.wYear = static_cast<WORD>(told.year);
    parts.wMonth = static_cast<WORD>(told.month);
    parts.wDay = static_cast<WORD>(told.day);
    parts.wHour = static_cast<WORD>(told.hour);
    parts.wMinute = static_cast<WORD>(told.minute);
    parts.wSecond = static_cast<WORD>(told.second);
    EXPECT_GE(SecondsOf(parts), before);
    EXPECT_LE(SecondsOf(parts), after);
}

/// The process's handle of stderr, replaced as long as this object lives.
class ErrorHandle {
 public:
    explicit ErrorHandle(HANDLE handle) : before_(GetStdHandle(STD_ERROR_HANDLE)) {
        SetStdHandle(STD_ERROR_HANDLE, handle);
    }
    ~ErrorHandle() { SetStdHandle(STD_ERROR_HANDLE, before_); }
    ErrorHandle(const ErrorHandle&) = delete;
    ErrorHandle& operator=(const ErrorHandle&) = delete;

 private:
    HANDLE before_;
};

TEST(Terminal, IsNoFileNoPipeAndNothing) {
    const TempFolder folder;
    const HANDLE file = CreateFileW(ToWideText(folder / "errors.txt").c_str(), GENERIC_WRITE, 0, nullptr,
                                    CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    HANDLE readEnd = nullptr;
    HANDLE writeEnd = nullptr;
    ASSERT_NE(CreatePipe(&readEnd, &writeEnd, nullptr, 0), 0);
    for (const HANDLE handle : {file, writeEnd, HANDLE{nullptr}}) {
        const ErrorHandle replaced(handle);
        EXPECT_FALSE(IsErrorTerminal());
    }
    for (const HANDLE handle : {file, readEnd, writeEnd}) CloseHandle(handle);
}

TEST(QuitRequest, IsNeverSeenWhereWindowsAreToldByTheSystem) {
    WatchQuitRequests();
    EXPECT_FALSE(QuitRequested());
}

TEST(Host, GivesItsParts) {
    const TempFolder folder;
    const TestKey place;
    const std::unique_ptr<Host> host = CreateHost("ventlock");
    EXPECT_EQ(host->Paths().ExeName(), "ventlock");
    EXPECT_EQ(host->Paths().Join("C:\\a", "b"), "C:\\a\\b");
    EXPECT_EQ(host->AppInfo().Title(), "Ventlock");
    EXPECT_FALSE(host->Files().Exists(folder / "a.ini"));
    EXPECT_GE(host->Clock().Now().year, 2024);
    EXPECT_FALSE(host->Locale().LanguageName().empty());
    EXPECT_FALSE(host->Processes().Start(folder / "missing"));
    EXPECT_TRUE(host->EventLog().Write("A test has written this.", 4));
    EXPECT_EQ(folder.Listing(), "");

    testing::internal::CaptureStderr();
    host->ConsoleMessages().Show("text", "", std::nullopt);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Ventlock: text\n");

    std::unique_ptr<IRegistryKey> key;
    ASSERT_EQ(host->Registry().CreateKey(RegistryRoot::CurrentUser, place.Path(), key), kRegistrySuccess);
    EXPECT_EQ(key->Set("Name", kRegistryString, "a"), kRegistrySuccess);
    EXPECT_EQ(TreeText(RegistryRoot::CurrentUser, place.Path()), "Name=1:a\n");
}

}  // namespace
}  // namespace ventlock::test
