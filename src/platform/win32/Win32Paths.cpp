#include "platform/win32/Win32Paths.h"

#include <windows.h>

#include <knownfolders.h>
#include <objbase.h>
#include <shlobj.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "base/RunTimeError.h"
#include "platform/win32/FileErrors.h"
#include "platform/win32/FileHandle.h"
#include "platform/win32/FinalPath.h"
#include "platform/win32/TemporaryName.h"
#include "platform/win32/WideText.h"

namespace ventlock {
namespace {

constexpr std::wstring_view kSeparators = L"\\/";

bool IsSeparator(char c) {
    return c == '\\' || c == '/';
}

bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// A path that the system tells into a buffer of any length. `tell` takes a buffer and its size in units and
/// gives the path's length, the size it needs or all of the buffer when that is too small, and 0 for a
/// failure.
template <class Tell>
std::wstring Told(Tell tell) {
    std::wstring path(MAX_PATH, L'\0');
    while (true) {
        const DWORD length = tell(path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) throw FileError(ErrorNumber::PathNotFound, ".", GetLastError());
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(std::max<std::size_t>(length, path.size() * 2));
    }
}

/// The program's file behind every link; as it was started where the system tells no more.
std::wstring ProgramPath() {
    std::wstring started =
        Told([](wchar_t* buffer, DWORD size) { return GetModuleFileNameW(nullptr, buffer, size); });
    std::wstring path = FinalPath(SystemFileCalls(), OpenForAttributes(SystemFileCalls(), LongForm(started)));
    return path.empty() ? started : path;
}

std::wstring WideProgramFolder() {
    std::wstring path = ProgramPath();
    path.erase(path.find_last_of(kSeparators));
    if (path.ends_with(L':')) path += L'\\';
    return ShortForm(path);
}

}  // namespace

Win32Paths::Win32Paths(std::string exeName) : exeName_(std::move(exeName)) {}

std::string Win32Paths::ProgramFolder() {
    return FromWideText(WideProgramFolder());
}

std::string Win32Paths::ExeName() {
    return exeName_;
}

std::string Win32Paths::WindowsDirectory() {
    return FromWideText(Told([](wchar_t* buffer, DWORD size) { return GetWindowsDirectoryW(buffer, size); }));
}

std::string Win32Paths::WorkingFolder() {
    return FromWideText(Told([](wchar_t* buffer, DWORD size) { return GetCurrentDirectoryW(size, buffer); }));
}

std::string Win32Paths::StateFolder() {
    PWSTR told = nullptr;
    const HRESULT result = SHGetKnownFolderPath(FOLDERID_LocalAppData, KF_FLAG_CREATE, nullptr, &told);
    const std::unique_ptr<wchar_t, decltype(&CoTaskMemFree)> base(told, CoTaskMemFree);
    if (FAILED(result)) {
        throw FileError(ErrorNumber::PathNotFound, "the user's folder for data of this machine",
                        static_cast<DWORD>(HRESULT_CODE(result)));
    }
    std::string folder = Join(FromWideText(base.get()), "Ventlock");
    CreateDirectoryW(ToWideText(folder).c_str(),
                     nullptr);  // whoever writes there meets the reason of a failure
    return folder;
}

bool Win32Paths::ProgramFolderIsWritable() {
    const std::wstring path =
        LongForm(ToWideText(Join(ProgramFolder(), FromWideText(TemporaryName(L"folder")))));
    return FileHandle(
               CreateFileW(path.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                           FILE_ATTRIBUTE_TEMPORARY | FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE,
                           nullptr))
        .IsOpen();
}

std::string Win32Paths::Join(std::string_view folder, std::string_view name) {
    std::string path(folder);
    if (!path.empty() && !IsSeparator(path.back())) path += '\\';
    path += name;
    return path;
}

bool Win32Paths::IsAbsolute(std::string_view path) {
    if (path.empty()) return false;
    if (IsSeparator(path[0])) return true;
    return path.size() > 2 && IsLetter(path[0]) && path[1] == ':' && IsSeparator(path[2]);
}

}  // namespace ventlock
