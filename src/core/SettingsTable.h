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

/// All settings kept in the registry, in the order they are read.
std::span<const SettingRow> StoredSettings();

/// Written names in the order of the save.
std::span<const std::string_view> SaveOrder();

/// The row of a written name, case ignored; nullptr for none.
const SettingRow* FindSetting(std::string_view name);

}  // namespace ventlock
