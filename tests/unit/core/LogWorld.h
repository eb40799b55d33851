#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "core/AppObjects.h"
#include "core/clsLog.h"
#include "platform/Host.h"
#include "support/FailingFiles.h"
#include "support/Fakes.h"
#include "support/TempFolder.h"

namespace ventlock::test {

/// A log of real files in a folder of its own; clock, message box and event log are fakes.
class LogWorld : public testing::Test {
 protected:
    [[nodiscard]] std::string LogPath() const { return folder_ / "Ventlock.log"; }

    std::shared_ptr<clsLog> MakeLog() {
        return std::make_shared<clsLog>(files_, clock_, messageBox_, eventLog_, appInfo_);
    }

    /// A log that start-up has set up, with this level.
    std::shared_ptr<clsLog> StartedLog(std::int16_t level) {
        auto log = MakeLog();
        EXPECT_TRUE(log->Init(LogPath(), 2, "Ventlock"));
        log->LogLevel = level;
        return log;
    }

    /// The lines that the fake clock's time gives a header.
    static std::string Header() {
        const std::string rule(78, '*');
        return "\r\n" + rule + "\r\nVentlock  Ver 2.1.5  11-16-2026  14:03:27\r\n" + rule + "\r\n";
    }

    [[nodiscard]] std::string LogText() const { return ReadBytes(LogPath()); }

    TempFolder folder_;
    std::unique_ptr<Host> host_ = CreateHost("ventlock");
    FailingFiles files_{host_->Files()};
    FakeClock clock_;
    FakeMessageBox messageBox_;
    FakeEventLog eventLog_;
    FakeAppInfo appInfo_;
};

}  // namespace ventlock::test
