#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "e2e/Refused.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

/// The answer of "settings list" on a clean machine, but for the log's path, which leads out of the world.
const std::vector<std::string> kCleanSettings = {"WindowTop=0",
                                                 "WindowLeft=0",
                                                 "WindowHeight=0",
                                                 "WindowWidth=0",
                                                 "WindowState=0",
                                                 "ErrLogLevel=3",
                                                 "DebugMode=0",
                                                 "DDInstallPath=A:\\Ddinstal.ini",
                                                 "INIPath=<world>/config/ventlock/Pyx.ini",
                                                 "DBPath=C:\\TAV\\DB\\pyxall.mdb",
                                                 "ManID=",
                                                 "ManName=",
                                                 "ManDesc=",
                                                 "ProtID=0",
                                                 "TemplateName=",
                                                 "DLLName=",
                                                 "DevHelp=",
                                                 "BlkHelp=",
                                                 "DevID=",
                                                 "DevName=",
                                                 "DevDesc=",
                                                 "DevRev=01",
                                                 "DDRev=01",
                                                 "DevRevName=",
                                                 "DevRevDesc=",
                                                 "ProtRev=05",
                                                 "DevCatID=0",
                                                 "DevMinCatID=0",
                                                 "TAVVersions=5.0",
                                                 "DataSourceName=PYX",
                                                 "Language=EN",
                                                 "DDVersion=2",
                                                 "TAVVersionSupport=5.0",
                                                 "RecentDDInstallPaths=",
                                                 "RecentINIPaths=",
                                                 "LogWindowLeft=",
                                                 "LogWindowTop="};

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

