// What every single system call that fails leaves of the files that the program writes, and what is told of
// it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string_view>

#include "core/clsSettings.h"
#include "db/clsDevice.h"
#include "db/clsManufacturer.h"
#include "files/clsDDInstall.h"
#include "files/clsPyxConfig.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/StoreFileRegistry.h"
#include "support/Fakes.h"
#include "support/LoggedApp.h"
#include "support/TempFolder.h"
#include "unit/files/posix/FaultTrial.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The device entry that is written.
struct FlowEntry {
    FlowEntry() {
        manufacturer.ManID = "26";
        manufacturer.Name = "Acme";
        device.ManID = "26";
        device.DevID = "7";
        device.DevName = "Flow";
        device.DevRev = "1";
        device.DDRev = "1";
        device.ProtRev = "05";
    }

    FakeEvents events;
    clsManufacturer manufacturer{events};
    clsDevice device{events};
};

/// Files over the scripted calls. A lock that cannot be had is given up at once.
PosixFiles ScriptedFiles() {
    return PosixFiles(std::chrono::milliseconds(0), ScriptedCalls::Calls());
}

Outcome InsertIntoPyxIni(const std::string& folder) {
    FlowEntry entry;
    LoggedApp app;
    PosixFiles files = ScriptedFiles();
    const ProfileStore profiles(files, CodePage(1252));
    clsPyxConfig writer(profiles);
    writer.IniPath = folder + "/Pyx.ini";
    writer.DeviceDLL = "Dev.dll";
    writer.DeviceHelp = "h.hlp";
    const bool isDone = writer.Init(app.Objects(), 2) && writer.Insert(entry.manufacturer, entry.device);
    return {isDone, app.Entries()};
}

Outcome WriteDdinstal(const std::string& folder) {
    FlowEntry entry;
    LoggedApp app;
    PosixFiles files = ScriptedFiles();
    const ProfileStore profiles(files, CodePage(1252));
    clsDDInstall writer(profiles);
    writer.IniPath = folder + "/Ddinstal.ini";
    writer.DeviceDLL = "Dev.dll";
    writer.Template = "t.mrg";
    writer.TAVVersionSupport = "5.0, 6.0";
    writer.DDVersion = 2;
    const bool isDone =
        writer.Init(app.Objects(), 2) && writer.WriteDDInstall(entry.manufacturer, entry.device);
    return {isDone, app.Entries()};
}

Outcome WriteDataSourceName(const std::string& folder) {
    PosixFiles files = ScriptedFiles();
    const ProfileStore profiles(files, CodePage(1252));
    try {
        profiles.Write(folder + "/Pyx.ini", kDataSourceSection, kDataSourceKey, "Prüfstand");
    } catch (const RunTimeError& error) {
        return {false, {error.what()}};
    }
    return {true, {}};
}

/// Settings over a store file in the folder, none of them read yet.
class SettingsOverStore {
 public:
    explicit SettingsOverStore(const std::string& folder) : registry_(files_, folder + "/registry.ini") {
        settings_.Init(app_.Objects(), 0);
    }

    clsSettings& operator*() { return settings_; }
    std::vector<std::string> Entries() { return app_.Entries(); }

 private:
    LoggedApp app_;
    PosixFiles files_ = ScriptedFiles();
    ProfileStore profiles_{files_, CodePage(1252)};
    StoreFileRegistry registry_;
    FakePaths paths_;
    FakeLocale locale_;
    clsSettings settings_{registry_, profiles_, paths_, locale_};
};

Outcome SetOneSetting(const std::string& folder) {
    SettingsOverStore settings(folder);
    const RegistryStatus status = (*settings).StoreSetting(*FindSetting("ManName"), "Acme");
    if (status == kRegistrySuccess) return {true, {}};
    return {false, {std::to_string(status)}};
}

Outcome SaveAllSettings(const std::string& folder, std::int16_t number, const std::string& text) {
    SettingsOverStore settings(folder);
    for (const SettingRow& row : StoredSettings()) {
        if (const auto* property = std::get_if<SettingRow::NumberProperty>(&row.savedProperty)) {
            (*settings).*(*property) = number;
        } else {
            (*settings).*std::get<SettingRow::TextProperty>(row.savedProperty) = text;
        }
    }
    const bool isDone = (*settings).SaveSettings();
    return {isDone, settings.Entries()};
}

