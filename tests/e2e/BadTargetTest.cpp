#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>

#include "e2e/Refused.h"
#include "support/OdbcFolder.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

/// A world with a good entry and a database of the current schema.
class BadTarget : public testing::Test {
 protected:
    BadTarget() {
        world_.MakeDatabase();
        world_.Write("entry.ini", kFlowEntry);
        rows_ = world_.AllRows();
    }

    void AddDataSource(const std::string& lines) const {
        WriteBytes(world_.UserDataSources(), ReadBytes(world_.UserDataSources()) + lines);
    }

    void ExpectRowsUnchanged() const { EXPECT_EQ(world_.AllRows(), rows_); }

    World world_;
    std::string rows_;
};

TEST_F(BadTarget, AnUnknownDataSourceIsRefusedWithCode3) {
    const auto call = With(kRegisterEntry, {"--dsn", "NOWHERE"});
    ExpectRefused(
        world_, call, 3,
        "ventlock-cli: data source \"NOWHERE\" cannot be used\n"
        "  CONNconn-02: ODBC--call failed. [IM002] [unixODBC][Driver Manager]Data source name not found "
        "and no default driver specified (0) (3146)\n"
        "  driver: [IM002] [unixODBC][Driver Manager]Data source name not found and no default driver "
        "specified (0)\n"
        "  List the known ones with \"ventlock-cli database sources\", or make one with \"ventlock-cli "
        "database create\". One that is listed names a driver that is not installed.\n");
    ExpectRefusedAsDocument(world_, call, 3, "data source \"NOWHERE\" cannot be used");
    ExpectRowsUnchanged();
}

TEST_F(BadTarget, AnEmptyDataSourceNameIsNotTheDefaultOne) {
    ExpectRefused(
        world_, With(kRegisterEntry, {"--dsn", ""}), 3,
        "ventlock-cli: data source \"\" cannot be used\n"
        "  CONNconn-02: ODBC--call failed. [IM002] No data source was named (0) (3146)\n"
        "  driver: [IM002] No data source was named (0)\n"
        "  List the known ones with \"ventlock-cli database sources\", or make one with \"ventlock-cli "
        "database create\". One that is listed names a driver that is not installed.\n");
    ExpectRowsUnchanged();
}

TEST_F(BadTarget, AMissingDriverLibraryIsRefusedWithCode3) {
    AddDataSource("[GONE]\nDriver=Gone\nDatabase=" + world_.Path("device.db") + "\n");
    WriteBytes(world_.DriverFile(),
               ReadBytes(world_.DriverFile()) + "\n[Gone]\nDriver=/nowhere/libgone.so\n");
    const auto call = With(kRegisterEntry, {"--dsn", "GONE"});
    ExpectRefused(
        world_, call, 3,
        "ventlock-cli: data source \"GONE\" cannot be used\n"
        "  CONNconn-02: ODBC--call failed. [01000] [unixODBC][Driver Manager]Can't open lib "
        "'/nowhere/libgone.so' : file not found (0) (3146)\n"
        "  driver: [01000] [unixODBC][Driver Manager]Can't open lib '/nowhere/libgone.so' : file not found "
        "(0)\n"
        "  The data source's driver is not installed. Install it, or name its library in odbcinst.ini.\n");
    ExpectRefusedAsDocument(world_, call, 3, "data source \"GONE\" cannot be used");
    ExpectRowsUnchanged();
}

TEST_F(BadTarget, APasswordOfTheDataSourceIsNeverShown) {
    AddDataSource("[GONE]\nDriver=/nowhere/libgone.so\nPWD=verysecret\nPassword=verysecret\n");
    for (const char* const form : {"--json", "--quiet"}) {
        const ProgramResult result =
            world_.Run({"register", "entry.ini", "--db", "--dsn", "GONE;PWD=verysecret", form});
        EXPECT_EQ(result.exitCode, 3);
        EXPECT_EQ((result.out + result.err).find("verysecret"), std::string::npos)
            << result.out << result.err;
        EXPECT_NE((result.out + result.err).find("GONE"), std::string::npos);
    }
}

TEST_F(BadTarget, ADatabaseOfATooNewSchemaIsRefusedWithCode3) {
    world_.Database().Execute("UPDATE __version SET Major = 2, Minor = 0");
    const std::string rows = world_.AllRows();
    ExpectRefused(
        world_, kRegisterEntry, 3,
        "ventlock-cli: data source \"PYX\" cannot be used\n"
        "  The version of the device database is not supported.\n"
        "  The database's schema is not one that this version knows. Use a database of schema 1.x or an "
        "older one.\n");
    ExpectRefusedAsDocument(world_, kRegisterEntry, 3, "data source \"PYX\" cannot be used");
    EXPECT_EQ(world_.AllRows(), rows);
}

