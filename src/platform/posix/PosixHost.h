#pragma once

#include <string>

#include "platform/Host.h"
#include "platform/ProgramInfo.h"
#include "platform/StderrMessageBox.h"
#include "platform/posix/PosixClock.h"
#include "platform/posix/PosixEventLog.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixLocale.h"
#include "platform/posix/PosixPaths.h"
#include "platform/posix/PosixProcess.h"
#include "platform/posix/StoreFileRegistry.h"

namespace ventlock {

/// The POSIX host's parts put together. The registry's store is the one that StoreFileRegistry::StorePath
/// names when the host is made.
class PosixHost final : public Host {
 public:
    PosixHost(std::string exeName, Pause pause);

    IRegistry& Registry() override { return registry_; }
    IFiles& Files() override { return files_; }
    IPaths& Paths() override { return paths_; }
    IClock& Clock() override { return clock_; }
    ILocale& Locale() override { return locale_; }
    IEventLog& EventLog() override { return eventLog_; }
    IProcess& Processes() override { return processes_; }
    IAppInfo& AppInfo() override { return appInfo_; }
    IMessageBox& ConsoleMessages() override { return consoleMessages_; }

 private:
    ProgramInfo appInfo_;
    PosixFiles files_;
    PosixPaths paths_;
    PosixClock clock_;
    PosixLocale locale_;
    PosixEventLog eventLog_;
    PosixProcess processes_;
    StderrMessageBox consoleMessages_{appInfo_};
    StoreFileRegistry registry_{files_, StoreFileRegistry::StorePath()};
};

}  // namespace ventlock
