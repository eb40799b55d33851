#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "e2e/Refused.h"

namespace ventlock::test {
namespace {

TEST(DatabaseCreate, MakesAFileAndADataSourceThatChecksForeignKeys) {
    const World world;
    const ProgramResult result = world.Run({"database", "create", "--file", "device.db", "--dsn", "PLANT"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out,
              "<world>/entry/device.db: made with the current schema\n"
              "data source \"PLANT\" leads to it\n");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(ReadBytes(world.UserDataSources()),
              "[PLANT]\nDriver=SQLite3\nDatabase=" + world.Path("device.db") +
                  "\nFKSupport=1\nNoCreat=1\nTimeout=10000\n\n");
    EXPECT_EQ(world.Rows("SELECT Major, Minor FROM __version"), "1|1\n");
    EXPECT_EQ(world.Rows("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name"),
              "DeviceCategories\nDeviceProtocols\nDeviceRevisions\nDeviceTypes\nMajorDeviceCategories\n"
              "Manufacturers\nMfrProtocols\nMinorDeviceCategories\n__version\n");
    EXPECT_EQ(world.Rows("SELECT ProtocolId, Name FROM DeviceProtocols ORDER BY ProtocolId"),
              "0|HART\n1|Fieldbus\n2|Conventional\n");
    EXPECT_EQ(world.Rows("SELECT * FROM DeviceCategories WHERE DeviceCategoryId = 0"), "0|0|0\n");
    EXPECT_EQ(world.Listing(), "device.db");
}

TEST(DatabaseCreate, MakesTheOldSchemaToo) {
    const World world;
    const ProgramResult result = world.Run({"database", "create", "--file", "device.db", "--schema", "old"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, "<world>/entry/device.db: made with the old schema\n");
    EXPECT_EQ(world.Rows("SELECT Major, Minor FROM __version"), "1|0\n");
    EXPECT_EQ(
        world.Rows("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name"),
        "DevTypes\nDeviceCategories\nDeviceProtocols\nMajorDeviceCategories\nMfrIds\nMinorDeviceCategories\n"
        "PDevices\n__version\n");
    EXPECT_EQ(ReadBytes(world.UserDataSources()), "");
}

TEST(DatabaseCreate, OverwritesNothing) {
    const World world;
    world.Write("device.db", "precious");
    ExpectRefused(world, {"database", "create", "--file", "device.db"}, 2,
                  "ventlock-cli: <world>/entry/device.db exists\n"
                  "  Name a new file; nothing is overwritten.\n");
    ExpectRefusedAsDocument(world, {"database", "create", "--file", "device.db"}, 2,
                            "<world>/entry/device.db exists");
}

TEST(DatabaseCreate, MakesADataSourceThatMakesNoDatabaseByItself) {
    const World world;
    world.MakeDatabase();
    world.Write("entry.ini", kFlowEntry);
    std::filesystem::remove(world.Path("device.db"));
    for (const char* const command : {"verify", "register"}) {
        const ProgramResult result = world.Run({command, "entry.ini", "--db"});
        EXPECT_EQ(result.exitCode, 3);
        EXPECT_THAT(result.err, testing::EndsWith(
                                    "\n  The database that the data source names is not there, or may not be "
                                    "opened. Correct the data source, or make the database.\n"));
        EXPECT_EQ(world.Listing(), "entry.ini");
    }
}

TEST(DatabaseCreate, LeavesADataSourceOfThatNameAlone) {
    const World world;
    world.MakeDatabase();
    ExpectRefused(world, {"database", "create", "--file", "new.db", "--dsn", "pyx"}, 2,
                  "ventlock-cli: data source \"pyx\" exists\n"
                  "  Choose another name with --dsn, or take the old one away first.\n");
}

TEST(DatabaseCreate, OfAPathThatAConnectStringCannotNameIsRefusedWithCode2) {
    const World world;
    ExpectRefused(world, {"database", "create", "--file", "a;b.db"}, 2,
                  "ventlock-cli: <world>/entry/a;b.db: a connect string cannot name this path\n"
                  "  Choose a path without \";\", \"{\" and \"}\".\n");
}

TEST(DatabaseCreate, WithAWrongNameOfTheDataSourceLeavesNoFileBehind) {
    const World world;
    ExpectRefused(
        world, {"database", "create", "--file", "device.db", "--dsn", "a=b"}, 1,
        "ventlock-cli: <world>/entry/device.db was not made: ODBC--call failed. [HY000] Invalid DSN (9)\n"
        "  driver: [HY000] Invalid DSN (9)\n"
        "  Choose another name for the data source: at most 32 characters, none of []{}(),;?*=!@\\.\n");
}

TEST(DatabaseCreate, InAMissingFolderIsRefusedWithCode3) {
    const World world;
    ExpectRefused(
        world, {"database", "create", "--file", "no/device.db"}, 3,
        "ventlock-cli: <world>/entry/no/device.db: Path not found \"<world>/entry/no/device.db\": No such "
        "file or directory\n"
        "  Make the folder, or name another path.\n");
}

TEST(DatabaseCreate, WithoutADriverIsRefusedWithCode3) {
    const World world;
    WriteBytes(world.DriverFile(), "");
    ExpectRefused(world, {"database", "create", "--file", "device.db"}, 3,
                  "ventlock-cli: no ODBC driver for SQLite 3 is installed\n"
                  "  Install it; on Debian it is the package libsqliteodbc.\n");
}

TEST(DatabaseCreate, WithADriverThatCannotBeLoadedIsRefusedWithCode3AndLeavesNoFileBehind) {
    const World world;
    WriteBytes(world.DriverFile(), "[SQLite3]\nDriver=/nowhere/libgone.so\n");
    ExpectRefused(
        world, {"database", "create", "--file", "device.db", "--dsn", "PYX"}, 3,
        "ventlock-cli: <world>/entry/device.db was not made: ODBC--call failed. [01000] [unixODBC][Driver "
        "Manager]Can't open lib '/nowhere/libgone.so' : file not found (0)\n"
        "  driver: [01000] [unixODBC][Driver Manager]Can't open lib '/nowhere/libgone.so' : file not "
        "found (0)\n"
        "  The data source's driver is not installed. Install it, or name its library in odbcinst.ini.\n");
}

TEST(DatabaseInfo, TellsSchemaRowsAndConnection) {
    const World world;
    world.MakeDatabase();
    world.Write("entry.ini", kFlowEntry);
    ASSERT_EQ(world.Run({"register", "entry.ini", "--db"}).exitCode, 0);
    const ProgramResult result = world.Run({"database", "info"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out.substr(0, result.out.find("product: ")),
              "data source: PYX\n"
              "database: <world>/entry/device.db\n");
    EXPECT_EQ(result.out.substr(result.out.find("schema code: ")),
              "schema code: 5\n"
              "schema: current\n"
              "manufacturers: 1\n"
              "manufacturer protocols: 1\n"
              "device types: 1\n"
              "device revisions: 1\n");
    EXPECT_NE(result.out.find("\nproduct: SQLite 3."), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("\ndriver: "), std::string::npos);
    EXPECT_NE(result.out.find("\ndriver manager: "), std::string::npos);
    const auto document = DocumentOf(world.Run({"database", "info", "--json"}).out);
    EXPECT_EQ(document["schema"], "current");
    EXPECT_EQ(document["schemaCode"], 5);
    EXPECT_EQ(document["rows"]["DeviceRevisions"], 1);
}

TEST(DatabaseInfo, OfTheOldSchemaCountsItsOwnTables) {
    const World world;
    world.MakeDatabase("old");
    const ProgramResult result = world.Run({"database", "info"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out.substr(result.out.find("schema code: ")),
              "schema code: 4\n"
              "schema: old\n"
              "manufacturers: 0\n"
              "device types: 0\n"
              "device revisions: 0\n");
}

TEST(DatabaseInfo, OfAnUnreachableDatabaseEndsWithCode3) {
    const World world;
    ExpectRefusedAsDocument(world, {"database", "info", "--dsn", "NOWHERE"}, 3,
                            "data source \"NOWHERE\" cannot be used");
}

TEST(DatabaseList, GivesTheRowsOfEachKindWithTheirColumns) {
    const World world;
    world.MakeDatabase();
    world.Write("entry.ini", kFlowEntry);
    ASSERT_EQ(world.Run({"register", "entry.ini", "--db"}).exitCode, 0);
    const auto list = [&](const std::string& kind) { return world.Run({"database", "list", kind}).out; };
    EXPECT_EQ(list("protocols"),
              "ProtocolId\tName\tDescription\n"
              "0\tHART\tDigital signal on the 4 to 20 mA loop\n"
              "1\tFieldbus\tDigital field bus with function blocks\n"
              "2\tConventional\t4 to 20 mA loop or switch without communication\n");
    EXPECT_EQ(
        list("major-categories"),
        "DevCat\tDevCatName\n0\tNot classified\n1\tPressure\n2\tTemperature\n3\tFlow\n4\tLevel\n5\tValve\n"
        "6\tAnalytical\n7\tPositioning\n8\tWeighing\n9\tInput and output\n");
    EXPECT_EQ(
        list("minor-categories"),
        "DevCat\tDevCatName\n0\tNot classified\n1\tGauge\n2\tDifferential\n3\tAbsolute\n4\tThermocouple\n"
        "5\tResistance thermometer\n6\tMagnetic\n7\tCoriolis\n8\tVortex\n9\tUltrasonic\n10\tRadar\n"
        "11\tHydrostatic\n12\tControl valve\n13\tOn-off valve\n14\tpH and redox\n15\tConductivity\n"
        "16\tDissolved oxygen\n17\tMultivariable\n");
    EXPECT_EQ(list("manufacturers"),
              "TavMfrNameId\tName\tDescription\tMfrProtocolId\tProtocolId\tMfrId\n"
              "1\tAcme\tAcme Inc\t1\t0\t38\n");
    EXPECT_EQ(
        list("devices"),
        "Manufacturer\tMfrId\tProtocolId\tTavDevTypeId\tDeviceType\tDevice\tTavDevRevId\tDeviceRevision\t"
        "Revision\tDeviceCategoryId\n"
        "Acme\t38\t0\t1\t7\tFlow\t1\t1\tR1\t0\n");
    const auto document = DocumentOf(world.Run({"database", "list", "manufacturers", "--json"}).out);
    EXPECT_EQ(document["rows"],
              nlohmann::ordered_json::parse(
                  R"([{"TavMfrNameId": "1", "Name": "Acme", "Description": "Acme Inc", "MfrProtocolId": "1",
                       "ProtocolId": "0", "MfrId": "38"}])"));
}

TEST(DatabaseList, OfTheOldSchemaGivesItsOwnTables) {
    const World world;
    world.MakeDatabase("old");
    world.Write("entry.ini", kFlowEntry);
    ASSERT_EQ(world.Run({"register", "entry.ini", "--db"}).exitCode, 0);
    EXPECT_EQ(world.Run({"database", "list", "manufacturers"}).out, "DevMfrId\tMfrIdName\n38\tAcme\n");
    EXPECT_EQ(world.Run({"database", "list", "devices"}).out,
              "UDevRevId\tDevMfrId\tDevType\tDevName\tDevRev\tDevDDLRev\tDevProtocolRev\n"
              "0000002600070001\t38\t7\tFlow\t1\t1\t5\n");
}

TEST(DatabaseList, OfAnUnknownKindIsRefusedWithCode2) {
    const World world;
    ExpectRefused(world, {"database", "list", "colours"}, 2,
                  "ventlock-cli: KIND: colours not in "
                  "{protocols,major-categories,minor-categories,manufacturers,devices}\n"
                  "  See \"ventlock-cli database list --help\".\n");
}

TEST(DatabaseSources, AreListedWithDriverAndScope) {
    const World world;
    WriteBytes(world.UserDataSources(), "[PYX]\nDriver=SQLite3\n\n[OTHER]\nDriver=Elsewhere\n");
    const ProgramResult result = world.Run({"database", "sources"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, "PYX\tSQLite3\tuser\nOTHER\tElsewhere\tuser\n");
    EXPECT_EQ(DocumentOf(world.Run({"database", "sources", "--json"}).out)["sources"],
              nlohmann::ordered_json::parse(R"([{"name": "PYX", "driver": "SQLite3", "scope": "user"},
                                                {"name": "OTHER", "driver": "Elsewhere", "scope": "user"}])"));
}

}  // namespace
}  // namespace ventlock::test
