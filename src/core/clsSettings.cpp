#include "core/clsSettings.h"

#include <memory>

#include "base/Numbers.h"
#include "base/Text.h"
#include "core/OwnFiles.h"
#include "core/modCommonTools.h"
#include "platform/Casing.h"

namespace ventlock {
namespace {

constexpr std::size_t kDwordSize = 4;
constexpr std::size_t kDataSourceBuffer = 255;
constexpr std::string_view kOdbcRegistration = "SOFTWARE\\ODBC\\odbc.ini\\PYX";

std::int32_t FromDword(std::string_view bytes) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < kDwordSize; ++i) {
        value |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
    }
    return static_cast<std::int32_t>(value);
}

std::string ToDword(std::int32_t number) {
    const auto value = static_cast<std::uint32_t>(number);
    std::string bytes;
    for (std::size_t i = 0; i < kDwordSize; ++i) bytes += static_cast<char>((value >> (8 * i)) & 0xFFU);
    return bytes;
}

/// The number a text begins with, or `otherwise` when it does not fit 16 bits: one bad value must not stop
/// the reading.
std::int16_t IntegerOr(std::string_view text, std::string_view otherwise) {
    try {
        return ToInteger(NumericValue(text));
    } catch (const RunTimeError&) {
        return ToInteger(NumericValue(otherwise));
    }
}

}  // namespace

clsSettings::clsSettings(IRegistry& registry, const ProfileStore& profiles, IPaths& paths, ILocale& locale)
    : registry_(registry), profiles_(profiles), paths_(paths), locale_(locale) {}

bool clsSettings::Init(const AppObjects& oLog, const std::optional<std::int16_t>& vOperation) {
    root_ = kSettingsRoot;
    oAppObjects_ = &oLog;
    return vOperation.value_or(2) == 2 && GetSettings();
}

bool clsSettings::GetSettings() {
    return Guarded(oAppObjects_, "Sgs", false, [&](StepLabel& step) {
        for (const SettingRow& row : StoredSettings()) {
            step = row.step;
            Load(row);
            if (row.writtenName == "DBPath") {
                ReplaceMissingDatabase();
                step = "03.3";
                DSN = profiles_.Read(INIPath, kDataSourceSection, kDataSourceKey, "PYX", kDataSourceBuffer);
            }
        }
        LastTAVVersions = TAVVersions;
        LoadLanguage();
        step = "05";
        LoadOwnIniFile();
        return true;
    });
}

void clsSettings::Load(const SettingRow& row) {
    std::optional<std::string> stored = GetValue(row.section, row.name);
    if (const auto* number = std::get_if<SettingRow::NumberProperty>(&row.property)) {
        this->*(*number) = IntegerOr(stored.value_or(std::string(row.defaultText)), row.defaultText);
        return;
    }
    std::string& text = this->*std::get<SettingRow::TextProperty>(row.property);
    text = stored ? *stored : DefaultOf(row);
    if (row.writtenName == "INIPath" && text.empty()) text = DefaultOf(row);
}

std::string clsSettings::DefaultOf(const SettingRow& row) {
    if (row.writtenName == "ErrLogPath") return paths_.Join(paths_.ProgramFolder(), "Ventlock.log");
    if (row.writtenName == "INIPath") return paths_.Join(paths_.WindowsDirectory(), "Pyx.ini");
    return std::string(row.defaultText);
}

void clsSettings::ReplaceMissingDatabase() {
    if (!DBPath.empty() && profiles_.Files().Exists(DBPath)) return;
    std::unique_ptr<IRegistryKey> key;
    if (registry_.OpenKey(RegistryRoot::LocalMachine, kOdbcRegistration, kKeyRead, key) != kRegistrySuccess)
        return;
    std::optional<std::string> file = QueryValue(*key, "DBQ");
    if (!file) {
        key.reset();
        if (registry_.OpenKey(RegistryRoot::CurrentUser, kOdbcRegistration, kKeyRead, key) !=
            kRegistrySuccess)
            return;
        file = QueryValue(*key, "DBQ");
    }
    if (file) DBPath = *file;
}

void clsSettings::LoadLanguage() {
    Language = GetValue("Settings", "Language").value_or("");
    if (!Language.empty()) return;
    const std::string systemLanguage = locale_.LanguageName();
    Language = UpperCase(systemLanguage.substr(0, 2)) == "DE" ? "DE" : "EN";
}