const std::string kOldPyxIni = CrLf(
    "[Devices]\n"
    "000011.0001.01=000011/0001\n"
    "[000011.0001.01]\n"
    "Description=Old\n");
const std::string kUntidyPyxIni = CrLf(
    "[Devices]\n"
    "000011.0001.01=000011/0001\n"
    "000026.0007.01=000026/0007\n"
    "[000011.0001.01]\n"
    "Description=Old\n"
    "[000026.0007.01]\n"
    "DeviceHelp=000026\\0007\\h.hlp\n"
    "BlockHelp_001=000026\\0007\\\n"
    "DeviceDLL=000026\\0007\\Dev.dll\n"
    "Description=Flow\n"
    "HART Protocol Rev=5\n");
const std::string kUntidyNewPyxIni = CrLf(
    "[Devices]\n"
    "000026.0007.01=000026/0007\n"
    "[000026.0007.01]\n"
    "DeviceHelp=000026\\0007\\h.hlp\n"
    "BlockHelp_001=000026\\0007\\\n"
    "DeviceDLL=000026\\0007\\Dev.dll\n"
    "Description=Flow\n"
    "HART Protocol Rev=5\n");
const std::string kOldDdinstal = CrLf(
    "[General]\n"
    "NumOfMfg=1\n"
    "[Mfg1]\n"
    "ID=000011\n"
    "NumOfDev=0\n"
    "Name=Best\n");
const std::string kDdinstalWithDevice = CrLf(
    "[General]\n"
    "NumOfMfg=1\n"
    "[Mfg1]\n"
    "ID=000026\n"
    "NumOfDev=1\n"
    "Name=Old\n"
    "[000026.1]\n"
    "DevType=0007\n"
    "DevTypeRev=01\n");

std::string BytesOf(const FolderContent& content, const std::string& name) {
    const auto found = content.find(name);
    return found == content.end() ? "<none>" : found->second;
}

/// Whether the trial's file is that of before or of a run without a fault.
void ExpectOldOrNew(const FileOperation& operation, const Trial& clean, const Trial& trial,
                    const std::string& name) {
    const std::string bytes = BytesOf(trial.after, name);
    if (bytes == BytesOf(clean.after, name)) return;
    EXPECT_EQ(bytes, BytesOf(operation.before, name)) << name;
}

/// Nothing stands in the folder but the files of before and of a run without a fault. Only a lock whose own
/// removal failed may stay, for its next holder to remove.
void ExpectNothingBeside(const FileOperation& operation, const Trial& clean, const Trial& trial,
                         const Fault& fault) {
    const auto expectKnown = [&](const FolderContent& content, const std::string& allowed) {
        for (const auto& [name, bytes] : content) {
            EXPECT_TRUE(operation.before.contains(name) || clean.after.contains(name) ||
                        (!allowed.empty() && name.ends_with(allowed)))
                << name;
        }
    };
    expectKnown(trial.after, trial.calls[fault.call] == "unlink" ? ".lock" : "");
    expectKnown(trial.later, "");
}

/// The index of the first call that stores the file itself: the look at it from which its last replacement
/// starts.
std::size_t SaveBegins(const Trial& clean) {
    const auto rename = std::find(clean.calls.rbegin(), clean.calls.rend(), "rename");
    const auto look = std::find(rename, clean.calls.rend(), "lstat");
    return static_cast<std::size_t>(clean.calls.rend() - look) - 1;
}

void ExpectWholePyxIni(const FileOperation& operation, const std::string& untidy, const Trial& clean,
                       const Trial& trial, const Fault& fault) {
    ExpectNothingBeside(operation, clean, trial, fault);
    ExpectOldOrNew(operation, clean, trial, "Pyx.ini.bak");
    if (!trial.outcome.isDone) {
        ExpectOldOrNew(operation, clean, trial, "Pyx.ini");
        EXPECT_THAT(trial.outcome.messages, ElementsAre("INIins-01: " + CauseOf(fault.error)));
    } else if (!trial.outcome.messages.empty()) {
        EXPECT_EQ(BytesOf(trial.after, "Pyx.ini"), untidy);
        EXPECT_THAT(trial.outcome.messages, ElementsAre("INIwb-01: " + CauseOf(fault.error)));
    } else {
        EXPECT_EQ(BytesOf(trial.after, "Pyx.ini"), clean.after.at("Pyx.ini"));
    }
}

