#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "e2e/Refused.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;

const std::vector<std::string> kRegisterAll = {"register", "flow.ini",         "--all",       "--ini-path",
                                               "Pyx.ini",  "--ddinstall-path", "Ddinstal.ini"};

/// What "Pyx.ini.bak" holds after the first write: the new keys, before the blank line was put in.
const std::string kFlowPyxIniBackup =
    "[Devices]\r\n"
    "000026.0007.01=000026/0007\r\n"
    "[000026.0007.01]\r\n"
    "DeviceHelp=000026\\0007\\h.hlp\r\n"
    "BlockHelp_001=000026\\0007\\\r\n"
    "DeviceDLL=000026\\0007\\Dev.dll\r\n"
    "Description=Flow\r\n"
    "HART Protocol Rev=5\r\n";

TEST(Register, AnEntryGoesIntoAnEmptyDatabaseAndIntoNewFiles) {
    const World world;
    world.MakeDatabase();
    world.Write("flow.ini", kFlowEntry);
    const ProgramResult result = world.Run(kRegisterAll);

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out,
              "[Flow] flow.ini:1: data source \"PYX\": written\n"
              "[Flow] flow.ini:1: <world>/entry/Pyx.ini: written\n"
              "[Flow] flow.ini:1: <world>/entry/Ddinstal.ini: written\n");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(world.Rows("SELECT * FROM Manufacturers"), "1|Acme|Acme Inc\n");
    EXPECT_EQ(world.Rows("SELECT * FROM MfrProtocols"), "1|1|0|38\n");
    EXPECT_EQ(world.Rows("SELECT * FROM DeviceTypes"), "1|1|7|Flow|Flow meter\n");
    EXPECT_EQ(world.Rows("SELECT * FROM DeviceRevisions"), "1|1|1|0|R1|First\n");
    EXPECT_EQ(world.Read("Pyx.ini"), kFlowPyxIni);
    EXPECT_EQ(world.Read("Pyx.ini.bak"), kFlowPyxIniBackup);
    EXPECT_EQ(world.Read("Ddinstal.ini"), kFlowDdinstal);
    EXPECT_EQ(world.Listing(), "Ddinstal.ini Pyx.ini Pyx.ini.bak device.db flow.ini");
}

/// A file of the sample that comes with the program.
std::string Sample(const std::string& name) {
    return ReadBytes(VENTLOCK_SOURCE_FOLDER "/data/sample/" + name);
}

TEST(Register, TheSampleGoesIntoAnEmptyDatabaseAndIntoNewFiles) {
    const World world;
    world.MakeDatabase();
    world.Write("flow.ini", Sample("flow-transmitter.ini"));
    EXPECT_EQ(world.Run(kRegisterAll).exitCode, 0);
    EXPECT_EQ(world.Rows("SELECT * FROM Manufacturers"), "1|Acme|Acme Inc\n");
    EXPECT_EQ(world.Rows("SELECT * FROM MfrProtocols"), "1|1|0|38\n");
    EXPECT_EQ(world.Rows("SELECT * FROM DeviceTypes"), "1|1|7|Flow|Flow meter\n");
    EXPECT_EQ(world.Rows("SELECT * FROM DeviceRevisions"), "1|1|1|0|R1|First\n");
    EXPECT_EQ(world.Read("Pyx.ini"), kFlowPyxIni);
    EXPECT_EQ(world.Read("Pyx.ini.bak"), kFlowPyxIniBackup);
    EXPECT_EQ(world.Read("Ddinstal.ini"), kFlowDdinstal);
}

TEST(Register, TheSampleGoesIntoTheSamplePyxIni) {
    const World world;
    world.Write("flow.ini", Sample("flow-transmitter.ini"));
    world.Write("Pyx.ini", Sample("Pyx.ini"));
    EXPECT_EQ(world.Run({"register", "flow.ini", "--ini", "--ini-path", "Pyx.ini"}).exitCode, 0);
    EXPECT_EQ(world.Read("Pyx.ini"), CrLf("[TAV Server 1]\n"
                                          "DataSourceName=PYX\n"
                                          "\n"
                                          "[Devices]\n"
                                          "000011.0001.01=000011/0001\n"
                                          "000026.0007.01=000026/0007\n"
                                          "\n"
                                          "[000011.0001.01]\n"
                                          "Description=Old\n"
                                          "\n"
                                          "[000026.0007.01]\n"
                                          "DeviceHelp=000026\\0007\\h.hlp\n"
                                          "BlockHelp_001=000026\\0007\\\n"
                                          "DeviceDLL=000026\\0007\\Dev.dll\n"
                                          "Description=Flow\n"
                                          "HART Protocol Rev=5\n"));
}

