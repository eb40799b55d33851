#include "platform/odbc/DataSources.h"

#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "OdbcApi.h"
#include "base/RunTimeError.h"
#include "platform/Casing.h"
#include "platform/odbc/Diagnostics.h"
#include "platform/odbc/Environment.h"
#include "platform/odbc/Installer.h"
#include "platform/odbc/Wide.h"

namespace ventlock {
namespace {

using odbc::EnvironmentHandle;

constexpr std::string_view kLockPatienceMilliseconds = "10000";

struct Entry {
    std::string name;
    std::string description;
};

// SQLDataSourcesW and SQLDriversW are called alike.
using ListFunction = decltype(&SQLDataSourcesW);

std::vector<Entry> List(const EnvironmentHandle& environment, ListFunction function, SQLUSMALLINT first) {
    std::vector<Entry> entries;
    std::array<SQLWCHAR, 1024> name{};
    std::array<SQLWCHAR, 4096> description{};
    SQLUSMALLINT direction = first;
    for (;;) {
        SQLSMALLINT nameLength = 0;
        SQLSMALLINT descriptionLength = 0;
        const SQLRETURN result = function(
            environment.Get(), direction, name.data(), static_cast<SQLSMALLINT>(name.size()), &nameLength,
            description.data(), static_cast<SQLSMALLINT>(description.size()), &descriptionLength);
        if (result == SQL_NO_DATA) return entries;
        if (!SQL_SUCCEEDED(result)) {
            throw RunTimeError::OdbcCallFailed(
                odbc::DiagnosticTexts(odbc::ReadDiagnostics(SQL_HANDLE_ENV, environment.Get()), {}));
        }
        entries.push_back(
            {odbc::FromWide(name.data(), odbc::FilledLength(name.data(), name.size())),
             odbc::FromWide(description.data(), odbc::FilledLength(description.data(), description.size()))});
        direction = SQL_FETCH_NEXT;
    }
}

bool IsForSqlite3(const std::string& driver) {
    std::string plain;
    for (const char c : driver) {
        if (c != ' ') plain += c;
    }
    return UpperCase(plain).find("SQLITE3") != std::string::npos;
}

}  // namespace

std::vector<DataSource> ListDataSources() {
    const EnvironmentHandle environment = odbc::OpenEnvironment();
    std::vector<DataSource> sources;
    for (Entry& entry : List(environment, SQLDataSourcesW, SQL_FETCH_FIRST_USER)) {
        sources.push_back({std::move(entry.name), std::move(entry.description), false});
    }
    for (Entry& entry : List(environment, SQLDataSourcesW, SQL_FETCH_FIRST_SYSTEM)) {
        sources.push_back({std::move(entry.name), std::move(entry.description), true});
    }
    return sources;
}

std::vector<std::string> ListDrivers() {
    const EnvironmentHandle environment = odbc::OpenEnvironment();
    std::vector<std::string> names;
    for (Entry& entry : List(environment, SQLDriversW, SQL_FETCH_FIRST))
        names.push_back(std::move(entry.name));
    return names;
}

void RegisterSqliteDataSource(const std::string& name, const std::string& file) {
    for (const std::string& driver : ListDrivers()) {
        if (!IsForSqlite3(driver)) continue;
        // The driver checks foreign keys only when it is told to, and makes a file that is not there unless
        // it is told not to. It waits for a locked file on its own and cannot be interrupted there, so it
        // must give up well before a query's limit.
        odbc::WriteUserDataSource(name, driver,
                                  {{"Database", file},
                                   {"FKSupport", "1"},
                                   {"NoCreat", "1"},
                                   {"Timeout", std::string(kLockPatienceMilliseconds)}});
        odbc::RequireListed(name);
        return;
    }
    throw RunTimeError::OdbcCallFailed({"[IM003] No driver for SQLite 3 is installed (0)"});
}

}  // namespace ventlock
