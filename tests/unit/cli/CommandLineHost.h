#pragma once

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "cli/CommandLine.h"
#include "platform/Host.h"
#include "support/FailingFiles.h"
#include "support/FakeRegistry.h"
#include "support/Fakes.h"
#include "support/TempFolder.h"

namespace ventlock::test {

/// A machine in memory with real files in a folder of its own.
class CommandLineHost final : public Host {
 public:
    CommandLineHost() {
        paths.programFolder = folder.Path();
        paths.windowsDirectory = folder.Path();
        paths.workingFolder = folder.Path();
        paths.stateFolder = folder.Path();
        for (const char* const name : {"QorStandard.dct", "Ventlock.dct"}) {
            WriteBytes(folder / name, ReadBytes(std::string(VENTLOCK_SOURCE_FOLDER "/data/") + name));
        }
    }

    IRegistry& Registry() override { return registry; }
    IFiles& Files() override { return files; }
    IPaths& Paths() override { return paths; }
    IClock& Clock() override { return clock_; }
    ILocale& Locale() override { return locale_; }
    IEventLog& EventLog() override { return eventLog_; }
    IProcess& Processes() override { return processes_; }
    IAppInfo& AppInfo() override { return appInfo; }
    IMessageBox& ConsoleMessages() override { return messages_; }

 private:
    std::unique_ptr<Host> real_ = CreateHost("ventlock");

 public:
    TempFolder folder;
    FailingFiles files{real_->Files()};
    FakePaths paths;
    FakeRegistry registry;
    FakeAppInfo appInfo;

 private:
    FakeClock clock_;
    FakeLocale locale_;
    FakeEventLog eventLog_;
    FakeProcess processes_;
    FakeMessageBox messages_;
};

/// What a call of the command line gave.
struct Answer {
    ExitCode code = ExitCode::Done;
    std::string out;
    std::string err;
};

inline Answer Call(Host& host, const std::vector<std::string>& arguments) {
    std::ostringstream out;
    std::ostringstream err;
    const ExitCode code = RunCommandLine(arguments, host, out, err, false);
    return {code, out.str(), err.str()};
}

}  // namespace ventlock::test
