// What every single system call that fails leaves of the settings store, which is a file on this host.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "core/clsSettings.h"
#include "platform/posix/StoreFileRegistry.h"
#include "support/Fakes.h"
#include "support/FaultTrial.h"
#include "support/LoggedApp.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Settings over a store file in the folder, none of them read yet.
class SettingsOverStore {
 public:
    explicit SettingsOverStore(const std::string& folder) : registry_(*files_, folder + "/registry.ini") {
        settings_.Init(app_.Objects(), 0);
    }

    clsSettings& operator*() { return settings_; }
    std::vector<std::string> Entries() { return app_.Entries(); }

 private:
    LoggedApp app_;
    std::unique_ptr<IFiles> files_ = ScriptedFiles();
    ProfileStore profiles_{*files_, CodePage(1252)};
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

/// The settings store's own reasons.
std::string StatusOf(const FaultReason& reason) {
    switch (reason.error) {
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
void FailEveryCallOfSet(const char* name, const FileWork& work, const std::string& middle,
                        std::size_t leastCalls) {
    FailEveryCall(name, work, leastCalls, [&](const Trial& clean, const Trial& trial, const Fault& fault) {
        ExpectNothingBeside(work, clean, trial, fault);
        const std::string bytes = BytesOf(trial.after, "registry.ini");
        if (trial.outcome.isDone) {
            EXPECT_EQ(bytes, clean.after.at("registry.ini"));
        } else {
            if (bytes != middle) ExpectOldOrNew(work, clean, trial, "registry.ini");
            EXPECT_THAT(trial.outcome.messages, ElementsAre(StatusOf(fault.reason)));
        }
    });
    EXPECT_EQ(TryStuttering(work).after, Try(work).after);
}

FileWork SaveOverOldSettings() {
    const auto saveOld = [](const std::string& folder) { return SaveAllSettings(folder, 1, "old"); };
    const auto saveNew = [](const std::string& folder) { return SaveAllSettings(folder, 2, "new"); };
    return {{{"registry.ini", Try({{}, saveOld}).after.at("registry.ini")}}, saveNew};
}

TEST(SettingsFaults, LeaveASettingsStoreThatGetsOneSettingWhole) {
    const FileWork work{SaveOverOldSettings().before, SetOneSetting};
    FailEveryCallOfSet("one setting", work, BytesOf(work.before, "registry.ini"), 48);
}

TEST(SettingsFaults, LeaveNoSettingsStoreOrAWholeOne) {
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

TEST(SettingsFaults, KeepAtMostOneOfAllSettingsFromBeingSaved) {
    const FileWork work = SaveOverOldSettings();
    const std::vector<std::string> calls = Try(work).calls;
    const std::size_t settings = StoredSettings().size();
    const std::size_t callsEach = calls.size() / settings;
    // Each setting is saved by the same calls, so that one in the middle tells of all.
    for (std::size_t call = 0; call < calls.size(); ++call) ASSERT_EQ(calls[call], calls[call % callsEach]);
    const auto isTried = [&](std::size_t call) { return call / callsEach == settings / 2; };
    const std::vector<std::string> before = LinesOf(work.before.at("registry.ini"));
    FailEveryCall(
        "all settings", work, 48,
        [&](const Trial& clean, const Trial& trial, const Fault& fault) {
            ExpectNothingBeside(work, clean, trial, fault);
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
