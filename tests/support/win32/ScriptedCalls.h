#pragma once

#include <windows.h>

#include <map>
#include <string>

#include "platform/win32/FileCalls.h"
#include "support/CallScript.h"

namespace ventlock::test {

/// The system's file calls, written down one after the other with the paths of their files, any of which can
/// be made to fail. When they stutter, a read and a write take one byte. One at a time.
class ScriptedCalls final : public CallScript {
 public:
    ScriptedCalls();
    ~ScriptedCalls() override;

    /// Calls for a Win32Files; usable while this object lives.
    static FileCalls Calls();

    [[nodiscard]] int OpenFiles() const override { return static_cast<int>(paths_.size()); }

    /// For the calls themselves: writes one down; False and GetLastError when it is to fail.
    bool Pass(const std::string& name, const std::wstring& path);
    bool Pass(const std::string& name, HANDLE file);
    void NoteOpen(HANDLE file, const wchar_t* path);
    void NoteClose(HANDLE file) { paths_.erase(file); }

 private:
    std::map<HANDLE, std::wstring> paths_;  ///< of what is open
};

}  // namespace ventlock::test
