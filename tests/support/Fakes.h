#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/IAppInfo.h"
#include "platform/IClock.h"
#include "platform/IEventLog.h"
#include "platform/IEvents.h"
#include "platform/ILocale.h"
#include "platform/IMessageBox.h"
#include "platform/IPaths.h"
#include "platform/IProcess.h"

namespace ventlock::test {

/// Stands still at 2026-11-16 14:03:27 unless set otherwise.
struct FakeClock final : IClock {
    LocalTime now{2026, 11, 16, 14, 3, 27};
    LocalTime Now() override { return now; }
};

/// Keeps every message in order and answers at once.
struct FakeMessageBox final : IMessageBox {
    struct Message {
        std::string text;
        std::string title;
        std::optional<MessageHelp> help;
    };
    std::vector<Message> messages;

    void Show(const std::string& text, const std::string& title,
              const std::optional<MessageHelp>& help) override {
        messages.push_back({text, title, help});
    }
};

/// Keeps every entry in order, refused ones too.
struct FakeEventLog final : IEventLog {
    struct Entry {
        std::string text;
        std::int16_t type = 0;
    };
    std::vector<Entry> entries;
    bool refuses = false;

    bool Write(const std::string& text, std::int16_t type) override {
        entries.push_back({text, type});
        return !refuses;
    }
};

/// Counts how often pending events were let run.
struct FakeEvents final : IEvents {
    int yields = 0;
    void Yield() override { ++yields; }
};

/// Folders that a test chooses; "/" joins. Nothing on the disk is asked.
struct FakePaths final : IPaths {
    std::string programFolder = "/program";
    std::string exeName = "ventlock";
    std::string windowsDirectory = "/windows";
    std::string workingFolder = "/work";
    std::string stateFolder = "/state";
    bool programFolderIsWritable = true;
    bool ignoreCase = false;

    std::string ProgramFolder() override { return programFolder; }
    std::string ExeName() override { return exeName; }
    std::string WindowsDirectory() override { return windowsDirectory; }
    std::string WorkingFolder() override { return workingFolder; }
    std::string StateFolder() override { return stateFolder; }
    bool ProgramFolderIsWritable() override { return programFolderIsWritable; }
    std::string Join(std::string_view folder, std::string_view name) override {
        return std::string(folder) + (folder.ends_with('/') ? "" : "/") + std::string(name);
    }
    bool IsAbsolute(std::string_view path) override { return path.starts_with('/') || path.find(":\\") == 1; }
    bool IgnoreCase() override { return ignoreCase; }
};

struct FakeLocale final : ILocale {
    std::string languageName = "English";
    std::string LanguageName() override { return languageName; }
};

/// Keeps the paths of all programs that were to be started, refused ones too.
struct FakeProcess final : IProcess {
    std::vector<std::string> started;
    bool refuses = false;

    bool Start(const std::string& path) override {
        started.push_back(path);
        return !refuses;
    }
};

/// "Ventlock" 2.1.5 unless set otherwise.
struct FakeAppInfo final : IAppInfo {
    std::string title = "Ventlock";
    int major = 2;
    int minor = 1;
    int revision = 5;

    std::string Title() override { return title; }
    int Major() override { return major; }
    int Minor() override { return minor; }
    int Revision() override { return revision; }
};

}  // namespace ventlock::test
