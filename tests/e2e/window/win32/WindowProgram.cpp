#include "e2e/window/win32/WindowProgram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>

#include "platform/win32/WideText.h"

namespace ventlock::test {
namespace {

constexpr std::chrono::seconds kPatience{60};  // for one step; only a failing test waits so long
constexpr DWORD kBetweenLooksMs = 10;
constexpr UINT kAnswerMs = 5000;  // for what a window that hangs does not answer

[[noreturn]] void StopTest(const std::string& text) {
    ADD_FAILURE() << text;
    throw testing::AssertionException(
        testing::TestPartResult(testing::TestPartResult::kFatalFailure, __FILE__, __LINE__, text.c_str()));
}

BOOL CALLBACK AddTo(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

std::vector<HWND> Windows(BOOL(WINAPI* enumerate)(HWND, WNDENUMPROC, LPARAM), HWND parent) {
    std::vector<HWND> windows;
    enumerate(parent, AddTo, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

BOOL WINAPI EnumerateTopLevel(HWND /*parent*/, WNDENUMPROC add, LPARAM list) {
    return EnumWindows(add, list);
}

std::vector<HWND> TopLevel(DWORD process) {
    std::vector<HWND> windows = Windows(EnumerateTopLevel, nullptr);
    std::erase_if(windows, [process](HWND window) {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        return owner != process || !IsWindowVisible(window);
    });
    return windows;
}

/// What is shown below a window, in the order in which Tab goes through it.
std::vector<HWND> Shown(HWND window) {
    if (window == nullptr) return {};  // the system would take that for the whole desktop
    std::vector<HWND> children = Windows(EnumChildWindows, window);
    std::erase_if(children, [](HWND child) { return !IsWindowVisible(child); });
    return children;
}

std::wstring ClassOf(HWND window) {
    std::array<wchar_t, 64> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return name.data();
}

LRESULT Ask(HWND window, UINT message, WPARAM first, LPARAM second) {
    DWORD_PTR answer = 0;
    SendMessageTimeoutW(window, message, first, second, SMTO_ABORTIFHUNG, kAnswerMs, &answer);
    return static_cast<LRESULT>(answer);
}

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(Ask(window, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
    const LRESULT length = Ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::wstring WithoutAccessKeys(std::wstring caption) {
    std::erase(caption, L'&');
    return caption;
}

bool IsMessageBox(HWND window) {
    return ClassOf(window) == L"#32770";
}

bool IsField(HWND window) {
    const std::wstring name = ClassOf(window);
    return name == L"Edit" || name == L"ComboBox" || name == L"ListBox";
}

std::vector<std::wstring> SelectedItems(HWND list) {
    std::vector<std::wstring> items;
    const LRESULT count = Ask(list, LB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        const auto index = static_cast<WPARAM>(i);
        if (Ask(list, LB_GETSEL, index, 0) <= 0) continue;
        std::wstring text(static_cast<std::size_t>(Ask(list, LB_GETTEXTLEN, index, 0)) + 1, L'\0');
        const LRESULT length = Ask(list, LB_GETTEXT, index, reinterpret_cast<LPARAM>(text.data()));
        text.resize(static_cast<std::size_t>(length));
        items.push_back(text);
    }
    return items;
}

std::string Described(HWND window) {
    return FromWideText(ClassOf(window) + L" \"" + TextOf(window) + L"\"" +
                        (IsWindowEnabled(window) ? L"" : L" disabled"));
}

INPUT KeyInput(WORD key, bool isUp) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    const bool isExtended = key == VK_NEXT || key == VK_PRIOR || key == VK_HOME || key == VK_END ||
                            (key >= VK_LEFT && key <= VK_DOWN) || key == VK_DELETE;
    input.ki.dwFlags = (isUp ? KEYEVENTF_KEYUP : 0U) | (isExtended ? KEYEVENTF_EXTENDEDKEY : 0U);
    return input;
}

void SendKeys(const std::vector<WORD>& keys) {
    std::vector<INPUT> inputs;
    for (const WORD key : keys) inputs.push_back(KeyInput(key, false));
    for (auto key = keys.rbegin(); key != keys.rend(); ++key) inputs.push_back(KeyInput(*key, true));
    const UINT sent = SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
    if (sent != inputs.size()) StopTest("The keyboard does not work");
}

}  // namespace

WindowProgram::WindowProgram(const ProgramCall& call)
    : running_(call),
      process_(static_cast<DWORD>(running_.Process())),
      result_(std::async(std::launch::async, [this] { return running_.Wait(); })) {
    try {
        Await("a window in front", [this] { return IsInFront(); });
    } catch (...) {
        Kill();  // what it writes is waited for, and would be for ever
        throw;
    }
}

WindowProgram::~WindowProgram() {
    Kill();
}

void WindowProgram::Kill() const {
    if (HasEnded()) return;
    const HANDLE process = OpenProcess(PROCESS_TERMINATE, FALSE, process_);
    TerminateProcess(process, 255);
    CloseHandle(process);
}

bool WindowProgram::HasEnded() const {
    return result_.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

ProgramResult WindowProgram::WaitForEnd() const {
    if (result_.wait_for(kPatience) != std::future_status::ready)
        StopTest("The program does not end. " + Told());
    return result_.get();
}

std::string WindowProgram::Told() const {
    if (HasEnded()) return "It has ended with exit code " + std::to_string(result_.get().exitCode);
    std::string text = "Focus: " + Described(Focus()) + "\n";
    for (const HWND window : TopLevel(process_)) {
        text += Described(window) + (GetForegroundWindow() == window ? ", in front" : "") + "\n";
        for (const HWND child : Shown(window)) text += "    " + Described(child) + "\n";
    }
    return text;
}

void WindowProgram::Await(const std::string& what, const std::function<bool()>& isTrue) const {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (std::chrono::steady_clock::now() < end && !HasEnded()) {
        if (isTrue()) return;
        Sleep(kBetweenLooksMs);
    }
    StopTest("Waited in vain for " + what + ".\n" + Told());
}

// The system gives a new program's window the keyboard by itself, unless its user is at work elsewhere.
bool WindowProgram::IsInFront() const {
    DWORD owner = 0;
    GetWindowThreadProcessId(GetForegroundWindow(), &owner);
    if (owner == process_) return true;
    const HWND box = MessageBox();
    SetForegroundWindow(box != nullptr ? box : MainWindow());
    return false;
}

HWND WindowProgram::Focus() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof(info);
    if (!GetGUIThreadInfo(GetWindowThreadProcessId(GetForegroundWindow(), nullptr), &info)) return nullptr;
    // What can be typed in an editable list is a control of its own within it.
    const HWND parent = GetParent(info.hwndFocus);
    return ClassOf(parent) == L"ComboBox" ? parent : info.hwndFocus;
}

HWND WindowProgram::Field(const std::wstring& label) const {
    bool isNext = false;
    for (const HWND child : Shown(MainWindow())) {
        if (isNext && IsField(child)) return child;
        if (TextOf(child) == label + L":" && ClassOf(child) == L"Static") isNext = true;
    }
    return nullptr;
}

HWND WindowProgram::Button(const std::wstring& caption) const {
    for (const HWND child : Shown(MainWindow()))
        if (ClassOf(child) == L"Button" && WithoutAccessKeys(TextOf(child)) == caption) return child;
    return nullptr;
}

HWND WindowProgram::MessageBox() const {
    for (const HWND window : TopLevel(process_))
        if (IsMessageBox(window)) return window;
    return nullptr;
}

HWND WindowProgram::MainWindow() const {
    for (const HWND window : TopLevel(process_))
        if (GetMenu(window) != nullptr) return window;
    return nullptr;
}

void WindowProgram::ExpectText(const std::wstring& label, const std::wstring& text) const {
    Await("the text \"" + FromWideText(text) + "\" in " + FromWideText(label),
          [&] { return Field(label) != nullptr && TextOf(Field(label)) == text; });
}

void WindowProgram::ExpectFocused(const std::wstring& label) const {
    Await("the keyboard in " + FromWideText(label),
          [&] { return Field(label) != nullptr && Focus() == Field(label); });
}

void WindowProgram::ExpectButtonFocused(const std::wstring& caption) const {
    Await("the keyboard at " + FromWideText(caption),
          [&] { return Button(caption) != nullptr && Focus() == Button(caption); });
}

void WindowProgram::ExpectButtonEnabled(const std::wstring& caption, bool isEnabled) const {
    Await(FromWideText(caption) + (isEnabled ? " enabled" : " disabled"), [&] {
        return Button(caption) != nullptr && (IsWindowEnabled(Button(caption)) != FALSE) == isEnabled;
    });
}

void WindowProgram::ExpectSelected(const std::wstring& label, const std::vector<std::wstring>& items) const {
    Await("the selection in " + FromWideText(label),
          [&] { return Field(label) != nullptr && SelectedItems(Field(label)) == items; });
}

void WindowProgram::ExpectShown(const std::wstring& text) const {
    Await("the label \"" + FromWideText(text) + "\"", [&] {
        const std::vector<HWND> children = Shown(MainWindow());
        return std::any_of(children.begin(), children.end(),
                           [&](HWND child) { return ClassOf(child) == L"Static" && TextOf(child) == text; });
    });
}

void WindowProgram::ExpectMenu() const {
    Await("a menu", [&] {
        const std::vector<HWND> windows = TopLevel(process_);
        return std::any_of(windows.begin(), windows.end(),
                           [](HWND window) { return ClassOf(window) == L"#32768"; });
    });
}

std::wstring WindowProgram::DismissMessageBox() const {
    HWND box = nullptr;
    Await("a message box", [&] {
        box = MessageBox();
        return box != nullptr && GetForegroundWindow() == box;
    });
    std::wstring text;
    for (const HWND child : Shown(box))
        if (ClassOf(child) == L"Static" && !TextOf(child).empty()) text = TextOf(child);
    SendKeys({VK_RETURN});
    Await("the end of the message box", [&] { return !IsWindow(box) || !IsWindowVisible(box); });
    return text;
}

void WindowProgram::Press(const std::vector<WORD>& keys) const {
    Await("the window in front", [this] { return IsInFront(); });
    SendKeys(keys);
}

void WindowProgram::Replace(const std::wstring& label, const std::wstring& text) const {
    ExpectFocused(label);
    Press({VK_HOME});
    Press({VK_SHIFT, VK_END});
    Press({VK_DELETE});
    for (const wchar_t character : text) {
        const SHORT key = VkKeyScanW(character);
        if (key == -1) StopTest("The keyboard has no key for a character of " + FromWideText(text));
        std::vector<WORD> keys{static_cast<WORD>(key & 0xFF)};
        if ((key & 0x100) != 0) keys.insert(keys.begin(), VK_SHIFT);
        Press(keys);
    }
    ExpectText(label, text);
}

}  // namespace ventlock::test
