#pragma once

#include <cstdint>
#include <string>

#include "platform/IEventLog.h"

namespace ventlock {

/// The system's event log, under the source "Ventlock". The type goes to the system as it is; the text is the
/// entry's one insertion string.
class Win32EventLog final : public IEventLog {
 public:
    /// Takes one entry; False when it is refused.
    using Sink = bool (*)(std::uint16_t type, const std::wstring& text);

    explicit Win32EventLog(Sink sink = SystemSink) : sink_(sink) {}

    bool Write(const std::string& text, std::int16_t type) override;

 private:
    static bool SystemSink(std::uint16_t type, const std::wstring& text);

    Sink sink_;
};

}  // namespace ventlock
