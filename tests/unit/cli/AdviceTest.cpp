#include "cli/Advice.h"

#include <gtest/gtest.h>

#include <ostream>

#include "support/RowName.h"

namespace ventlock::test {
namespace {

/// A driver's words and a text that the advice for them must begin with.
struct AdviceRow {
    std::string name;
    std::vector<std::string> diagnostics;
    bool isOpenOrOld;  ///< the connection is made; the schema is old
    std::string beginning;
};

void PrintTo(const AdviceRow& row, std::ostream* out) {
    *out << row.name;
}

class AdviceForConnecting : public testing::TestWithParam<AdviceRow> {};

TEST_P(AdviceForConnecting, NamesTheRemedy) {
    const std::string advice = ConnectAdvice(GetParam().diagnostics, GetParam().isOpenOrOld);
    EXPECT_TRUE(advice.starts_with(GetParam().beginning)) << advice;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, AdviceForConnecting,
    testing::Values(
        AdviceRow{"UnknownDataSource",
                  {"[IM002] [unixODBC][Driver Manager]Data source name not found and no default driver "
                   "specified (0)"},
                  false,
                  "List the known ones with \"ventlock-cli database sources\""},
        AdviceRow{"MissingLibrary",
                  {"[01000] [unixODBC][Driver Manager]Can't open lib '/x.so' : file not found (0)"},
                  false,
                  "The data source's driver is not installed."},
        AdviceRow{"DriverCannotBeLoaded",
                  {"[IM003] Specified driver could not be loaded (0)"},
                  false,
                  "The data source's driver is not installed."},
        AdviceRow{"OtherWordSize",
                  {"[IM014] The specified DSN contains an architecture mismatch (0)"},
                  false,
                  "The driver is of another word size"},
        AdviceRow{"Locked",
                  {"[HY000] [SQLite]database is locked (5)"},
                  true,
                  "Another program holds the database."},
        AdviceRow{"NoAnswer",
                  {"[HYT01] The database did not answer within 1 s (0)"},
                  false,
                  "Another program holds the database."},
        AdviceRow{"UnknownSchema", {}, true, "The database's schema is not one that this version knows."},
        AdviceRow{"NoVersionTable",
                  {"[HY000] [SQLite]no such table: __version (1)"},
                  true,
                  "The data source does not lead to a device database"},
        AdviceRow{"NoSuchFile",
                  {"[HY000] [SQLite]connect failed (14)"},
                  false,
                  "The database that the data source names is not there"},
        AdviceRow{"NoSuchDatabase",
                  {"[08001] connection to server on socket \"/run/.s.PGSQL.5432\" failed: FATAL:  database "
                   "\"pyx\" does not exist (101)"},
                  false,
                  "The database that the data source names is not there"},
        AdviceRow{"NoSuchUser",
                  {"[08001] connection to server on socket \"/run/.s.PGSQL.5432\" failed: FATAL:  role "
                   "\"sa\" does not exist (101)"},
                  false,
                  "Check that the database server runs"},
        AdviceRow{"RefusedLogin",
                  {"[28000] Access denied for user 'sa' (1045)"},
                  false,
                  "Check that the database server runs"}),
    RowName());

class AdviceForStatements : public testing::TestWithParam<AdviceRow> {};

TEST_P(AdviceForStatements, NamesTheRemedy) {
    const std::string advice = StatementAdvice(GetParam().diagnostics, GetParam().isOpenOrOld);
    EXPECT_TRUE(advice.starts_with(GetParam().beginning)) << advice;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, AdviceForStatements,
    testing::Values(AdviceRow{"Locked",
                              {"[HY000] [SQLite]database is locked (5)"},
                              false,
                              "Another program holds the database."},
                    AdviceRow{"NoAnswer",
                              {"[HYT00] The database did not answer within 1 s (0)"},
                              false,
                              "Another program holds the database."},
                    AdviceRow{"DriversTimeLimit",
                              {"[57014] ERROR: canceling statement due to statement timeout (1)"},
                              false,
                              "Another program holds the database."},
                    AdviceRow{"ServersTimeLimitForLocks",
                              {"[HY000] Lock wait timeout exceeded; try restarting transaction (1205)"},
                              false,
                              "Another program holds the database."},
                    AdviceRow{"ServersOtherTimeLimitForLocks",
                              {"[55P03] ERROR: canceling statement due to lock timeout (1)"},
                              false,
                              "Another program holds the database."},
                    AdviceRow{"DeadlockOfTwoPrograms",
                              {"[40P01] ERROR: deadlock detected (1)"},
                              false,
                              "Another program wrote to the same rows."},
                    AdviceRow{"ProgramsInTurn",
                              {"[40001] ERROR: could not serialize access due to concurrent update (1)"},
                              false,
                              "Another program wrote to the same rows."},
                    AdviceRow{"ProgramsInTurnOnAnotherServer",
                              {"[HY000] Record has changed since last read in table 'DeviceTypes' (1020)"},
                              false,
                              "Another program wrote to the same rows."},
                    AdviceRow{"DataSourceThatIsKeptElsewhere",
                              {"[HY000] The driver manager does not list the data source PYX that was "
                               "registered (0)"},
                              false,
                              "Make the data source where the driver manager keeps its own"},
                    AdviceRow{"ServerThatWasEnded",
                              {"[57P01] FATAL: terminating connection due to administrator command (35)"},
                              false,
                              "The connection to the database was lost."},
                    AdviceRow{"ServerThatIsGone",
                              {"[HY000] [ma-3.1.15][10.11.19-MariaDB]Write error: Broken pipe (32) (5014)"},
                              false,
                              "The connection to the database was lost."},
                    AdviceRow{"ConnectionThatBroke",
                              {"[08S01] Lost connection to server during query (2013)"},
                              false,
                              "The connection to the database was lost."},
                    AdviceRow{"ReadOnly",
                              {"[HY000] [SQLite]attempt to write a readonly database (8)"},
                              false,
                              "The database is read-only for this user."},
                    AdviceRow{"NoPermission",
                              {"[42501] ERROR: permission denied for table manufacturers (1)"},
                              false,
                              "The database is read-only for this user."},
                    AdviceRow{"WrongNameOfADataSource",
                              {"[HY000] Invalid DSN (9)"},
                              false,
                              "Choose another name for the data source"},
                    AdviceRow{
                        "DiskFull", {"[HY000] [SQLite]database or disk is full (13)"}, false, "Make room"},
                    AdviceRow{"NumberTaken",
                              {"[HY000] [SQLite]UNIQUE constraint failed: Manufacturers.TavMfrNameId (19)"},
                              false,
                              "Another program took the number in between."},
                    AdviceRow{"NumberTakenOnAServer",
                              {"[23505] ERROR: doppelter Schl\u00FCsselwert (1)"},
                              false,
                              "Another program took the number in between."},
                    AdviceRow{"NumberTakenOnAServerOfAnotherLanguage",
                              {"[23000] Doppelter Eintrag '5' f\u00FCr Schl\u00FCssel 'PRIMARY' (1062)"},
                              false,
                              "Another program took the number in between."},
                    AdviceRow{"NumberTakenElsewhere",
                              {"[23000] Cannot insert duplicate key in object 'dbo.DeviceTypes' (2627)"},
                              false,
                              "Another program took the number in between."},
                    AdviceRow{"WordsOfANameInAnError",
                              {"[42601] ERROR: syntax error at or near \"unique duplicate\" (1)"},
                              false,
                              "Check the entry"},
                    AdviceRow{"Deadlock",
                              {"[40001] Deadlock found when trying to get lock (1213)"},
                              false,
                              "Another program wrote to the same rows."},
                    AdviceRow{"RowIsThereInTheOldSchema",
                              {"[HY000] [SQLite]UNIQUE constraint failed: MfrIds.DevMfrId (19)"},
                              true,
                              "A database of the old schema takes each manufacturer, type and revision once"},
                    AdviceRow{"AnythingElse", {"[42000] syntax error (1)"}, false, "Check the entry"},
                    AdviceRow{"NoWords", {}, false, "Check the entry"}),
    RowName());

TEST(AdviceForFiles, NamesTheRemedyForEachKindOfError) {
    EXPECT_EQ(FileAdvice(ErrorNumber::PathNotFound), "Make the folder, or name another path.");
    EXPECT_EQ(FileAdvice(ErrorNumber::PathNotFound, "--here"),
              "Make the folder, or name another path by --here.");
    EXPECT_EQ(FileAdvice(ErrorNumber::FileNotFound), "Check the path.");
    EXPECT_EQ(FileAdvice(ErrorNumber::DiskFull), "Make room on the disk.");
    EXPECT_EQ(FileAdvice(ErrorNumber::PermissionDenied),
              "Another program holds the file. End it and run the command again.");
    EXPECT_EQ(FileAdvice(ErrorNumber::PathFileAccessError),
              "Check that the path names a file, not a folder, and that you may read and write it.");
    EXPECT_EQ(FileAdvice(ErrorNumber::DeviceIoError), "Check the path and the disk.");
}

}  // namespace
}  // namespace ventlock::test