void clsSettings::LoadOwnIniFile() {
    const std::string path = OwnIniPath(paths_, profiles_.Files());
    DDInstallVersion = DecimalText(NumericValue(profiles_.Read(path, "DDInstall", "DDVersion", "2", 0)));
    TAVVersions = profiles_.Read(path, "TAVVersionSupport", "TAVVersionSupport", "5.0", 0);
}

bool clsSettings::SaveSettings() {
    return Guarded(oAppObjects_, "Sss", false, [&](StepLabel& step) {
        for (const std::string_view name : SaveOrder()) {
            const SettingRow& row = *FindSetting(name);
            step = row.step;
            StoreSetting(row,
                         SettingText(row));  // a refusal is not reported: the settings stay what they were
        }
        return true;
    });
}

RegistryStatus clsSettings::StoreSetting(const SettingRow& row, const std::string& text) {
    return StoreValue(row.writtenSection, row.writtenName, row.IsNumber(), text);
}

RegistryStatus clsSettings::StoreLanguage(const std::string& language) {
    return SetValue("Settings", "Language", kRegistryString, language);
}

std::string clsSettings::LateText(const LateSetting& setting) {
    return GetValue("Settings", setting.name).value_or("");
}

RegistryStatus clsSettings::StoreLate(const LateSetting& setting, const std::string& text) {
    return StoreValue("Settings", setting.name, setting.isNumber, text);
}

RegistryStatus clsSettings::StoreValue(std::string_view section, std::string_view name, bool isNumber,
                                       const std::string& text) {
    if (!isNumber) return SetValue(section, name, kRegistryString, text);
    return SetValue(section, name, kRegistryDword, ToDword(ToInteger(NumericValue(text))));
}

std::int16_t clsSettings::DDVersion() const {
    return IntegerOr(DDInstallVersion, "2");
}

std::string clsSettings::SettingText(const SettingRow& row) const {
    if (const auto* number = std::get_if<SettingRow::NumberProperty>(&row.savedProperty)) {
        return std::to_string(this->*(*number));
    }
    return this->*std::get<SettingRow::TextProperty>(row.savedProperty);
}

std::optional<std::string> clsSettings::GetValue(std::string_view section, std::string_view name) {
    const std::string path = root_ + std::string(section);
    std::unique_ptr<IRegistryKey> key;
    const auto open = [&](std::uint32_t mask) {
        return registry_.OpenKey(RegistryRoot::LocalMachine, path, mask, key) == kRegistrySuccess;
    };
    // Without rights to write, the full mask fails for reading too.
    if (!open(kKeyAllAccess32) && !open(kKeyRead)) return std::nullopt;
    return QueryValue(*key, name);
}

std::optional<std::string> clsSettings::QueryValue(IRegistryKey& key, std::string_view name) {
    std::uint32_t type = 0;
    std::string bytes;
    if (key.Query(name, type, bytes) != kRegistrySuccess) return std::nullopt;
    if (type == kRegistryDword && bytes.size() >= kDwordSize) return std::to_string(FromDword(bytes));
    if (type != kRegistryString) return std::nullopt;
    // Stored without a NUL; the buffer that it is fetched into always ends in one.
    bytes += '\0';
    return StripNull(bytes);
}

RegistryStatus clsSettings::SetValue(std::string_view section, std::string_view name, std::uint32_t type,
                                     std::string_view bytes) {
    if (!KeyExists(section)) {
        const RegistryStatus created = CreateKey(section);
        if (created != kRegistrySuccess) return created;
    }
    std::unique_ptr<IRegistryKey> key;
    const RegistryStatus opened =
        registry_.OpenKey(RegistryRoot::LocalMachine, root_ + std::string(section), kKeyAllAccess32, key);
    return opened == kRegistrySuccess ? key->Set(name, type, bytes) : opened;
}

bool clsSettings::KeyExists(std::string_view section) {
    std::unique_ptr<IRegistryKey> key;
    return registry_.OpenKey(RegistryRoot::LocalMachine, root_ + std::string(section), kKeyAllAccess32,
                             key) == kRegistrySuccess;
}

RegistryStatus clsSettings::CreateKey(std::string_view section) {
    std::unique_ptr<IRegistryKey> key;
    return registry_.CreateKey(RegistryRoot::LocalMachine, root_ + std::string(section), key);
}

}  // namespace ventlock