TEST_F(BadTarget, ADatabaseWithoutTheVersionTableIsRefusedWithCode3) {
    world_.Database().Execute("DROP TABLE __version");
    ExpectRefused(
        world_, kRegisterEntry, 3,
        "ventlock-cli: data source \"PYX\" cannot be used\n"
        "  DBlvi-00: ODBC--call failed. [HY000] [SQLite]no such table: __version (1) (1) (3146)\n"
        "  The version of the device database is not supported.\n"
        "  driver: [HY000] [SQLite]no such table: __version (1) (1)\n"
        "  The data source does not lead to a device database: its table \"__version\" cannot be read.\n");
}

TEST_F(BadTarget, AReadOnlyDatabaseFileFailsTheTargetWithCode1) {
    fs::permissions(world_.Path("device.db"), fs::perms::owner_read | fs::perms::others_read);
    const auto before = world_.Snapshot();
    const ProgramResult result = world_.RunAsOrdinaryUser({"register", "entry.ini", "--db"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(
        result.err,
        "ventlock-cli: [Flow] entry.ini:1: data source \"PYX\": the entry was not written\n"
        "  MANins-02.1a: ODBC--call failed. [HY000] [SQLite]attempt to write a readonly database (8) (8) "
        "(3146)\n"
        "  driver: [HY000] [SQLite]attempt to write a readonly database (8) (8)\n"
        "  The database is read-only for this user. Get the right to write to it.\n");
    EXPECT_EQ(world_.Listing(), "device.db entry.ini");
    EXPECT_EQ(world_.Snapshot().at("entry/device.db"), before.at("entry/device.db"));
    ExpectRowsUnchanged();
}

TEST_F(BadTarget, ADatabaseThatAnotherHoldsForItselfIsRefusedWithCode3) {
    const auto before = world_.Snapshot();
    OdbcProbe holder = world_.Database();
    holder.Execute("BEGIN EXCLUSIVE");
    const ProgramResult result = world_.Run(With(kRegisterEntry, {"--timeout", "1"}));
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err,
              "ventlock-cli: data source \"PYX\" cannot be used\n"
              "  CONNconn-02: ODBC--call failed. [HYT01] The database did not answer within 1 s (0) (3146)\n"
              "  driver: [HYT01] The database did not answer within 1 s (0)\n"
              "  Another program holds the database. End it or wait until it is done, then run the command "
              "again.\n");
    holder.Execute("ROLLBACK");
    EXPECT_EQ(world_.Snapshot(), before);
    ExpectRowsUnchanged();
}

TEST_F(BadTarget, ADatabaseThatAnotherWritesToFailsTheTargetWithCode1) {
    const auto before = world_.Snapshot();
    OdbcProbe holder = world_.Database();
    holder.Execute("BEGIN IMMEDIATE");
    const ProgramResult result = world_.Run(With(kRegisterEntry, {"--timeout", "1"}));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err,
              "ventlock-cli: [Flow] entry.ini:1: data source \"PYX\": the entry was not written\n"
              "  MANins-02.1a: ODBC--call failed. [HYT00] The database did not answer within 1 s (0) (3146)\n"
              "  driver: [HYT00] The database did not answer within 1 s (0)\n"
              "  Another program holds the database. End it or wait until it is done, then run the command "
              "again.\n");
    holder.Execute("ROLLBACK");
    EXPECT_EQ(world_.Snapshot(), before);
    ExpectRowsUnchanged();
}

TEST_F(BadTarget, AReadOnlyPyxIniIsRefusedWithCode1) {
    world_.Write("Pyx.ini", "[TAV Server 1]\r\nDataSourceName=PYX\r\n");
    fs::permissions(world_.Path("Pyx.ini"), fs::perms::owner_read);
    ExpectRefused(
        world_, kRegisterEntry, 1,
        "ventlock-cli: <world>/entry/Pyx.ini: Path/File access error \"<world>/entry/Pyx.ini\": Permission "
        "denied\n"
        "  Check that the path names a file, not a folder, and that you may read and write it.\n");
    ExpectRefusedAsDocument(
        world_, kRegisterEntry, 1,
        "<world>/entry/Pyx.ini: Path/File access error \"<world>/entry/Pyx.ini\": Permission denied");
    ExpectRowsUnchanged();
}