TEST(Register, ASecondRunOfTheSameEntryChangesNothingButTheBackups) {
    const World world;
    world.MakeDatabase();
    world.Write("flow.ini", kFlowEntry);
    ASSERT_EQ(world.Run(kRegisterAll).exitCode, 0);
    const std::string rows = world.AllRows();
    const ProgramResult second = world.Run(kRegisterAll);

    EXPECT_EQ(second.exitCode, 0);
    EXPECT_EQ(second.err, "");
    EXPECT_EQ(world.AllRows(), rows);
    EXPECT_EQ(world.Read("Pyx.ini"), kFlowPyxIni);
    EXPECT_EQ(world.Read("Pyx.ini.bak"), kFlowPyxIni);
    EXPECT_EQ(world.Read("Ddinstal.ini"), kFlowDdinstal);
    EXPECT_EQ(world.Read("Ddinstal.ini.bak"), kFlowDdinstal);
}

TEST(Register, ASecondRunWithOtherValuesChangesValuesOnly) {
    const World world;
    world.MakeDatabase();
    world.Write("flow.ini", kFlowEntry);
    ASSERT_EQ(world.Run(kRegisterAll).exitCode, 0);
    world.Write(
        "flow.ini",
        "[Flow]\nManID=26\nManName=Acme Ltd\nManDesc=Sold\nProtocol=HART\nDevID=7\nDevName=Flow II\n"
        "DevDesc=Better\nDevRev=1\nDDRev=2\nProtRev=0A\nDevRevName=R1b\nDevRevDesc=Again\nDLLName=Dev2\n"
        "TemplateName=u\nBlkHelp=b\nTAVVersions=6.0\n");
    const ProgramResult second = world.Run(kRegisterAll);

    EXPECT_EQ(second.exitCode, 0);
    EXPECT_EQ(world.Rows("SELECT * FROM Manufacturers"), "1|Acme Ltd|Sold\n");
    EXPECT_EQ(world.Rows("SELECT * FROM MfrProtocols"), "1|1|0|38\n");
    EXPECT_EQ(world.Rows("SELECT * FROM DeviceTypes"), "1|1|7|Flow II|Better\n");
    EXPECT_EQ(world.Rows("SELECT * FROM DeviceRevisions"), "1|1|1|0|R1b|Again\n");
    EXPECT_EQ(world.Read("Pyx.ini"), CrLf("[Devices]\n"
                                          "000026.0007.01=000026/0007\n"
                                          "\n"
                                          "[000026.0007.01]\n"
                                          "DeviceHelp=000026\\0007\\\n"
                                          "BlockHelp_001=000026\\0007\\b.hlp\n"
                                          "DeviceDLL=000026\\0007\\Dev2.dll\n"
                                          "Description=Flow II\n"
                                          "HART Protocol Rev=10\n"));
    EXPECT_EQ(world.Read("Ddinstal.ini"), CrLf("[Version]\n"
                                               "DD Version=2\n"
                                               "\n"
                                               "[General]\n"
                                               "NumOfMfg=1\n"
                                               "\n"
                                               "[Mfg1]\n"
                                               "ID=000026\n"
                                               "NumOfDev=1\n"
                                               "Name=Acme Ltd\n"
                                               "\n"
                                               "[000026.1]\n"
                                               "DevType=0007\n"
                                               "DevTypeDesc=Flow II\n"
                                               "DevTypeRevDesc=Rev 1\n"
                                               "DevTypeRev=01\n"
                                               "DDRevDesc=DD Rev 2\n"
                                               "PYX=1,0102.pyx\n"
                                               "SYM=1,0102.sym\n"
                                               "MAP=1,0102.map\n"
                                               "DeviceHelp=\n"
                                               "BlockHelp=b.hlp\n"
                                               "OtherHelp=\n"
                                               "DeviceDLL=1,Dev2.dll\n"
                                               "OtherDLL=\n"
                                               "Template=1,u.mrg\n"
                                               "HART Protocol Rev=10\n"
                                               "TAVVersionSupport=6.0\n"));
}

