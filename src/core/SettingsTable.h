#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace ventlock {

class clsSettings;

/// One stored setting: where it lives in the registry, below the program's root key, and which property it
/// fills.
struct SettingRow {
    using TextProperty = std::string clsSettings::*;
    using NumberProperty = std::int16_t clsSettings::*;

    std::string_view step;            ///< step label of its reading
    std::string_view section;         ///< subkey it is read from
    std::string_view name;            ///< value name it is read by
    std::string_view writtenSection;  ///< both as the save writes them; letter case apart they are the same
    std::string_view writtenName;
    std::variant<TextProperty, NumberProperty> property;
    std::variant<TextProperty, NumberProperty> savedProperty;  ///< the property that the save stores
    std::string_view defaultText;                              ///< when absent; a number in decimal

    [[nodiscard]] bool IsNumber() const { return std::holds_alternative<NumberProperty>(property); }
};

/// A setting of the registry that is read when it is asked for, not together with the others. It stands in
/// the subkey "Settings".
struct LateSetting {
    std::string_view name;
    bool isNumber = false;
};

inline constexpr std::string_view kRecentDDInstallPaths = "RecentDDInstallPaths";
inline constexpr std::string_view kRecentINIPaths = "RecentINIPaths";
inline constexpr std::string_view kLogWindowLeft = "LogWindowLeft";
inline constexpr std::string_view kLogWindowTop = "LogWindowTop";

/// All of them.
std::span<const LateSetting> LateSettings();

/// The one of a name, case ignored; nullptr for none.
const LateSetting* FindLateSetting(std::string_view name);

/// All settings kept in the registry that are read together, in the order of that.
std::span<const SettingRow> StoredSettings();

/// Written names in the order of the save.
std::span<const std::string_view> SaveOrder();

/// The row of a written name, case ignored; nullptr for none.
const SettingRow* FindSetting(std::string_view name);

}  // namespace ventlock
