#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "support/RowName.h"
#include "unit/core/SettingsWorld.h"

namespace ventlock::test {
namespace {

using Settings = SettingsWorld;
constexpr std::string_view kOdbcKey = "SOFTWARE\\ODBC\\odbc.ini\\PYX";

TEST_F(Settings, OfACleanMachineAreAllDefaults) {
    const auto settings = Loaded();
    EXPECT_EQ(settings->WindowTop, 0);
    EXPECT_EQ(settings->WindowLeft, 0);
    EXPECT_EQ(settings->WindowHeight, 0);
    EXPECT_EQ(settings->WindowWidth, 0);
    EXPECT_EQ(settings->WindowState, 0);
    EXPECT_EQ(settings->ErrLogPath, paths_.programFolder + "/Ventlock.log");
    EXPECT_EQ(settings->ErrLogLevel, 3);
    EXPECT_EQ(settings->DebugMode, 0);
    EXPECT_EQ(settings->DDInstallPath, "A:\\Ddinstal.ini");
    EXPECT_EQ(settings->INIPath, PyxIni());
    EXPECT_EQ(settings->DBPath, "C:\\TAV\\DB\\pyxall.mdb");
    EXPECT_EQ(settings->DSN, "PYX");
    EXPECT_EQ(settings->ManID, "");
    EXPECT_EQ(settings->ProtID, "0");
    EXPECT_EQ(settings->DevRev, "01");
    EXPECT_EQ(settings->DDRev, "01");
    EXPECT_EQ(settings->ProtRev, "05");
    EXPECT_EQ(settings->DevCatID, "0");
    EXPECT_EQ(settings->DevMinCatID, "0");
    EXPECT_EQ(settings->Language, "EN");
    EXPECT_EQ(settings->DDInstallVersion, "2");
    EXPECT_EQ(settings->TAVVersions, "5.0");
    EXPECT_EQ(settings->LastTAVVersions, "5.0");
    EXPECT_TRUE(registry_.sets.empty());
    EXPECT_EQ(folder_.Listing(), "program windows");
}

TEST_F(Settings, AreReadByInitWithTwoOrWithoutOperation) {
    PutText("Settings", "ManName", "Acme");
    clsSettings settings(registry_, profiles_, paths_, locale_);
    EXPECT_TRUE(settings.Init(oAppObjects_));
    EXPECT_EQ(settings.ManName, "Acme");
}

TEST_F(Settings, AreNotReadByInitWithAnotherOperation) {
    PutText("Settings", "ManName", "Acme");
    for (const std::int16_t operation : std::initializer_list<std::int16_t>{0, 1, 3}) {
        clsSettings settings(registry_, profiles_, paths_, locale_);
        EXPECT_FALSE(settings.Init(oAppObjects_, operation)) << operation;
        EXPECT_EQ(settings.ManName, "");
        EXPECT_EQ(settings.DevRev, "");
    }
    EXPECT_TRUE(registry_.opens.empty());
    EXPECT_EQ(files_.Calls(FileOperation::ReadAll), 0);
}

TEST_F(Settings, AreReadAfreshByGetSettings) {
    const auto settings = Loaded();
    PutText("Settings", "ManName", "Acme");
    EXPECT_TRUE(settings->GetSettings());
    EXPECT_EQ(settings->ManName, "Acme");
}

TEST_F(Settings, NamesOfSectionsAndValuesIgnoreCase) {
    PutText("PATHS", "INIPATH", "/some/Pyx.ini");
    PutNumber("settings", "WINDOWSTATE", 2);
    const auto settings = Loaded();
    EXPECT_EQ(settings->INIPath, "/some/Pyx.ini");
    EXPECT_EQ(settings->WindowState, 2);
}

TEST_F(Settings, OfAKeyThatRefusesWritingAreReadWithReadAccess) {
    PutText("Settings", "ManName", "Acme");
    registry_.RefuseOpen(63, kRegistryAccessDenied);
    EXPECT_EQ(Loaded()->ManName, "Acme");
    const std::string path = "HKEY_LOCAL_MACHINE\\" + Key("Settings");
    const FakeRegistry::OpenCall refused{path, 63, kRegistryAccessDenied};
    const auto first = std::find(registry_.opens.begin(), registry_.opens.end(), refused);
    ASSERT_NE(first, registry_.opens.end());
    EXPECT_EQ(*(first + 1), (FakeRegistry::OpenCall{path, kKeyRead, kRegistrySuccess}));
}

TEST_F(Settings, OfAKeyThatRefusesEverythingAreDefaults) {
    PutText("Settings", "DevRev", "0A");
    registry_.RefuseOpen(63, kRegistryAccessDenied);
    registry_.RefuseOpen(kKeyRead, kRegistryAccessDenied);
    EXPECT_EQ(Loaded()->DevRev, "01");
}

TEST_F(Settings, TheDatabasePathStaysWhenItsFileExists) {
    WriteBytes(folder_ / "db.mdb", "");
    PutText("Paths", "DBPath", folder_ / "db.mdb");
    registry_.PutText(RegistryRoot::LocalMachine, kOdbcKey, "DBQ", "/other.mdb");
    EXPECT_EQ(Loaded()->DBPath, folder_ / "db.mdb");
}

TEST_F(Settings, TheDatabasePathOfAMissingFileIsReplacedByTheRegisteredOne) {
    PutText("Paths", "DBPath", folder_ / "deleted.mdb");
    EXPECT_EQ(Loaded()->DBPath, folder_ / "deleted.mdb") << "nothing is registered";
    registry_.PutText(RegistryRoot::LocalMachine, kOdbcKey, "DBQ", "/other.mdb");
    EXPECT_EQ(Loaded()->DBPath, "/other.mdb");
}

TEST_F(Settings, TheRegisteredDatabaseIsTakenForAnEmptyAndForTheDefaultPathToo) {
    registry_.PutText(RegistryRoot::LocalMachine, kOdbcKey, "DBQ", std::string_view("/other.mdb\0x", 12));
    EXPECT_EQ(Loaded()->DBPath, "/other.mdb");
    PutText("Paths", "DBPath", "");
    EXPECT_EQ(Loaded()->DBPath, "/other.mdb");
}

TEST_F(Settings, TheRegisteredDatabaseOfTheUserIsNotTriedWithoutTheMachinesKey) {
    registry_.PutText(RegistryRoot::CurrentUser, kOdbcKey, "DBQ", "/users.mdb");
    EXPECT_EQ(Loaded()->DBPath, "C:\\TAV\\DB\\pyxall.mdb");
}

TEST_F(Settings, TheRegisteredDatabaseOfTheUserIsTakenWhenTheMachinesKeyHasNone) {
    registry_.PutKey(RegistryRoot::LocalMachine, kOdbcKey);
    EXPECT_EQ(Loaded()->DBPath, "C:\\TAV\\DB\\pyxall.mdb");
    registry_.PutText(RegistryRoot::CurrentUser, kOdbcKey, "DBQ", "/users.mdb");
    EXPECT_EQ(Loaded()->DBPath, "/users.mdb");
    registry_.PutText(RegistryRoot::LocalMachine, kOdbcKey, "DBQ", "/machines.mdb");
    EXPECT_EQ(Loaded()->DBPath, "/machines.mdb");
}

TEST_F(Settings, TheDataSourceNameComesFromTheFileOfThePathAsJustRead) {
    WriteBytes(PyxIni(), "[TAV Server 1]\r\nDataSourceName=OfWindows\r\n");
    EXPECT_EQ(Loaded()->DSN, "OfWindows");
    WriteBytes(folder_ / "other.ini",
               "[tav server 1]\r\ndatasourcename= \"Pr\xFC"
               "fstand\" \r\n");
    PutText("paths", "INIPath", folder_ / "other.ini");
    EXPECT_EQ(Loaded()->DSN, "Prüfstand");
}

TEST_F(Settings, TheDataSourceNameIsPyxWithoutKeyAndEmptyWithAnEmptyOne) {
    WriteBytes(PyxIni(), "[TAV Server 1]\r\nOther=x\r\n");
    EXPECT_EQ(Loaded()->DSN, "PYX");
    WriteBytes(PyxIni(), "[TAV Server 1]\r\nDataSourceName=\r\n");
    EXPECT_EQ(Loaded()->DSN, "");
}

TEST_F(Settings, ADataSourceNameOfMoreThan254CharactersIsCut) {
    WriteBytes(PyxIni(), "[TAV Server 1]\r\nDataSourceName=" + std::string(254, 'x') + "\r\n");
    EXPECT_EQ(Loaded()->DSN, std::string(254, 'x'));
    WriteBytes(PyxIni(), "[TAV Server 1]\r\nDataSourceName=" + std::string(300, 'x') + "\r\n");
    EXPECT_EQ(Loaded()->DSN, std::string(254, 'x'));
}

TEST_F(Settings, AStoredLanguageIsUsedAsItIs) {
    locale_.languageName = "Deutsch";
    PutText("Settings", "Language", "fr");
    EXPECT_EQ(Loaded()->Language, "fr");
}

struct SystemLanguage {
    std::string name;
    std::string systemName;
    std::string language;
};

void PrintTo(const SystemLanguage& row, std::ostream* out) {
    *out << row.name;
}

class SettingsLanguage : public SettingsWorld, public testing::WithParamInterface<SystemLanguage> {};

TEST_P(SettingsLanguage, ComesFromTheSystemsWhenNoneIsStored) {
    locale_.languageName = GetParam().systemName;
    EXPECT_EQ(Loaded()->Language, GetParam().language);
    PutText("Settings", "Language", "");
    EXPECT_EQ(Loaded()->Language, GetParam().language);
}

INSTANTIATE_TEST_SUITE_P(Settings, SettingsLanguage,
                         testing::Values(SystemLanguage{"German", "Deutsch (Deutschland)", "DE"},
                                         SystemLanguage{"GermanInSmallLetters", "deutsch", "DE"},
                                         SystemLanguage{"English", "English", "EN"},
                                         SystemLanguage{"French", "français", "EN"},
                                         SystemLanguage{"Danish", "dansk", "EN"},
                                         SystemLanguage{"None", "", "EN"},
                                         SystemLanguage{"OneLetter", "D", "EN"}),
                         RowName());

struct InstallVersion {
    std::string name;
    std::string line;
    std::string version;
};

void PrintTo(const InstallVersion& row, std::ostream* out) {
    *out << row.name;
}

class SettingsInstallVersion : public SettingsWorld, public testing::WithParamInterface<InstallVersion> {};

TEST_P(SettingsInstallVersion, IsTheNumberThatTheOwnIniFilesTextBeginsWith) {
    WriteBytes(OwnIni(), "[DDInstall]\r\n" + GetParam().line + "\r\n");
    EXPECT_EQ(Loaded()->DDInstallVersion, GetParam().version);
}

INSTANTIATE_TEST_SUITE_P(Settings, SettingsInstallVersion,
                         testing::Values(InstallVersion{"TwoPointZero", "DDVersion=2.0", "2"},
                                         InstallVersion{"Text", "DDVersion=abc", "0"},
                                         InstallVersion{"Absent", "Other=7", "2"},
                                         InstallVersion{"Empty", "DDVersion=", "0"},
                                         InstallVersion{"TwoAndAHalf", "DDVersion=2.5", "2.5"},
                                         InstallVersion{"NumberAndText", "DDVersion=3x", "3"},
                                         InstallVersion{"BeyondSixteenBits", "DDVersion=70000", "70000"}),
                         RowName());

TEST_F(Settings, TheOwnIniFileFollowsTheNameOfTheExecutable) {
    paths_.exeName = "renamed";
    WriteBytes(OwnIni(), "[DDInstall]\r\nDDVersion=7\r\n");
    EXPECT_EQ(Loaded()->DDInstallVersion, "2");
    WriteBytes(paths_.programFolder + "/renamed.ini", "[DDInstall]\r\nDDVersion=8\r\n");
    EXPECT_EQ(Loaded()->DDInstallVersion, "8");
}

TEST_F(Settings, TheOwnIniFileGivesTheVersionsOnOfferAndTheRegistryTheLastSelection) {
    WriteBytes(OwnIni(), "[TAVVersionSupport]\r\nTAVVersionSupport=5.0, 6.0, 7.0\r\n");
    PutText("Settings", "TAVVersions", "6.0");
    const auto settings = Loaded();
    EXPECT_EQ(settings->TAVVersions, "5.0, 6.0, 7.0");
    EXPECT_EQ(settings->LastTAVVersions, "6.0");
}

TEST_F(Settings, TheVersionsOnOfferAreTheDefaultWithoutOwnIniFileWhateverWasSelected) {
    PutText("Settings", "TAVVersions", "6.0");
    const auto settings = Loaded();
    EXPECT_EQ(settings->TAVVersions, "5.0");
    EXPECT_EQ(settings->LastTAVVersions, "6.0");
}

/// Files of which one has no memory left for its bytes.
class ExhaustedFiles final : public IFiles {
 public:
    ExhaustedFiles(IFiles& below, std::string path) : below_(below), path_(std::move(path)) {}

