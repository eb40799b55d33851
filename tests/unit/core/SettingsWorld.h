#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include "core/clsSettings.h"
#include "support/FakeRegistry.h"
#include "unit/core/LogWorld.h"

namespace ventlock::test {

/// Settings of a clean machine: an empty registry, an empty program folder and an empty Windows folder.
class SettingsWorld : public LogWorld {
 protected:
    void SetUp() override {
        paths_.programFolder = folder_ / "program";
        paths_.windowsDirectory = folder_ / "windows";
        std::filesystem::create_directory(paths_.programFolder);
        std::filesystem::create_directory(paths_.windowsDirectory);
        oAppObjects_.Add("Log", StartedLog(kLogToFile));
    }

    static std::string Key(std::string_view section) {
        return std::string(kSettingsRoot) + std::string(section);
    }

    void PutText(std::string_view section, std::string_view name, std::string_view text) {
        registry_.PutText(RegistryRoot::LocalMachine, Key(section), name, text);
    }
    void PutNumber(std::string_view section, std::string_view name, std::uint32_t number) {
        registry_.PutNumber(RegistryRoot::LocalMachine, Key(section), name, number);
    }

    [[nodiscard]] std::string OwnIni() const { return paths_.programFolder + "/ventlock.ini"; }
    [[nodiscard]] std::string PyxIni() const { return paths_.windowsDirectory + "/Pyx.ini"; }

    /// Settings that have read the world as it is now; the reading must succeed.
    std::unique_ptr<clsSettings> Loaded() {
        auto settings = std::make_unique<clsSettings>(registry_, profiles_, paths_, locale_);
        EXPECT_TRUE(settings->Init(oAppObjects_, 2));
        return settings;
    }

    FakeRegistry registry_;
    ProfileStore profiles_{files_, CodePage(1252)};
    FakePaths paths_;
    FakeLocale locale_;
    AppObjects oAppObjects_;
};

/// One stored setting as the program's documentation lists it.
struct StoredSetting {
    std::string name;     ///< of the value as it is written
    std::string section;  ///< as it is read
    std::string writtenSection;
    std::string step;
    std::string defaultText;  ///< "<program>" and "<windows>" stand for the folders of a SettingsWorld
    std::variant<std::string clsSettings::*, std::int16_t clsSettings::*> property;

    [[nodiscard]] bool IsNumber() const { return property.index() == 1; }
    [[nodiscard]] std::string Of(const clsSettings& settings) const {
        if (const auto* number = std::get_if<1>(&property)) return std::to_string(settings.*(*number));
        return settings.*std::get<0>(property);
    }
};

inline void PrintTo(const StoredSetting& row, std::ostream* out) {
    *out << row.name;
}

}  // namespace ventlock::test