TEST(Register, AnEntryGoesIntoADatabaseOfTheOldSchema) {
    const World world;
    world.MakeDatabase("old");
    world.Write("flow.ini", kFlowEntry);
    const ProgramResult result = world.Run(With(kRegisterAll, {"--json"}));

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(world.Rows("SELECT * FROM MfrIds"), "38|Acme\n");
    EXPECT_EQ(world.Rows("SELECT * FROM DevTypes"), "38|7|Flow\n");
    EXPECT_EQ(world.Rows("SELECT * FROM PDevices"), "0000002600070001|38|7|Flow|1|1|5\n");
    EXPECT_EQ(world.Read("Pyx.ini"), kFlowPyxIni);
    EXPECT_EQ(world.Read("Ddinstal.ini"), kFlowDdinstal);
    EXPECT_EQ(
        DocumentOf(result.out)["entries"][0]["targets"]["database"]["statements"],
        (nlohmann::ordered_json{"INSERT INTO MfrIds (DevMfrId, MfrIdName) VALUES (?, ?)  -- 38, 'Acme'",
                                "INSERT INTO DevTypes (DevMfrId, DevType, DevTypeDesc) VALUES (?, ?, ?)  -- "
                                "38, 7, 'Flow'",
                                "INSERT INTO PDevices (UDevRevId, DevMfrId, DevType, DevName, DevRev, "
                                "DevDDLRev, DevProtocolRev) VALUES (?, ?, ?, ?, ?, ?, ?)  -- "
                                "'0000002600070001', 38, 7, 'Flow', 1, 1, 5"}));
}

