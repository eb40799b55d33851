#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/RunTimeError.h"
#include "platform/Host.h"
#include "platform/IMessageBox.h"
#include "support/FakeRegistry.h"
#include "support/Fakes.h"
#include "ui/IClipboard.h"
#include "ui/IFileDialog.h"
#include "ui/IHelp.h"

namespace ventlock::test {

/// Keeps every message and answers at once; `whileShown` runs while the box would stand on the screen.
struct ScriptedMessageBox final : IMessageBox {
    std::vector<FakeMessageBox::Message> messages;
    std::function<void()> whileShown;

    void Show(const std::string& text, const std::string& title,
              const std::optional<MessageHelp>& help) override {
        messages.push_back({text, title, help});
        if (whileShown) whileShown();
    }

    /// The texts in order.
    [[nodiscard]] std::vector<std::string> Texts() const {
        std::vector<std::string> texts;
        for (const auto& message : messages) texts.push_back(message.text);
        return texts;
    }
};

/// A clipboard of a test's own. `changes` counts how often it was written.
struct FakeClipboard final : IClipboard {
    std::string text = "before";
    int changes = 0;
    bool isHeldByAnother = false;

    void SetText(const std::string& newText) override {
        if (isHeldByAnother) throw RunTimeError(ErrorNumber::CannotOpenClipboard);
        text = newText;
        ++changes;
    }
    std::string Text() override {
        if (isHeldByAnother) throw RunTimeError(ErrorNumber::CannotOpenClipboard);
        return text;
    }
};

/// Keeps every question and gives `answer`, "" for a cancelled dialog.
struct FakeFileDialog final : IFileDialog {
    std::vector<FileQuestion> questions;
    std::string answer;
    std::function<void()> whileShown;

    std::string Open(const FileQuestion& question) override {
        questions.push_back(question);
        if (whileShown) whileShown();
        return answer;
    }
};

/// Keeps what was asked for.
struct FakeHelp final : IHelp {
    std::vector<std::pair<std::string, int>> shown;
    bool isMissing = false;
    std::function<void()> whileShown;

    bool Show(const std::string& file, int command) override {
        shown.emplace_back(file, command);
        if (whileShown) whileShown();
        return !isMissing;
    }
};

/// A machine with real files and fakes for the rest.
struct FakeHost final : Host {
    FakeRegistry registry;
    FakePaths paths;
    FakeClock clock;
    FakeLocale locale;
    FakeEventLog eventLog;
    FakeProcess processes;
    FakeAppInfo appInfo;
    FakeMessageBox console;

    /// Where the program finds these two; a test may give others, or raise what a machine without them would.
    std::function<IRegistry&()> findRegistry = [this]() -> IRegistry& { return registry; };
    std::function<IClock&()> findClock = [this]() -> IClock& { return clock; };

    /// How the files wait for another program.
    Pause pause = SleepFor;

    IRegistry& Registry() override { return findRegistry(); }
    IFiles& Files() override { return real_->Files(); }
    IPaths& Paths() override { return paths; }
    IClock& Clock() override { return findClock(); }
    ILocale& Locale() override { return locale; }
    IEventLog& EventLog() override { return eventLog; }
    IProcess& Processes() override { return processes; }
    IAppInfo& AppInfo() override { return appInfo; }
    IMessageBox& ConsoleMessages() override { return console; }

 private:
    std::unique_ptr<Host> real_ =
        CreateHost("ventlock", [this](std::chrono::milliseconds time) { pause(time); });
};

}  // namespace ventlock::test
