#include "platform/posix/PosixEventLog.h"

#include <sys/stat.h>
#include <syslog.h>

#include <algorithm>
#include <utility>

namespace ventlock {
namespace {

int PriorityOf(std::int16_t type) {
    switch (type) {
        case 2:
            return LOG_WARNING;
        case 4:
            return LOG_INFO;
        default:
            return LOG_ERR;
    }
}

bool IsSocket(const std::string& path) {
    struct stat facts {};
    return stat(path.c_str(), &facts) == 0 && S_ISSOCK(facts.st_mode);
}

}  // namespace

PosixEventLog::PosixEventLog(std::string socketPath, Sink sink)
    : socketPath_(std::move(socketPath)), sink_(sink) {}

void PosixEventLog::SystemSink(int priority, const char* text) {
    openlog("Ventlock", LOG_PID, LOG_USER);
    syslog(priority, "%s", text);
    closelog();
}

bool PosixEventLog::Write(const std::string& text, std::int16_t type) {
    if (!IsSocket(socketPath_)) return false;
    std::string line = text;
    std::replace(line.begin(), line.end(), '\r', ' ');
    sink_(PriorityOf(type), line.c_str());
    return true;
}

}  // namespace ventlock
