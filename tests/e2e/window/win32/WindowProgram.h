#pragma once

#include <windows.h>

#include <functional>
#include <future>
#include <string>
#include <vector>

#include "e2e/RunProgram.h"

namespace ventlock::test {

/// Another program with windows, driven as its user would: real keys go to what has the keyboard, and what is
/// looked at is what its controls hold. A field is found by the label before it; things on pages that are not
/// in front are not found. Every question waits for its answer to come true, and a step that cannot be made
/// fails the test and leaves it.
class WindowProgram {
 public:
    /// Starts it and waits for a window of its to be in front, the main one or a message box.
    explicit WindowProgram(const ProgramCall& call);

    /// Ends it by force when it has not ended before.
    ~WindowProgram();
    WindowProgram(const WindowProgram&) = delete;
    WindowProgram& operator=(const WindowProgram&) = delete;

    // What comes to be.

    void ExpectText(const std::wstring& label, const std::wstring& text) const;
    void ExpectFocused(const std::wstring& label) const;
    void ExpectButtonFocused(const std::wstring& caption) const;
    void ExpectButtonEnabled(const std::wstring& caption, bool isEnabled) const;
    void ExpectSelected(const std::wstring& label, const std::vector<std::wstring>& items) const;

    /// A label of exactly this text is shown.
    void ExpectShown(const std::wstring& text) const;

    /// A menu has come down.
    void ExpectMenu() const;

    /// Waits for a message box, presses Return in it, waits until it has gone.
    /// @return its text
    std::wstring DismissMessageBox() const;

    // Keys, to whatever of the program has the keyboard; it is brought to the front for them.

    /// A key by its virtual-key code, with others held down: Press({VK_CONTROL, VK_NEXT}).
    void Press(const std::vector<WORD>& keys) const;

    /// Types a text of the keyboard's characters in place of all that the field with this label holds, which
    /// must have the keyboard, and waits until it has arrived.
    void Replace(const std::wstring& label, const std::wstring& text) const;

    /// Waits until the program, which has been told to, has ended.
    ProgramResult WaitForEnd() const;

    [[nodiscard]] bool HasEnded() const;

 private:
    void Kill() const;
    [[nodiscard]] HWND MainWindow() const;
    [[nodiscard]] HWND MessageBox() const;
    [[nodiscard]] HWND Field(const std::wstring& label) const;
    [[nodiscard]] HWND Button(const std::wstring& caption) const;
    [[nodiscard]] HWND Focus() const;
    [[nodiscard]] bool IsInFront() const;
    [[nodiscard]] std::string Told() const;
    void Await(const std::string& what, const std::function<bool()>& isTrue) const;

    RunningProgram running_;
    DWORD process_;
    std::shared_future<ProgramResult> result_;
};

}  // namespace ventlock::test
