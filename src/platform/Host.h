#pragma once

#include <memory>
#include <string>

#include "platform/IAppInfo.h"
#include "platform/IClock.h"
#include "platform/IEventLog.h"
#include "platform/IFiles.h"
#include "platform/ILocale.h"
#include "platform/IMessageBox.h"
#include "platform/IPaths.h"
#include "platform/IProcess.h"
#include "platform/IRegistry.h"
#include "platform/Pause.h"

namespace ventlock {

/// All that the machine gives a program. The references live as long as the host.
class Host {
 public:
    virtual ~Host() = default;
    virtual IRegistry& Registry() = 0;
    virtual IFiles& Files() = 0;
    virtual IPaths& Paths() = 0;
    virtual IClock& Clock() = 0;
    virtual ILocale& Locale() = 0;
    virtual IEventLog& EventLog() = 0;
    virtual IProcess& Processes() = 0;
    virtual IAppInfo& AppInfo() = 0;

    /// Messages of a program without a window: on stderr. A program with a window brings its own.
    virtual IMessageBox& ConsoleMessages() = 0;
};

/// The host of this build. It touches no file before it is asked to.
/// @param exeName  what Paths().ExeName() reports: "ventlock" for every program of the family
/// @param pause    how its files wait between two tries while another program has a file or its lock
std::unique_ptr<Host> CreateHost(std::string exeName, Pause pause = SleepFor);

}  // namespace ventlock
