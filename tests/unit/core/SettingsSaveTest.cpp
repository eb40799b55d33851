#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "unit/core/SettingsWorld.h"

namespace ventlock::test {
namespace {

using SettingsSave = SettingsWorld;

/// Path below the root key, name, type and bytes of a write.
struct Written {
    std::string section;
    std::string name;
    std::uint32_t type;
    std::string bytes;
    bool operator==(const Written&) const = default;
};

void PrintTo(const Written& write, std::ostream* out) {
    *out << write.section << " " << write.name << " " << write.type << " "
         << testing::PrintToString(write.bytes);
}

std::vector<Written> WritesTo(const FakeRegistry& registry) {
    const std::string root = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvard Systems\\TAVToolkit\\Ventlock\\";
    std::vector<Written> writes;
    for (const auto& set : registry.sets) {
        EXPECT_TRUE(set.path.starts_with(root)) << set.path;
        writes.push_back({set.path.substr(std::min(root.size(), set.path.size())), set.name, set.value.type,
                          set.value.bytes});
    }
    return writes;
}

TEST_F(SettingsSave, MakesThirtyWritesInTheirOrder) {
    const auto settings = Loaded();
    settings->WindowTop = 300;
    settings->WindowLeft = -60;
    settings->WindowHeight = 5145;
    settings->WindowWidth = 6000;
    settings->WindowState = 2;
    settings->ErrLogPath = "log";
    settings->ErrLogLevel = 7;
    settings->DebugMode = 1;
    settings->DBPath = "db";
    settings->DDInstallPath = "dd";
    settings->INIPath = "ini";
    settings->ManID = "26";
    settings->ManName = "Acme";
    settings->ManDesc = "Acme Inc";
    settings->ProtID = "1";
    settings->DevID = "07";
    settings->DevName = "Flow";
    settings->DevDesc = "Flow meter";
    settings->DevRev = "0A";
    settings->DDRev = "02";
    settings->ProtRev = "06";
    settings->RevName = "R1";
    settings->RevDesc = "First";
    settings->DevCatID = "3";
    settings->DevMinCatID = "4";
    settings->DLLName = "Dev.dll";
    settings->MRGPath = "t.mrg";
    settings->DevHelp = "h.hlp";
    settings->BlkHelp = "b.hlp";
    settings->TAVVersions = "on offer";
    settings->LastTAVVersions = "5.0, 6.0";
    EXPECT_TRUE(settings->SaveSettings());

    const auto dword = [](unsigned char low, unsigned char high, unsigned char rest) {
        return std::string{static_cast<char>(low), static_cast<char>(high), static_cast<char>(rest),
                           static_cast<char>(rest)};
    };
    EXPECT_EQ(WritesTo(registry_),
              (std::vector<Written>{{"Settings", "WindowTop", 4, dword(0x2C, 0x01, 0)},
                                    {"Settings", "WindowLeft", 4, dword(0xC4, 0xFF, 0xFF)},
                                    {"Settings", "WindowHeight", 4, dword(0x19, 0x14, 0)},
                                    {"Settings", "WindowWidth", 4, dword(0x70, 0x17, 0)},
                                    {"Settings", "WindowState", 4, dword(2, 0, 0)},
                                    {"ErrorLog", "ErrLogPath", 1, "log"},
                                    {"ErrorLog", "ErrLogLevel", 4, dword(7, 0, 0)},
                                    {"ErrorLog", "DebugMode", 4, dword(1, 0, 0)},
                                    {"Paths", "DBPath", 1, "db"},
                                    {"Paths", "DDInstallPath", 1, "dd"},
                                    {"Paths", "INIPath", 1, "ini"},
                                    {"Settings", "ManID", 1, "26"},
                                    {"Settings", "ManName", 1, "Acme"},
                                    {"Settings", "ManDesc", 1, "Acme Inc"},
                                    {"Settings", "ProtID", 1, "1"},
                                    {"Settings", "DevID", 1, "07"},
                                    {"Settings", "DevName", 1, "Flow"},
                                    {"Settings", "DevDesc", 1, "Flow meter"},
                                    {"Settings", "DevRev", 1, "0A"},
                                    {"Settings", "DDRev", 1, "02"},
                                    {"Settings", "ProtRev", 1, "06"},
                                    {"Settings", "DevRevName", 1, "R1"},
                                    {"Settings", "DevRevDesc", 1, "First"},
                                    {"Settings", "DevCatID", 1, "3"},
                                    {"Settings", "DevMinCatID", 1, "4"},
                                    {"Settings", "DLLName", 1, "Dev.dll"},
                                    {"Settings", "TemplateName", 1, "t.mrg"},
                                    {"Settings", "DevHelp", 1, "h.hlp"},
                                    {"Settings", "BlkHelp", 1, "b.hlp"},
                                    {"Settings", "TAVVersions", 1, "5.0, 6.0"}}));
}

TEST_F(SettingsSave, OfWhatWasReadIsReadBackIdentical) {
    PutText("Settings", "ManName", "Müller & Söhne");
    PutText("Settings", "ManDesc", "");
    PutNumber("Settings", "Windowstate", 2);
    PutText("Settings", "TAVVersions", "6.0");
    const auto before = Loaded();
    EXPECT_TRUE(before->SaveSettings());
    const auto after = Loaded();
    EXPECT_EQ(after->ManName, "Müller & Söhne");
    EXPECT_EQ(after->ManDesc, "");
    EXPECT_EQ(after->WindowState, 2);
    EXPECT_EQ(after->LastTAVVersions, "6.0");
    EXPECT_EQ(after->DevRev, "01");
}

TEST_F(SettingsSave, WritesTheValueThatIsReadByAnotherSpelling) {
    PutNumber("Settings", "Windowstate", 1);
    const auto settings = Loaded();
    EXPECT_EQ(settings->WindowState, 1);
    settings->WindowState = 2;
    settings->SaveSettings();
    EXPECT_EQ(Loaded()->WindowState, 2);
    EXPECT_EQ(registry_.Get(RegistryRoot::LocalMachine, Key("Settings"), "Windowstate")->bytes.at(0), 2);
}

TEST_F(SettingsSave, TakesPathsAndTheOtherSpellingForOneSubkey) {
    PutText("paths", "INIPath", "/old/Pyx.ini");
    const auto settings = Loaded();
    settings->INIPath = "/new/Pyx.ini";
    settings->SaveSettings();
    EXPECT_EQ(Loaded()->INIPath, "/new/Pyx.ini");
    EXPECT_EQ(registry_.Get(RegistryRoot::LocalMachine, Key("paths"), "INIPath")->bytes, "/new/Pyx.ini");
}

TEST_F(SettingsSave, NeverWritesLanguageDataSourceNameOrWhatTheOwnIniFileHolds) {
    const std::string own = "[DDInstall]\nDDVersion=2.0\n[TAVVersionSupport]\nTAVVersionSupport=5.0,6.0";
    const std::string pyx = "[TAV Server 1]\nDataSourceName=Mine";
    WriteBytes(OwnIni(), own);
    WriteBytes(PyxIni(), pyx);
    const auto settings = Loaded();
    settings->Language = "FR";
    settings->DSN = "Other";
    settings->DDInstallVersion = "9";
    settings->TAVVersions = "9.0";
    EXPECT_TRUE(settings->SaveSettings());
    std::set<std::string> names;
    for (const auto& set : registry_.sets) names.insert(set.name);
    EXPECT_EQ(names.size(), 30U);
    for (const char* const name : {"Language", "DataSourceName", "DSN", "DDVersion", "TAVVersionSupport"}) {
        EXPECT_FALSE(names.contains(name)) << name;
    }
    EXPECT_EQ(registry_.Get(RegistryRoot::LocalMachine, Key("Settings"), "TAVVersions")->bytes, "5.0");
    EXPECT_EQ(ReadBytes(OwnIni()), own);
    EXPECT_EQ(ReadBytes(PyxIni()), pyx);
    EXPECT_EQ(files_.Calls(FileOperation::Replace), 0);
}

TEST_F(SettingsSave, CreatesTheRootAndItsSectionsWhenMissing) {
    const auto settings = Loaded();
    std::unique_ptr<IRegistryKey> key;
    ASSERT_EQ(registry_.OpenKey(RegistryRoot::LocalMachine, kSettingsRoot, kKeyRead, key),
              kRegistryFileNotFound);
    settings->SaveSettings();
    for (const char* const section : {"Settings", "ErrorLog", "Paths"}) {
        EXPECT_EQ(registry_.OpenKey(RegistryRoot::LocalMachine, Key(section), kKeyRead, key),
                  kRegistrySuccess)
            << section;
    }
}

TEST_F(SettingsSave, ThatTheSystemRefusesIsSilentAndTrue) {
    PutText("Settings", "ManName", "Acme");
    const auto settings = Loaded();
    settings->ManName = "Other";
    registry_.RefuseWrites(kRegistryAccessDenied);
    EXPECT_TRUE(settings->SaveSettings());
    EXPECT_EQ(registry_.sets.size(), 24U) << "every value of the one key that is there is tried";
    EXPECT_EQ(Loaded()->ManName, "Acme");
    EXPECT_EQ(messageBox_.messages.size(), 0U);
    EXPECT_EQ(folder_.Listing(), "program windows") << "nothing is logged";
}

TEST_F(SettingsSave, OnAReadOnlyKeyIsSilentAndTrueAndMovesNothingToTheCurrentUser) {
    PutText("Settings", "ManName", "Acme");
    registry_.RefuseOpen(63, kRegistryAccessDenied);
    const auto settings = Loaded();
    settings->ManName = "Other";
    EXPECT_TRUE(settings->SaveSettings());
    EXPECT_TRUE(registry_.sets.empty());
    EXPECT_EQ(Loaded()->ManName, "Acme");
    EXPECT_EQ(registry_.Get(RegistryRoot::CurrentUser, Key("Settings"), "ManName"), std::nullopt);
    EXPECT_EQ(folder_.Listing(), "program windows");
}

TEST_F(SettingsSave, StoresOneSettingAndGivesTheRegistrysAnswer) {
    const auto settings = Loaded();
    EXPECT_EQ(settings->StoreSetting(*FindSetting("MANNAME"), "Acme"), kRegistrySuccess);
    EXPECT_EQ(settings->StoreSetting(*FindSetting("ErrLogLevel"), "7"), kRegistrySuccess);
    EXPECT_EQ(WritesTo(registry_),
              (std::vector<Written>{{"Settings", "ManName", 1, "Acme"},
                                    {"ErrorLog", "ErrLogLevel", 4, std::string("\7\0\0\0", 4)}}));
    EXPECT_EQ(settings->ManName, "") << "the property is the caller's to change";
    registry_.RefuseWrites(kRegistryAccessDenied);
    EXPECT_EQ(settings->StoreSetting(*FindSetting("ManName"), "x"), kRegistryAccessDenied);
    EXPECT_EQ(settings->StoreSetting(*FindSetting("DBPath"), "x"), kRegistryAccessDenied);
}

TEST_F(SettingsSave, GivesThePropertyOfARowAsText) {
    const auto settings = Loaded();
    settings->WindowLeft = -60;
    settings->LastTAVVersions = "6.0";
    EXPECT_EQ(settings->SettingText(*FindSetting("WindowLeft")), "-60");
    EXPECT_EQ(settings->SettingText(*FindSetting("TAVVersions")), "6.0");
    EXPECT_EQ(settings->SettingText(*FindSetting("DevRev")), "01");
}

TEST(SettingsTable, FindsARowByItsWrittenNameWithoutRegardToCase) {
    const SettingRow* const row = FindSetting("windowSTATE");
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->name, "Windowstate");
    EXPECT_EQ(row->writtenName, "WindowState");
    EXPECT_TRUE(row->IsNumber());
    EXPECT_EQ(FindSetting("Language"), nullptr);
    EXPECT_EQ(FindSetting(""), nullptr);
}

TEST(SettingsTable, ListsTheStoredSettingsInTheOrderTheyAreRead) {
    std::vector<std::string> names;
    for (const SettingRow& row : StoredSettings())
        names.push_back(std::string(row.step) + " " + std::string(row.name));
    EXPECT_EQ(
        names,
        (std::vector<std::string>{
            "01 WindowTop",    "01 WindowLeft",  "01 WindowHeight", "01 WindowWidth",   "01 Windowstate",
            "02 ErrLogPath",   "02 ErrLogLevel", "02 DebugMode",    "03 DDInstallPath", "03.1 INIPath",
            "03.2 DBPath",     "04 ManID",       "04 ManName",      "04 ManDesc",       "04 ProtID",
            "04 TemplateName", "04 DLLName",     "04 DevHelp",      "04 BlkHelp",       "04 DevID",
            "04 DevName",      "04 DevDesc",     "04 DevRev",       "04 DDRev",         "04 DevRevName",
            "04 DevRevDesc",   "04 ProtRev",     "04 DevCatID",     "04 DevMinCatID",   "04 TAVVersions"}));
}

}  // namespace
}  // namespace ventlock::test
