#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "core/clsSettings.h"
#include "core/modLocalization.h"
#include "entry/EntrySettings.h"
#include "support/FakeWindowPlace.h"
#include "support/LoggedApp.h"
#include "support/TempFolder.h"

namespace ventlock::test {

/// What outlives a run of the program: real files in a folder of their own, and a registry. Its end takes the
/// language back that runs have chosen.
class Machine {
 public:
    /// `registry` must outlive the machine.
    explicit Machine(IRegistry& registry) : registry_(registry) {
        paths_.programFolder = folder_ / "program";
        paths_.windowsDirectory = folder_ / "windows";
        std::filesystem::create_directory(paths_.programFolder);
        std::filesystem::create_directory(paths_.windowsDirectory);
    }
    ~Machine() { gsLanguage.clear(); }
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    IRegistry& Registry() { return registry_; }
    const ProfileStore& Profiles() { return profiles_; }
    FakePaths& Paths() { return paths_; }
    FakeLocale& Locale() { return locale_; }
    [[nodiscard]] std::string OwnIni() const { return paths_.programFolder + "/ventlock.ini"; }

 private:
    IRegistry& registry_;
    TempFolder folder_;
    std::unique_ptr<Host> host_ = CreateHost("ventlock");
    ProfileStore profiles_{host_->Files(), CodePage(1252)};
    FakePaths paths_;
    FakeLocale locale_;
};

/// One run of the program on a machine, as far as it carries the entry: log and settings, records and a place
/// on the screen.
struct ProgramRun {
    explicit ProgramRun(Machine& machine)
        : settings(std::make_shared<clsSettings>(machine.Registry(), machine.Profiles(), machine.Paths(),
                                                 machine.Locale())),
          records(events, machine.Profiles()) {
        app.Objects().Add(kSettingsKey, settings);
    }

    bool Load() { return SettingsToEntry(app.Objects(), records, place, offeredVersions); }
    bool Save() { return EntryToSettings(app.Objects(), records, place); }

    LoggedApp app;
    FakeEvents events;
    std::shared_ptr<clsSettings> settings;
    EntryRecords records;
    FakeWindowPlace place;
    std::string offeredVersions;
};

}  // namespace ventlock::test
