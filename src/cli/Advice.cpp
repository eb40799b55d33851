#include "cli/Advice.h"

#include "platform/odbc/DriverAdvice.h"
#include "platform/odbc/DriverAnswers.h"

namespace ventlock {
namespace {

using odbc::Mention;

/// Who waits for a lock is ended by the program, by the driver or by the server.
bool TellLock(const std::vector<std::string>& diagnostics) {
    return Mention(diagnostics,
                   {"locked", "busy", "lock wait timeout", "[HYT00]", "[HYT01]", "[57014]", "[55P03]"});
}

constexpr const char* kLockedAdvice =
    "Another program holds the database. End it or wait until it is done, then run the command again.";

}  // namespace

std::string ConnectAdvice(const std::vector<std::string>& diagnostics, bool isOpen) {
    if (TellLock(diagnostics)) return kLockedAdvice;
    if (isOpen && diagnostics.empty()) {
        return "The database's schema is not one that this version knows. Use a database of schema 1.x or an "
               "older one.";
    }
    if (isOpen)
        return "The data source does not lead to a device database: its table \"__version\" cannot be read.";
    if (odbc::TellOtherWordSize(diagnostics)) {
        return "The driver is of another word size than this program. " + odbc::WordSizeAdvice();
    }
    if (Mention(diagnostics, {"can't open lib", "file not found", "[IM003]", "[IM004]", "[IM005]"})) {
        return "The data source's driver is not installed. " + odbc::MissingDriverAdvice();
    }
    if (Mention(diagnostics, {"[IM002]", "No data source"})) {
        return "List the known ones with \"ventlock-cli database sources\", or make one with \"ventlock-cli "
               "database create\". One that is listed names a driver that is not installed.";
    }
    if (Mention(diagnostics, {"[SQLite]connect failed", "unknown database", "FATAL:  database"})) {
        return "The database that the data source names is not there, or may not be opened. Correct the data "
               "source, or make the database.";
    }
    return "Check that the database server runs and lets the user \"sa\" in without a password.";
}

std::string StatementAdvice(const std::vector<std::string>& diagnostics, bool isOldSchema) {
    if (TellLock(diagnostics)) return kLockedAdvice;
    if (Mention(diagnostics, {"[08", "[57P0", "lost connection", "write error", "gone away"})) {
        return "The connection to the database was lost. Check that its server runs, then run the command "
               "again.";
    }
    if (Mention(diagnostics, {"readonly", "read-only", "permission", "denied"})) {
        return "The database is read-only for this user. Get the right to write to it.";
    }
    if (Mention(diagnostics, {"Invalid DSN"})) {
        return "Choose another name for the data source: at most 32 characters, none of []{}(),;?*=!@\\.";
    }
    if (Mention(diagnostics, {"does not list the data source"})) {
        return "Make the data source where the driver manager keeps its own, and the database without --dsn.";
    }
    if (Mention(diagnostics, {"disk is full", "disk full"})) return "Make room on the database's disk.";
    if (odbc::TellDuplicate(diagnostics)) {
        if (isOldSchema) {
            return "A database of the old schema takes each manufacturer, type and revision once and "
                   "changes none. Delete its rows first, or leave the database out.";
        }
        return "Another program took the number in between. Run the command again.";
    }
    if (odbc::TellGivenUp(diagnostics)) {
        return "Another program wrote to the same rows. Run the command again.";
    }
    return "Check the entry with \"ventlock-cli check\" and the database with \"ventlock-cli database "
           "info\".";
}

std::string TransactionAdvice(const std::vector<std::string>& diagnostics) {
    if (!odbc::TellNoTransactions(diagnostics)) return StatementAdvice(diagnostics);
    return "The data source's driver cannot keep other programs out until all entries are written. Leave "
           "--one-transaction out: every entry is written by itself then.";
}

std::string FileAdvice(ErrorNumber number, std::string_view naming) {
    switch (number) {
        case ErrorNumber::PathNotFound:
            return std::string("Make the folder, or name another path")
                .append(naming.empty() ? "" : " by ")
                .append(naming)
                .append(".");
        case ErrorNumber::FileNotFound:
            return "Check the path.";
        case ErrorNumber::DiskFull:
            return "Make room on the disk.";
        case ErrorNumber::PermissionDenied:
            return "Another program holds the file. End it and run the command again.";
        case ErrorNumber::PathFileAccessError:
            return "Check that the path names a file, not a folder, and that you may read and write it.";
        default:
            return "Check the path and the disk.";
    }
}

}  // namespace ventlock