    bool Exists(const std::string& path) override { return below_.Exists(path); }
    std::optional<std::vector<std::string>> FilesIn(const std::string& folder) override {
        return below_.FilesIn(folder);
    }
    void RequireReplaceable(const std::string& path) override { below_.RequireReplaceable(path); }
    std::string ReadAll(const std::string& path) override {
        if (path == path_) throw std::bad_alloc();
        return below_.ReadAll(path);
    }
    void Replace(const std::string& path, std::string_view bytes) override { below_.Replace(path, bytes); }
    void Copy(const std::string& from, const std::string& to) override { below_.Copy(from, to); }
    void Append(const std::string& path, std::string_view bytes) override { below_.Append(path, bytes); }
    std::unique_ptr<IFileLock> Lock(const std::string& path) override { return below_.Lock(path); }

 private:
    IFiles& below_;
    std::string path_;
};

TEST_F(Settings, AnErrorOfTheDataSourceFileIsLoggedWithStep033AndEarlierValuesStay) {
    WriteBytes(PyxIni(), "");
    PutNumber("Settings", "WindowTop", 77);
    PutText("Settings", "ManName", "Acme");
    ExhaustedFiles exhausted(files_, PyxIni());
    const ProfileStore profiles(exhausted, CodePage(1252));
    clsSettings settings(registry_, profiles, paths_, locale_);
    EXPECT_FALSE(settings.Init(oAppObjects_, 2));
    EXPECT_EQ(settings.WindowTop, 77);
    EXPECT_EQ(settings.INIPath, PyxIni());
    EXPECT_EQ(settings.ManName, "") << "it comes later";
    EXPECT_EQ(LogText(), Header() + "1-->\r\n     Sgs-03.3: Out of memory (7)\r\n");
}

TEST_F(Settings, AnErrorOfTheOwnIniFileIsLoggedWithStep05) {
    WriteBytes(OwnIni(), "");
    ExhaustedFiles exhausted(files_, OwnIni());
    const ProfileStore profiles(exhausted, CodePage(1252));
    clsSettings settings(registry_, profiles, paths_, locale_);
    EXPECT_FALSE(settings.Init(oAppObjects_, 2));
    EXPECT_EQ(settings.DevRev, "01");
    EXPECT_EQ(LogText(), Header() + "1-->\r\n     Sgs-05: Out of memory (7)\r\n");
}

TEST_F(Settings, AnErrorOfTheSystemsLanguageIsLoggedWithStep04) {
    struct BrokenLocale final : ILocale {
        std::string LanguageName() override { throw RunTimeError(ErrorNumber::InvalidProcedureCall); }
    } broken;
    clsSettings settings(registry_, profiles_, paths_, broken);
    EXPECT_FALSE(settings.Init(oAppObjects_, 2));
    EXPECT_EQ(settings.LastTAVVersions, "5.0");
    EXPECT_EQ(LogText(), Header() + "1-->\r\n     Sgs-04: Invalid procedure call or argument (5)\r\n");
}

TEST_F(Settings, UsedBeforeInitDropTheErrorTextAndGiveFalse) {
    struct BrokenLocale final : ILocale {
        std::string LanguageName() override { throw RunTimeError(ErrorNumber::InvalidProcedureCall); }
    } broken;
    clsSettings settings(registry_, profiles_, paths_, broken);
    EXPECT_FALSE(settings.GetSettings());
    EXPECT_EQ(folder_.Listing(), "program windows");
}

TEST_F(Settings, UsedWithAppObjectsThatHoldNoLogDropTheErrorTextAndGiveFalse) {
    struct BrokenLocale final : ILocale {
        std::string LanguageName() override { throw RunTimeError(ErrorNumber::InvalidProcedureCall); }
    } broken;
    const AppObjects withoutLog;
    clsSettings settings(registry_, profiles_, paths_, broken);
    EXPECT_FALSE(settings.Init(withoutLog, 2));
    EXPECT_EQ(folder_.Listing(), "program windows");
}

}  // namespace
}  // namespace ventlock::test
