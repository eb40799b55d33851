#include "platform/win32/Win32Paths.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <filesystem>
#include <set>
#include <string>

#include "platform/win32/FinalPath.h"
#include "platform/win32/WideText.h"
#include "support/TempFolder.h"
#include "support/WorkingFolder.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

std::string Variable(const wchar_t* name) {
    std::array<wchar_t, 1024> value{};
    GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size()));
    return FromWideText(value.data());
}

std::set<std::wstring> NamesIn(const std::string& folder) {
    std::set<std::wstring> names;
    for (const auto& entry : fs::directory_iterator(ToWideText(folder)))
        names.insert(entry.path().filename().wstring());
    return names;
}

TEST(Win32Paths, TheProgramsFolderIsThatOfTheRunningProgram) {
    const std::string folder = Win32Paths("ventlock").ProgramFolder();
    EXPECT_TRUE(fs::is_regular_file(ToWideText(folder + "\\platform_tests.exe"))) << folder;
    EXPECT_FALSE(folder.ends_with('\\')) << folder;
}

TEST(Win32Paths, TheProgramsFolderIsTheFinalOneInTheShortForm) {
    std::wstring started(4096, L'\0');
    started.resize(GetModuleFileNameW(nullptr, started.data(), static_cast<DWORD>(started.size())));
    const std::wstring path =
        FinalPath(SystemFileCalls(), OpenForAttributes(SystemFileCalls(), LongForm(started)));
    ASSERT_TRUE(path.starts_with(L"\\\\?\\")) << FromWideText(path);
    EXPECT_EQ(Win32Paths("ventlock").ProgramFolder(),
              FromWideText(ShortForm(path.substr(0, path.rfind(L'\\')))));
}

TEST(Win32Paths, TheProgramsNameIsTheOneGiven) {
    EXPECT_EQ(Win32Paths("ventlock").ExeName(), "ventlock");
    EXPECT_EQ(Win32Paths("renamed").ExeName(), "renamed");
}

TEST(Win32Paths, TheProgramsFolderIsTriedWithoutATrace) {
    Win32Paths paths("ventlock");
    const std::set<std::wstring> before = NamesIn(paths.ProgramFolder());
    EXPECT_TRUE(paths.ProgramFolderIsWritable());
    EXPECT_EQ(NamesIn(paths.ProgramFolder()), before);
}

TEST(Win32Paths, TheWindowsDirectoryIsTheSystemsOwn) {
    const std::string folder = Win32Paths("ventlock").WindowsDirectory();
    EXPECT_EQ(folder, Variable(L"windir"));
    EXPECT_TRUE(fs::is_directory(ToWideText(folder + "\\system32"))) << folder;
}

TEST(Win32Paths, TheStateFolderIsMadeInTheUsersFolder) {
    Win32Paths paths("ventlock");
    const std::string folder = Variable(L"LOCALAPPDATA") + "\\Ventlock";
    const bool wasThere = fs::exists(ToWideText(folder));
    EXPECT_EQ(paths.StateFolder(), folder);
    EXPECT_TRUE(fs::is_directory(ToWideText(folder))) << folder;
    EXPECT_EQ(paths.StateFolder(), folder) << "made only once";
    if (!wasThere) fs::remove(ToWideText(folder));
}

TEST(Win32Paths, TheWorkingFolderIsTheCurrentOne) {
    const TempFolder folder;
    Win32Paths paths("ventlock");
    const std::wstring name = L"\u03A9" + std::wstring(60, L'x');
    const fs::path inside = fs::path(ToWideText(folder.Path())) / name / name;
    fs::create_directories(inside);
    {
        const WorkingFolder here(FromWideText(inside.wstring()));
        EXPECT_EQ(paths.WorkingFolder(), FromWideText(fs::path(inside).make_preferred().wstring()));
    }
    const WorkingFolder root("C:\\");
    EXPECT_EQ(paths.WorkingFolder(), "C:\\");
}

TEST(Win32Paths, FolderAndNameMeetInOneSeparator) {
    Win32Paths paths("ventlock");
    EXPECT_EQ(paths.Join("C:\\program", "Ventlock.log"), "C:\\program\\Ventlock.log");
    EXPECT_EQ(paths.Join("C:\\program\\", "Ventlock.log"), "C:\\program\\Ventlock.log");
    EXPECT_EQ(paths.Join("C:/program/", "Ventlock.log"), "C:/program/Ventlock.log");
    EXPECT_EQ(paths.Join("C:\\", "Ventlock.log"), "C:\\Ventlock.log");
    EXPECT_EQ(paths.Join("C:", "Ventlock.log"), "C:\\Ventlock.log");
    EXPECT_EQ(paths.Join("\\\\server\\share", "a\\b"), "\\\\server\\share\\a\\b");
    EXPECT_EQ(paths.Join("", "Ventlock.log"), "Ventlock.log");
}

TEST(Win32Paths, AbsoluteIsWhatTheWorkingFolderHasNoPartIn) {
    Win32Paths paths("ventlock");
    for (const char* const path : {"C:\\", "C:\\a", "c:/a", "A:\\Ddinstal.ini", "\\\\server\\share",
                                   "//server/share", "\\\\?\\C:\\a", "\\a", "/a"}) {
        EXPECT_TRUE(paths.IsAbsolute(path)) << path;
    }
    for (const char* const path : {"", "a", "a\\b", ".\\a", "..\\a", "C:", "C:a", "1:\\a", "ab:\\c"}) {
        EXPECT_FALSE(paths.IsAbsolute(path)) << path;
    }
}

}  // namespace
}  // namespace ventlock::test
