#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/AppObjects.h"
#include "core/clsLog.h"
#include "platform/Host.h"
#include "support/Fakes.h"
#include "support/TempFolder.h"

namespace ventlock::test {

/// The shared service objects as start-up begins them: "Log" alone, which writes to a file in a folder of its
/// own and shows its entries in a fake message box.
class LoggedApp {
 public:
    LoggedApp() {
        EXPECT_TRUE(log_->Init(folder_ / "Ventlock.log", 2, "Ventlock"));
        log_->LogLevel = kLogToFile | kLogToScreen;
        objects_.Add(kLogKey, log_);
    }

    AppObjects& Objects() { return objects_; }
    IFiles& Files() { return host_->Files(); }

    /// All entries so far. Fails the test when message box and file differ.
    std::vector<std::string> Entries() {
        std::vector<std::string> entries;
        const std::string rule(78, '*');
        std::string file =
            "\r\n" + rule + "\r\nVentlock  Ver 2.1.5  11-16-2026  14:03:27\r\n" + rule + "\r\n";
        for (const FakeMessageBox::Message& message : messageBox_.messages) {
            entries.push_back(message.text);
            file += std::to_string(entries.size()) + "-->\r\n     " + message.text + "\r\n";
        }
        if (!entries.empty()) {
            EXPECT_EQ(ReadBytes(log_->LogFile), file);
        }
        return entries;
    }

 private:
    TempFolder folder_;
    std::unique_ptr<Host> host_ = CreateHost("ventlock");
    FakeClock clock_;
    FakeMessageBox messageBox_;
    FakeEventLog eventLog_;
    FakeAppInfo appInfo_;
    std::shared_ptr<clsLog> log_ =
        std::make_shared<clsLog>(host_->Files(), clock_, messageBox_, eventLog_, appInfo_);
    AppObjects objects_;
};

}  // namespace ventlock::test
