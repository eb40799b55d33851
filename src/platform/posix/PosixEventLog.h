#pragma once

#include <string>

#include "platform/IEventLog.h"

namespace ventlock {

/// The system log, under the name "Ventlock": type 1 as an error, 2 as a warning, 4 as information, any other
/// as an error. A CR of the text becomes a blank, because the system log has lines.
class PosixEventLog final : public IEventLog {
 public:
    /// Takes one entry: the system log's priority and the text.
    using Sink = void (*)(int priority, const char* text);

    /// @param socketPath  where the system log listens; without a socket there nothing can be written
    explicit PosixEventLog(std::string socketPath = "/dev/log", Sink sink = SystemSink);

    bool Write(const std::string& text, std::int16_t type) override;

 private:
    static void SystemSink(int priority, const char* text);

    std::string socketPath_;
    Sink sink_;
};

}  // namespace ventlock