TEST(Register, AnApostropheIsStoredUnchangedInTheOldSchema) {
    const World world;
    world.MakeDatabase("old");
    world.Write("flow.ini", "[E]\nManID=26\nManName=O'Neil?\nDevID=7\nDevName=Flow\n");
    const ProgramResult result = world.Run({"register", "flow.ini", "--db"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(world.Rows("SELECT * FROM MfrIds"), "38|O'Neil?\n");
}

TEST(Register, ASecondRunOnTheOldSchemaIsRefusedByTheDatabaseAndSaysWhatToDo) {
    const World world;
    world.MakeDatabase("old");
    world.Write("flow.ini", kFlowEntry);
    ASSERT_EQ(world.Run(kRegisterAll).exitCode, 0);
    const auto before = world.Snapshot();
    const std::string rows = world.AllRows();
    const ProgramResult second = world.Run(kRegisterAll);

    EXPECT_EQ(second.exitCode, 1);
    EXPECT_EQ(second.out, "");
    EXPECT_EQ(
        second.err,
        "ventlock-cli: [Flow] flow.ini:1: data source \"PYX\": the entry was not written\n"
        "  MANins-01: ODBC--call failed. [HY000] [SQLite]UNIQUE constraint failed: MfrIds.DevMfrId (19) "
        "(19) (3146)\n"
        "  driver: [HY000] [SQLite]UNIQUE constraint failed: MfrIds.DevMfrId (19) (19)\n"
        "  A database of the old schema takes each manufacturer, type and revision once and changes none. "
        "Delete its rows first, or leave the database out.\n");
    EXPECT_EQ(world.AllRows(), rows);
    EXPECT_EQ(world.Snapshot(), before);
}

/// A database as the window's own sample has it: one protocol, one category of each kind, no pair of them.
void MakeSampleLists(const World& world) {
    OdbcProbe database = world.Database();
    for (const char* const table :
         {"DeviceCategories", "DeviceProtocols", "MajorDeviceCategories", "MinorDeviceCategories"}) {
        database.Execute(std::string("DELETE FROM ") + table);
    }
    database.Execute("INSERT INTO DeviceProtocols VALUES (1, 'HART', '')");
    database.Execute("INSERT INTO MajorDeviceCategories VALUES (1, 'Flow', '')");
    database.Execute("INSERT INTO MinorDeviceCategories VALUES (1, 'Magnetic', '')");
}

TEST(Register, TheStatementsThatReachTheDriverAreExactlyTheListedOnes) {
    const World world;
    world.MakeDatabase();
    MakeSampleLists(world);
    world.Write("flow.ini",
                "[Flow]\nManID=26\nManName=Acme\nManDesc=Acme Inc\nProtID=1\nDevID=0A\nDevName=Flow\n"
                "DevDesc=Flow meter\nDevRev=01\nDevRevName=R1\nDevRevDesc=First\nMajorCategory=Flow\n"
                "MinorCategory=Magnetic\n");
    world.TraceStatements();
    const ProgramResult result = world.Run({"register", "flow.ini", "--db", "--json"});

    ASSERT_EQ(result.exitCode, 0) << result.out;
    const std::vector<std::string> ofTheStart = {
        "SELECT *   FROM __version  ORDER BY Major, Minor ",
        "SELECT *   FROM __version  ORDER BY Major, Minor ",
        "SELECT *   FROM Manufacturers ",
        "SELECT *   FROM DeviceTypes ",
        "SELECT *   FROM DeviceProtocols  ORDER BY ProtocolId ",
        ("SELECT MajorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM MajorDeviceCategories  ORDER BY "
         "MajorDevicecategoryId "),
        ("SELECT MinorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM MinorDeviceCategories  ORDER BY "
         "MinorDevicecategoryId ")};
    const std::vector<std::string> ofTheWrite = {
        "SELECT *   FROM DeviceCategories  ORDER BY DevicecategoryId ",
        ("INSERT INTO DeviceCategories        (DeviceCategoryId, MajorDeviceCategoryId, "
         "MinorDeviceCategoryId) VALUES ('1', '1', '1') "),
        "select *   from MfrProtocols ",
        "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (1, 'Acme', 'Acme Inc') ",
        ("INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, ProtocolId, MfrId) VALUES (1, 1, 1, "
         "'38') "),
        "select *   from DeviceTypes ",
        ("INSERT INTO DeviceTypes        (TavDevTypeId, MfrProtocolId, DeviceType, Name, Description) VALUES "
         "(1, 1, '10', 'Flow', 'Flow meter') "),
        "select *   from DeviceRevisions ",
        ("INSERT INTO DeviceRevisions        (TavDevRevId, TavDevTypeId, DeviceRevision, DeviceCategoryId, "
         "Name, Description) VALUES (1, 1, '1', 1, 'R1', 'First') ")};
    EXPECT_EQ(world.TracedStatements(), With(ofTheStart, ofTheWrite));
    EXPECT_EQ(DocumentOf(result.out)["entries"][0]["targets"]["database"]["statements"], ofTheWrite);
}

TEST(Register, TheOldSchemaIsReadByFourStatementsAndWrittenByThree) {
    const World world;
    world.MakeDatabase("old");
    world.Write("flow.ini", kFlowEntry);
    world.TraceStatements();
    ASSERT_EQ(world.Run({"register", "flow.ini", "--db"}).exitCode, 0);
    EXPECT_THAT(
        world.TracedStatements(),
        ElementsAre("SELECT *   FROM __version  ORDER BY Major, Minor ",
                    "SELECT *   FROM __version  ORDER BY Major, Minor ", "SELECT *   FROM MfrIds ",
                    "SELECT *   FROM DevTypes ", "INSERT INTO MfrIds (DevMfrId, MfrIdName) VALUES (?, ?)",
                    "INSERT INTO DevTypes (DevMfrId, DevType, DevTypeDesc) VALUES (?, ?, ?)",
                    "INSERT INTO PDevices (UDevRevId, DevMfrId, DevType, DevName, DevRev, DevDDLRev, "
                    "DevProtocolRev) VALUES (?, ?, ?, ?, ?, ?, ?)"));
}

TEST(Register, OnlyTheTargetsThatWereNamedAreTouched) {
    const World world;
    world.MakeDatabase();
    world.Write("flow.ini", kFlowEntry);
    const std::string rows = world.AllRows();
    EXPECT_EQ(world.Run({"register", "flow.ini", "--ini", "--ini-path", "Pyx.ini"}).exitCode, 0);
    EXPECT_EQ(world.Listing(), "Pyx.ini Pyx.ini.bak device.db flow.ini");
    EXPECT_EQ(world.Run({"register", "flow.ini", "--ddinstall", "--ddinstall-path", "Ddinstal.ini"}).exitCode,
              0);
    EXPECT_EQ(world.Listing(), "Ddinstal.ini Pyx.ini Pyx.ini.bak device.db flow.ini");
    EXPECT_EQ(world.AllRows(), rows);
    EXPECT_EQ(world.Run({"register", "flow.ini", "--db"}).exitCode, 0);
    EXPECT_EQ(world.Listing(), "Ddinstal.ini Pyx.ini Pyx.ini.bak device.db flow.ini");
    EXPECT_EQ(world.Rows("SELECT * FROM DeviceRevisions"), "1|1|1|0|R1|First\n");
}

TEST(Register, FilesAreWrittenWithoutAnyDatabase) {
    const World world;
    world.Write("flow.ini", kFlowEntry);
    const ProgramResult result = world.Run({"register", "flow.ini", "--ini", "--ddinstall", "--ini-path",
                                            "Pyx.ini", "--ddinstall-path", "Ddinstal.ini"});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(world.Read("Pyx.ini"), kFlowPyxIni);
    EXPECT_EQ(world.Read("Ddinstal.ini"), kFlowDdinstal);
}

TEST(Register, TargetsComeFromTheSettingsWhenTheCallNamesNone) {
    const World world;
    world.MakeDatabase("current", "PLANT");
    world.Write("flow.ini", kFlowEntry);
    ASSERT_EQ(world.Run({"settings", "set", "INIPath", world.Path("Mine.ini")}).exitCode, 0);
    ASSERT_EQ(world.Run({"settings", "set", "DDInstallPath", world.Path("Dd.ini")}).exitCode, 0);
    ASSERT_EQ(world.Run({"settings", "set", "DataSourceName", "PLANT"}).exitCode, 0);
    const ProgramResult result = world.Run({"register", "flow.ini", "--all"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(result.out,
              "[Flow] flow.ini:1: data source \"PLANT\": written\n"
              "[Flow] flow.ini:1: <world>/entry/Mine.ini: written\n"
              "[Flow] flow.ini:1: <world>/entry/Dd.ini: written\n");
    EXPECT_EQ(world.Read("Mine.ini"),
              "[TAV Server 1]\r\nDataSourceName=PLANT\r\n\r\n" + std::string(kFlowPyxIni));
    EXPECT_EQ(world.Read("Dd.ini"), kFlowDdinstal);
}

TEST(Register, QuietSaysNothingWhenAllIsWell) {
    const World world;
    world.MakeDatabase();
    world.Write("flow.ini", kFlowEntry);
    const ProgramResult result = world.Run(With(kRegisterAll, {"--quiet"}));
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(world.Read("Pyx.ini"), kFlowPyxIni);
}

TEST(Register, ANewCategoryNameIsMadeForAConventionalDevice) {
    const World world;
    world.MakeDatabase();
    world.Write("flow.ini",
                "[Flow]\nManID=26\nManName=Acme\nDevID=7\nProtocol=conventional\nMajorCategory=Turbines\n"
                "MinorCategory=magnetic\n");
    ASSERT_EQ(world.Run({"register", "flow.ini", "--db"}).exitCode, 0);
    EXPECT_EQ(world.Rows("SELECT * FROM MajorDeviceCategories WHERE MajorDeviceCategoryId > 9"),
              "10|Turbines|\n");
    EXPECT_EQ(world.Rows("SELECT * FROM DeviceCategories WHERE DeviceCategoryId > 17"), "18|10|6\n");
    EXPECT_EQ(world.Rows("SELECT * FROM DeviceRevisions"), "1|1|1|18||\n");
    EXPECT_EQ(world.Rows("SELECT * FROM MfrProtocols"), "1|1|2|38\n");
}

}  // namespace
}  // namespace ventlock::test
