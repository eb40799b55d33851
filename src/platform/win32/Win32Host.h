#pragma once

#include <string>

#include "platform/Host.h"
#include "platform/ProgramInfo.h"
#include "platform/StderrMessageBox.h"
#include "platform/win32/Win32Clock.h"
#include "platform/win32/Win32EventLog.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32Locale.h"
#include "platform/win32/Win32Paths.h"
#include "platform/win32/Win32Process.h"
#include "platform/win32/Win32Registry.h"

namespace ventlock {

/// The Windows host's parts put together.
class Win32Host final : public Host {
 public:
    Win32Host(std::string exeName, Pause pause);

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
    Win32Files files_;
    Win32Paths paths_;
    Win32Clock clock_;
    Win32Locale locale_;
    Win32EventLog eventLog_;
    Win32Process processes_;
    StderrMessageBox consoleMessages_{appInfo_};
    Win32Registry registry_;
};

}  // namespace ventlock