TEST(Settings, OfACleanMachineAreTheDefaultsAndListingThemStoresNothing) {
    const World world;
    const auto before = world.Snapshot();
    const ProgramResult result = world.Run({"settings", "list"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    std::vector<std::string> lines = LinesOf(result.out);
    ASSERT_EQ(lines.size(), kCleanSettings.size() + 1);
    EXPECT_EQ(lines[5], "ErrLogPath=" + fs::path(VENTLOCK_CLI).parent_path().string() + "/Ventlock.log");
    lines.erase(lines.begin() + 5);
    EXPECT_EQ(lines, kCleanSettings);
    EXPECT_EQ(world.Snapshot(), before);
}

TEST(Settings, ThatAreSetComeBackFromTheNextRun) {
    const World world;
    const std::vector<std::pair<std::string, std::string>> values = {
        {"WindowTop", "-60"}, {"ErrLogLevel", "1"},        {"ManName", "K\u00FChler & S\u00F6hne"},
        {"DevRev", ""},       {"INIPath", "/a b/Pyx.ini"}, {"TAVVersions", "5.0, 6.0"},
        {"Language", "DE"}};
    for (const auto& [name, value] : values) {
        const ProgramResult set = world.Run({"settings", "set", name, value});
        EXPECT_EQ(set.exitCode, 0) << set.err;
        EXPECT_EQ(set.out, std::string(name).append("=").append(value).append("\n"));
    }
    for (const auto& [name, value] : values) {
        EXPECT_EQ(world.Run({"settings", "get", name}).out, std::string(value).append("\n")) << name;
    }
    EXPECT_EQ(ReadBytes(world.SettingsStore()),
              CrLf("[HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvard Systems\\TAVToolkit\\Ventlock\\Settings]\n"
                   "WindowTop=dword:ffffffc4\n"
                   "ManName=text:\"K\u00FChler & S\u00F6hne\"\n"
                   "DevRev=text:\"\"\n"
                   "TAVVersions=text:\"5.0, 6.0\"\n"
                   "Language=text:\"DE\"\n"
                   "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvard Systems\\TAVToolkit\\Ventlock\\ErrorLog]\n"
                   "ErrLogLevel=dword:00000001\n"
                   "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvard Systems\\TAVToolkit\\Ventlock\\Paths]\n"
                   "INIPath=text:\"/a b/Pyx.ini\"\n"));
}

TEST(Settings, APathThatBeginsAnywhereIsKeptWithAWarning) {
    const World world;
    for (const std::string name : {"INIPath", "ddinstallpath"}) {
        const std::string warning =
            name +
            " is relative: here it counts from the working folder, in the window from the program's folder";
        const ProgramResult told = world.Run({"settings", "set", name, "sub/File.ini"});
        EXPECT_EQ(told.exitCode, 0);
        EXPECT_EQ(told.out, name + "=sub/File.ini\n");
        EXPECT_EQ(told.err, "ventlock-cli: " + warning + "\n");
        EXPECT_EQ(world.Run({"settings", "get", name}).out, "sub/File.ini\n");
        const ProgramResult quiet = world.Run({"settings", "set", name, "File.ini", "--quiet"});
        EXPECT_EQ(quiet.out + quiet.err, "");
        const ProgramResult document = world.Run({"settings", "set", name, "File.ini", "--json"});
        EXPECT_EQ(document.err, "");
        EXPECT_EQ(DocumentOf(document.out)["warnings"], nlohmann::json::array({warning}));
    }
    EXPECT_EQ(world.Run({"settings", "set", "INIPath", ""}).err, "");  // names no file at all
    EXPECT_EQ(world.Run({"settings", "set", "DBPath", "any.mdb"}).err, "");
}

TEST(Settings, NamesIgnoreCase) {
    const World world;
    EXPECT_EQ(world.Run({"settings", "set", "manname", "Acme"}).exitCode, 0);
    EXPECT_EQ(world.Run({"settings", "get", "MANNAME"}).out, "Acme\n");
}

TEST(Settings, TheDataSourceNameIsKeptInPyxIni) {
    const World world;
    EXPECT_EQ(world.Run({"settings", "set", "DataSourceName", "PLANT"}).exitCode, 0);
    EXPECT_EQ(ReadBytes(world.ConfigurationFolder() + "/Pyx.ini"),
              "[TAV Server 1]\r\nDataSourceName=PLANT\r\n");
    EXPECT_EQ(world.Run({"settings", "get", "DataSourceName"}).out, "PLANT\n");
    EXPECT_FALSE(fs::exists(world.SettingsStore()));
}

TEST(Settings, AnUnknownNameIsRefusedWithCode2) {
    const World world;
    for (const auto& call : std::vector<std::vector<std::string>>{{"settings", "get", "Colour"},
                                                                  {"settings", "set", "Colour", "red"}}) {
        ExpectRefused(world, call, 2,
                      "ventlock-cli: there is no setting \"Colour\"\n"
                      "  List them with \"ventlock-cli settings list\".\n");
        ExpectRefusedAsDocument(world, call, 2, "there is no setting \"Colour\"");
    }
}

TEST(Settings, ANumberOutOfRangeOrATextForANumberIsRefusedWithCode2) {
    const World world;
    ExpectRefused(world, {"settings", "set", "WindowTop", "32768"}, 2,
                  "ventlock-cli: WindowTop \"32768\": Overflow\n"
                  "  Give a whole number from -32768 to 32767.\n");
    ExpectRefused(world, {"settings", "set", "ErrLogLevel", "high"}, 2,
                  "ventlock-cli: ErrLogLevel \"high\": Type mismatch\n"
                  "  Give a whole number from -32768 to 32767.\n");
}

TEST(Settings, ThoseOfTheProgramsOwnIniFileCannotBeSet) {
    const World world;
    const std::string where = fs::path(VENTLOCK_CLI).parent_path().string() + "/ventlock.ini";
    for (const char* const name : {"DDVersion", "TAVVersionSupport"}) {
        ExpectRefused(world, {"settings", "set", name, "3"}, 2,
                      std::string("ventlock-cli: ") + name +
                          " is no setting of this user; it stands in the program's own INI file\n"
                          "  Change it in " +
                          where + ".\n");
    }
}

TEST(Settings, AStoreThatCannotBeWrittenIsToldWithCode1) {
    const World world;
    WriteBytes(world.SettingsStore(), "");
    fs::permissions(world.SettingsStore(), fs::perms::owner_read);
    ExpectRefused(world, {"settings", "set", "ManName", "Acme"}, 1,
                  "ventlock-cli: ManName was not stored; the settings store answered 5\n"
                  "  Check that you may write the settings store.\n");
}

TEST(Settings, ADataSourceNameThatCannotBeStoredIsToldWithItsFile) {
    const World world;
    fs::create_directory(world.ConfigurationFolder() + "/Pyx.ini");
    ExpectRefused(world, {"settings", "set", "DataSourceName", "PLANT"}, 1,
                  "ventlock-cli: <world>/config/ventlock/Pyx.ini: Path/File access error "
                  "\"<world>/config/ventlock/Pyx.ini\": Is a directory\n"
                  "  Check that the path names a file, not a folder, and that you may read and write it.\n");
}

TEST(Settings, AreListedAsADocument) {
    const World world;
    const auto document = DocumentOf(world.Run({"settings", "list", "--json"}).out);
    EXPECT_EQ(document["command"], "settings list");
    EXPECT_EQ(document["settings"]["DDInstallPath"], "A:\\Ddinstal.ini");
    EXPECT_EQ(document["settings"].size(), kCleanSettings.size() + 1);
    EXPECT_EQ(document["exitCode"], 0);
    const auto one = DocumentOf(world.Run({"settings", "get", "devrev", "--json"}).out);
    EXPECT_EQ(one["name"], "DevRev");
    EXPECT_EQ(one["value"], "01");
}

TEST(Settings, ARegistrationFromTheCommandLineLeavesThemAsTheyWere) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    ASSERT_EQ(world.Run({"settings", "set", "ManName", "Best"}).exitCode, 0);
    const std::string store = ReadBytes(world.SettingsStore());
    ASSERT_EQ(world.Run({"register", "entry.ini", "--ini", "--ini-path", "Pyx.ini"}).exitCode, 0);
    EXPECT_EQ(ReadBytes(world.SettingsStore()), store);
}

TEST(OwnFiles, TheLogGoesToTheStateFolderWhenTheProgramsFolderCannotBeWritten) {
    World world;
    world.Write("entry.ini", kFlowEntry);
    const ProgramResult result = world.RunAsOrdinaryUser({"register", "entry.ini", "--db"});
    EXPECT_EQ(result.exitCode, 3);
    const std::string log = ReadBytes(world.StateFolder() + "/Ventlock.log");
    EXPECT_NE(log.find("\r\n1-->\r\n     CONNconn-02: ODBC--call failed. [IM002] "), std::string::npos)
        << log;
    EXPECT_EQ(world.RunAsOrdinaryUser({"settings", "get", "DataSourceName"}).out, "PYX\n");
}

TEST(OwnFiles, TheIniFileToChangeIsTheUsersWhenTheProgramsFolderCannotBeWritten) {
    World world;
    const auto advice = [&] {
        const ProgramResult result = world.RunAsOrdinaryUser({"settings", "set", "DDVersion", "3"});
        EXPECT_EQ(result.exitCode, 2);
        return result.err.substr(result.err.find("\n  ") + 3);
    };
    EXPECT_EQ(advice(), "Change it in <world>/config/ventlock/ventlock.ini.\n");
    WriteBytes(world.ProgramFolder() + "/ventlock.ini", "[Files]\r\nCodePage=1250\r\n");
    EXPECT_EQ(
        advice(),
        "Copy <world>/program/ventlock.ini to <world>/config/ventlock/ventlock.ini, which is then read in "
        "its place, and change it there.\n");
    WriteBytes(world.ConfigurationFolder() + "/ventlock.ini", "");
    EXPECT_EQ(advice(), "Change it in <world>/config/ventlock/ventlock.ini.\n");
}

TEST(OwnFiles, TheUsersIniFileNamesTheCodePageWhenTheProgramsFolderCannotBeWritten) {
    World world;
    WriteBytes(world.ConfigurationFolder() + "/ventlock.ini", "[Files]\r\nCodePage=99999\r\n");
    const ProgramResult result = world.RunAsOrdinaryUser({"settings", "list"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(
        result.err,
        "ventlock-cli: <world>/config/ventlock/ventlock.ini: Invalid procedure call or argument code page "
        "99999\n"
        "  Mend the value \"CodePage\" in its section \"Files\", for example CodePage=1252.\n");
}

}  // namespace
}  // namespace ventlock::test