TEST_F(BadTarget, AReadOnlyDdinstalIniIsRefusedWithCode1) {
    world_.Write("Ddinstal.ini", "");
    fs::permissions(world_.Path("Ddinstal.ini"), fs::perms::owner_read);
    ExpectRefused(
        world_, kRegisterEntry, 1,
        "ventlock-cli: <world>/entry/Ddinstal.ini: Path/File access error \"<world>/entry/Ddinstal.ini\": "
        "Permission denied\n"
        "  Check that the path names a file, not a folder, and that you may read and write it.\n");
    ExpectRowsUnchanged();
}

TEST_F(BadTarget, APyxIniThatIsAFolderIsRefusedWithCode1) {
    fs::create_directory(world_.Path("Pyx.ini"));
    ExpectRefused(
        world_, kRegisterEntry, 1,
        "ventlock-cli: <world>/entry/Pyx.ini: Path/File access error \"<world>/entry/Pyx.ini\": Is a "
        "directory\n"
        "  Check that the path names a file, not a folder, and that you may read and write it.\n");
    ExpectRowsUnchanged();
}

TEST_F(BadTarget, APyxIniInAMissingFolderIsRefusedWithCode3) {
    const std::vector<std::string> call = {"register",   "entry.ini",        "--all",       "--ini-path",
                                           "no/Pyx.ini", "--ddinstall-path", "Ddinstal.ini"};
    ExpectRefused(
        world_, call, 3,
        "ventlock-cli: <world>/entry/no/Pyx.ini: Path not found \"<world>/entry/no/Pyx.ini\": No such file "
        "or directory\n"
        "  Make the folder, or name another path by --ini-path or the setting INIPath.\n");
    ExpectRefusedAsDocument(
        world_, call, 3,
        "<world>/entry/no/Pyx.ini: Path not found \"<world>/entry/no/Pyx.ini\": No such file or directory");
    ExpectRowsUnchanged();
}

TEST_F(BadTarget, ADriveLetterPathIsRefusedWithCode3AndMakesNoFile) {
    ExpectRefused(
        world_, {"register", "entry.ini", "--ddinstall"}, 3,
        "ventlock-cli: A:\\Ddinstal.ini: Path not found \"A:\\Ddinstal.ini\": No such file or directory\n"
        "  Make the folder, or name another path by --ddinstall-path or the setting DDInstallPath.\n");
}

TEST_F(BadTarget, AnEmptyPathIsNotTheDefaultOne) {
    ExpectRefused(world_, {"register", "entry.ini", "--ini", "--ini-path", ""}, 1,
                  "ventlock-cli: Pyx.ini: Path/File access error \"\": No such file or directory\n"
                  "  Check that the path names a file, not a folder, and that you may read and write it.\n");
    ExpectRefused(world_, {"register", "entry.ini", "--ddinstall", "--ddinstall-path", ""}, 1,
                  "ventlock-cli: Ddinstal.ini: Path/File access error \"\": No such file or directory\n"
                  "  Check that the path names a file, not a folder, and that you may read and write it.\n");
}

TEST_F(BadTarget, ARowThatTheDatabaseRefusesFailsTheEntryAndLeavesItsFilesAlone) {
    world_.Database().Execute(
        "CREATE TRIGGER full BEFORE INSERT ON DeviceTypes BEGIN SELECT RAISE(ABORT, 'no more types'); END");
    const ProgramResult result = world_.Run(With(kRegisterEntry, {"--json"}));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err, "");
    const auto targets = DocumentOf(result.out)["entries"][0]["targets"];
    EXPECT_EQ(targets["database"]["status"], "failed");
    EXPECT_EQ(targets["database"]["messages"],
              (nlohmann::ordered_json{
                  "DEVins-03.1: ODBC--call failed. [HY000] [SQLite]no more types (19) (19) (3146)",
                  "driver: [HY000] [SQLite]no more types (19) (19)"}));
    EXPECT_EQ(targets["ini"]["status"], "skipped");
    EXPECT_EQ(targets["ddinstall"]["status"], "skipped");
    EXPECT_EQ(world_.Listing(), "device.db entry.ini");
    EXPECT_EQ(world_.Rows("SELECT * FROM MfrProtocols"), "1|1|0|38\n");  // what went before it stays
}

}  // namespace
}  // namespace ventlock::test