void FailEveryCallOfInsert(const char* name, const FileOperation& operation, const std::string& untidy,
                           std::size_t leastCalls) {
    FailEveryCall(name, operation, leastCalls,
                  [&](const Trial& clean, const Trial& trial, const Fault& fault) {
                      ExpectWholePyxIni(operation, untidy, clean, trial, fault);
                  });
    EXPECT_EQ(TryStuttering(operation).after, Try(operation).after);
}

TEST(FileFaults, LeaveAnExistingPyxIniWhole) {
    const FileOperation operation{{{"Pyx.ini", kOldPyxIni}, {"Pyx.ini.bak", "older"}}, InsertIntoPyxIni};
    FailEveryCallOfInsert("Pyx.ini, existing", operation, kUntidyPyxIni, 45);
}

TEST(FileFaults, LeaveNoPyxIniOrAWholeOne) {
    FailEveryCallOfInsert("Pyx.ini, new", {{}, InsertIntoPyxIni}, kUntidyNewPyxIni, 40);
}

void FailEveryCallOfWriteDDInstall(const char* name, const FileOperation& operation, std::size_t leastCalls) {
    FailEveryCall(
        name, operation, leastCalls, [&](const Trial& clean, const Trial& trial, const Fault& fault) {
            ExpectNothingBeside(operation, clean, trial, fault);
            ExpectOldOrNew(operation, clean, trial, "Ddinstal.ini");
            ExpectOldOrNew(operation, clean, trial, "Ddinstal.ini.bak");
            if (trial.outcome.isDone) {
                EXPECT_EQ(BytesOf(trial.after, "Ddinstal.ini"), BytesOf(clean.after, "Ddinstal.ini"));
                EXPECT_THAT(trial.outcome.messages, IsEmpty());
            } else {
                const std::string tag = fault.call < SaveBegins(clean) ? "DDwddi-01: " : "DDwddi-02: ";
                EXPECT_THAT(trial.outcome.messages, ElementsAre(tag + CauseOf(fault.error)));
            }
        });
    EXPECT_EQ(TryStuttering(operation).after, Try(operation).after);
}

TEST(FileFaults, LeaveADdinstalThatGetsADeviceWhole) {
    FailEveryCallOfWriteDDInstall(
        "Ddinstal.ini, new device",
        {{{"Ddinstal.ini", kOldDdinstal}, {"Ddinstal.ini.bak", "older"}}, WriteDdinstal}, 47);
}

TEST(FileFaults, LeaveADdinstalWhoseDeviceIsWrittenAnewWhole) {
    FailEveryCallOfWriteDDInstall("Ddinstal.ini, known device",
                                  {{{"Ddinstal.ini", kDdinstalWithDevice}}, WriteDdinstal}, 46);
}

TEST(FileFaults, LeaveNoDdinstalOrAWholeOne) {
    FailEveryCallOfWriteDDInstall("Ddinstal.ini, new", {{}, WriteDdinstal}, 26);
}

TEST(FileFaults, LeaveThePyxIniThatGetsADataSourceNameWhole) {
    const FileOperation operation{{{"Pyx.ini", kOldPyxIni}}, WriteDataSourceName};
    FailEveryCall("DataSourceName", operation, 30,
                  [&](const Trial& clean, const Trial& trial, const Fault& fault) {
                      ExpectNothingBeside(operation, clean, trial, fault);
                      ExpectOldOrNew(operation, clean, trial, "Pyx.ini");
                      if (trial.outcome.isDone) {
                          EXPECT_EQ(BytesOf(trial.after, "Pyx.ini"), clean.after.at("Pyx.ini"));
                      } else {
                          const std::string cause = CauseOf(fault.error);
                          EXPECT_THAT(trial.outcome.messages,
                                      ElementsAre(cause.substr(0, cause.find(" (")) +
                                                  " \"<folder>/Pyx.ini\": " + strerrordesc_np(fault.error)));
                      }
                  });
    EXPECT_EQ(TryStuttering(operation).after, Try(operation).after);
}

