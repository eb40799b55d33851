#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/Variant.h"
#include "core/AppObjects.h"
#include "core/Guarded.h"
#include "core/SettingsTable.h"
#include "platform/ILocale.h"
#include "platform/IPaths.h"
#include "platform/IRegistry.h"
#include "platform/ProfileEdit.h"

namespace ventlock {

/// Where the program's settings live below HKEY_LOCAL_MACHINE.
inline constexpr std::string_view kSettingsRoot = "SOFTWARE\\Halvard Systems\\TAVToolkit\\Ventlock\\";

/// Where "Pyx.ini" keeps the data source name.
inline constexpr std::string_view kDataSourceSection = "TAV Server 1";
inline constexpr std::string_view kDataSourceKey = "DataSourceName";

/// Every persisted setting. Values live in the registry; two come from the program's own INI file, the data
/// source name from "Pyx.ini". An absent or unreadable value gives its default, a value present but empty
/// gives "". What it is made from must outlive it.
class clsSettings final : public AppObject {
 public:
    clsSettings(IRegistry& registry, const ProfileStore& profiles, IPaths& paths, ILocale& locale);

    /// Keeps `oLog` (the shared service objects) and reads all settings with operation 2, which is also what
    /// an omitted one means; with any other nothing is read and the result is False.
    bool Init(const AppObjects& oLog, const std::optional<std::int16_t>& vOperation = {});

    /// Reads everything afresh. False after an error, which is logged; values read before it stay.
    bool GetSettings();

    /// Stores the settings of the registry. A value that the registry refuses is passed over without a
    /// message.
    bool SaveSettings();

    /// Stores one setting by its written name and returns the registry's answer, for those who report it.
    /// The text of a number is taken as a number.
    RegistryStatus StoreSetting(const SettingRow& row, const std::string& text);

    /// Stores the language code, which SaveSettings never does.
    RegistryStatus StoreLanguage(const std::string& language);

    /// What is stored for a setting that is read on its own, a number in decimal; "" when nothing is.
    [[nodiscard]] std::string LateText(const LateSetting& setting);

    /// Stores such a setting and returns the registry's answer. The text of a number is taken as a number.
    RegistryStatus StoreLate(const LateSetting& setting, const std::string& text);

    /// Version of the DD install file's form: `DDInstallVersion` rounded half to even, 2 when it exceeds 16
    /// bits.
    [[nodiscard]] std::int16_t DDVersion() const;

    /// The property of a row as text.
    [[nodiscard]] std::string SettingText(const SettingRow& row) const;

    std::int16_t WindowTop = 0;  ///< window geometry in twips, 15 a pixel
    std::int16_t WindowLeft = 0;
    std::int16_t WindowHeight = 0;
    std::int16_t WindowWidth = 0;
    std::int16_t WindowState = 0;
    std::string ErrLogPath;
    std::int16_t ErrLogLevel = 0;
    std::int16_t DebugMode = 0;
    std::string DBPath;
    std::string DDInstallPath;  ///< path of "Ddinstal.ini"
    std::string INIPath;        ///< path of "Pyx.ini"
    std::string ManID;          ///< identifiers and revisions: hexadecimal digits as typed
    std::string ManName;
    std::string ManDesc;
    std::string ProtID;  ///< decimal id of "DeviceProtocols"
    std::string DevID;
    std::string DevName;
    std::string DevDesc;
    std::string DevRev;
    std::string DDRev;
    std::string ProtRev;
    std::string RevName;
    std::string RevDesc;
    std::string DevCatID;  ///< decimal id of the major category
    std::string DevMinCatID;
    std::string DLLName;
    std::string MRGPath;
    std::string DevHelp;
    std::string BlkHelp;
    std::string DDInstallVersion;
    std::string TAVVersions;      ///< versions that may be offered
    std::string LastTAVVersions;  ///< versions selected last
    std::string Language;         ///< language code, "DE" or "EN" unless another is stored
    std::string DSN;              ///< data source name

 private:
    [[nodiscard]] std::optional<std::string> GetValue(std::string_view section, std::string_view name);
    static std::optional<std::string> QueryValue(IRegistryKey& key, std::string_view name);
    RegistryStatus SetValue(std::string_view section, std::string_view name, std::uint32_t type,
                            std::string_view bytes);
    RegistryStatus StoreValue(std::string_view section, std::string_view name, bool isNumber,
                              const std::string& text);
    bool KeyExists(std::string_view section);
    RegistryStatus CreateKey(std::string_view section);
    void Load(const SettingRow& row);
    void ReplaceMissingDatabase();
    void LoadLanguage();
    void LoadOwnIniFile();
    [[nodiscard]] std::string DefaultOf(const SettingRow& row);

    IRegistry& registry_;
    const ProfileStore& profiles_;
    IPaths& paths_;
    ILocale& locale_;
    const AppObjects* oAppObjects_ = nullptr;
    std::string root_;
};

}  // namespace ventlock
