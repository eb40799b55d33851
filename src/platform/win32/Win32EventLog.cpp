#include "platform/win32/Win32EventLog.h"

#include <windows.h>

#include "platform/win32/WideText.h"

namespace ventlock {
namespace {

/// The one kind of entry there is; its type tells how grave it is.
constexpr DWORD kEventId = 1;

/// This program's way to the service, closed at the end.
class EventSource {
 public:
    EventSource() : handle_(RegisterEventSourceW(nullptr, L"Ventlock")) {}
    ~EventSource() {
        if (handle_ != nullptr) DeregisterEventSource(handle_);
    }
    EventSource(const EventSource&) = delete;
    EventSource& operator=(const EventSource&) = delete;

    [[nodiscard]] bool Report(WORD type, const wchar_t* text) const {
        return handle_ != nullptr &&
               ReportEventW(handle_, type, 0, kEventId, nullptr, 1, 0, &text, nullptr) != 0;
    }

 private:
    HANDLE handle_;
};

}  // namespace

bool Win32EventLog::SystemSink(std::uint16_t type, const std::wstring& text) {
    return EventSource().Report(type, text.c_str());
}

bool Win32EventLog::Write(const std::string& text, std::int16_t type) {
    return sink_(static_cast<std::uint16_t>(type), ToWideText(text));
}

}  // namespace ventlock