/// The settings store's own reasons.
std::string StatusOf(int error) {
    switch (error) {
        case ENOSPC:
            return "112";
        case EIO:
            return "1117";
        case EMFILE:
            return "4";
        default:
            return "5";
    }
}

/// @param middle  what the store holds when its key has been made and the value has not
void FailEveryCallOfSet(const char* name, const FileOperation& operation, const std::string& middle,
                        std::size_t leastCalls) {
    FailEveryCall(name, operation, leastCalls,
                  [&](const Trial& clean, const Trial& trial, const Fault& fault) {
                      ExpectNothingBeside(operation, clean, trial, fault);
                      const std::string bytes = BytesOf(trial.after, "registry.ini");
                      if (trial.outcome.isDone) {
                          EXPECT_EQ(bytes, clean.after.at("registry.ini"));
                      } else {
                          if (bytes != middle) ExpectOldOrNew(operation, clean, trial, "registry.ini");
                          EXPECT_THAT(trial.outcome.messages, ElementsAre(StatusOf(fault.error)));
                      }
                  });
    EXPECT_EQ(TryStuttering(operation).after, Try(operation).after);
}

FileOperation SaveOverOldSettings() {
    const auto saveOld = [](const std::string& folder) { return SaveAllSettings(folder, 1, "old"); };
    const auto saveNew = [](const std::string& folder) { return SaveAllSettings(folder, 2, "new"); };
    return {{{"registry.ini", Try({{}, saveOld}).after.at("registry.ini")}}, saveNew};
}

TEST(FileFaults, LeaveASettingsStoreThatGetsOneSettingWhole) {
    const FileOperation operation{SaveOverOldSettings().before, SetOneSetting};
    FailEveryCallOfSet("one setting", operation, BytesOf(operation.before, "registry.ini"), 48);
}

TEST(FileFaults, LeaveNoSettingsStoreOrAWholeOne) {
    FailEveryCallOfSet("one setting of a new store", {{}, SetOneSetting},
                       "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvard Systems\\TAVToolkit\\Ventlock\\Settings]\r\n",
                       70);
}

/// Lines of a text, each with its end.
std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size() - 1) + 1;
        lines.push_back(text.substr(at, end - at));
        at = end;
    }
    return lines;
}

TEST(FileFaults, KeepAtMostOneOfAllSettingsFromBeingSaved) {
    const FileOperation operation = SaveOverOldSettings();
    const std::vector<std::string> calls = Try(operation).calls;
    const std::size_t settings = StoredSettings().size();
    const std::size_t callsEach = calls.size() / settings;
    // Each setting is saved by the same calls, so that one in the middle tells of all.
    for (std::size_t call = 0; call < calls.size(); ++call) ASSERT_EQ(calls[call], calls[call % callsEach]);
    const auto isTried = [&](std::size_t call) { return call / callsEach == settings / 2; };
    const std::vector<std::string> before = LinesOf(operation.before.at("registry.ini"));
    FailEveryCall(
        "all settings", operation, 48,
        [&](const Trial& clean, const Trial& trial, const Fault& fault) {
            ExpectNothingBeside(operation, clean, trial, fault);
            EXPECT_TRUE(trial.outcome.isDone);
            EXPECT_THAT(trial.outcome.messages, IsEmpty());
            const std::vector<std::string> whole = LinesOf(clean.after.at("registry.ini"));
            const std::vector<std::string> lines = LinesOf(BytesOf(trial.after, "registry.ini"));
            ASSERT_EQ(lines.size(), whole.size());
            int missed = 0;
            for (std::size_t i = 0; i < lines.size(); ++i) {
                if (lines[i] == whole[i]) continue;
                EXPECT_EQ(lines[i], before[i]);
                ++missed;
            }
            EXPECT_LE(missed, 1);
        },
        isTried);
}

}  // namespace
}  // namespace ventlock::test
