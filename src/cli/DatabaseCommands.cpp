#include "cli/DatabaseCommands.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <vector>

#include "cli/Advice.h"
#include "cli/CliError.h"
#include "cli/DatabaseScript.h"
#include "cli/EntryFiles.h"
#include "db/SchemaVersion.h"
#include "db/Statements.h"
#include "db/Tables.h"
#include "platform/Casing.h"
#include "platform/odbc/DataSources.h"
#include "platform/odbc/OdbcEngine.h"

namespace ventlock {
namespace {

using Json = nlohmann::ordered_json;

[[noreturn]] void ThrowDatabaseError(ExitCode code, const std::string& what, const RunTimeError& error,
                                     const std::string& advice) {
    std::vector<std::string> details;
    for (const std::string& record : error.Diagnostics()) details.push_back("driver: " + record);
    throw CliError(code, what + ": " + error.what(), details, advice);
}

[[noreturn]] void ThrowDatabaseError(ExitCode code, const std::string& what, const RunTimeError& error) {
    ThrowDatabaseError(code, what, error, StatementAdvice(error.Diagnostics()));
}

std::string SqliteDriver() {
    const std::vector<std::string> drivers = ListDrivers();
    const auto found = std::find_if(drivers.begin(), drivers.end(), [](const std::string& name) {
        return UpperCase(name).find("SQLITE3") != std::string::npos;
    });
    if (found == drivers.end()) {
        throw CliError(ExitCode::Unreachable, "no ODBC driver for SQLite 3 is installed", {},
                       "Install it; on Debian it is the package libsqliteodbc.");
    }
    return *found;
}

std::vector<std::string> SchemaStatements(Services& services, bool isOldSchema) {
    IPaths& paths = services.Machine().Paths();
    const std::string folder = paths.Join(paths.ProgramFolder(), "schema");
    const std::string generation = paths.Join(folder, isOldSchema ? "old" : "current");
    std::vector<std::string> statements;
    for (const std::string& file :
         {paths.Join(paths.Join(folder, "common"), "sqlite.sql"), paths.Join(generation, "sqlite.sql"),
          paths.Join(generation, "version.sql"), paths.Join(folder, "reference.sql")}) {
        try {
            const auto more = SplitStatements(services.Files().ReadAll(file));
            statements.insert(statements.end(), more.begin(), more.end());
        } catch (const RunTimeError& error) {
            throw CliError(ExitCode::TargetFailed, file + ": " + error.what(), {},
                           "Install the program again: its schema scripts are missing.");
        }
    }
    return statements;
}

void RequireNewDataSource(const std::string& name) {
    for (const DataSource& source : ListDataSources()) {
        if (!EqualIgnoringCase(source.name, name)) continue;
        throw CliError(ExitCode::WrongCall, "data source \"" + name + "\" exists", {},
                       "Choose another name with --dsn, or take the old one away first.");
    }
}

/// @param isOpen  set once the connection is made
void RunScript(const std::string& connect, Services& services, const std::vector<std::string>& statements,
               bool& isOpen) {
    const auto engine = CreateOdbcEngine(services.Events(), services.TimeLimits());
    const auto connection = engine->CreateWorkspace("", "", "", WorkspaceType::Odbc)
                                ->OpenConnection("", std::nullopt, false, connect);
    isOpen = true;
    // One commit for the whole script: a database that is half made is of no use to anybody.
    connection->Execute("BEGIN");
    for (const std::string& statement : statements) connection->Execute(statement);
    connection->Execute("COMMIT");
}

struct CountedTable {
    std::string_view label;
    std::string_view table;
};

std::vector<CountedTable> CountedTables(std::int16_t schemaVersion) {
    if (schemaVersion >= kCurrentSchema) {
        return {{"manufacturers", tables::kManufacturers},
                {"manufacturer protocols", tables::kMfrProtocols},
                {"device types", tables::kDeviceTypes},
                {"device revisions", tables::kDeviceRevisions}};
    }
    return {{"manufacturers", tables::kMfrIds},
            {"device types", tables::kDevTypes},
            {"device revisions", tables::kPDevices}};
}

// What was registered, put together from the tables of the current schema.
constexpr std::string_view kManufacturerRows =
    "SELECT M.TavMfrNameId, M.Name, M.Description, P.MfrProtocolId, P.ProtocolId, P.MfrId "
    "FROM Manufacturers M LEFT JOIN MfrProtocols P ON P.TavMfrNameId = M.TavMfrNameId "
    "ORDER BY M.TavMfrNameId, P.MfrProtocolId";
constexpr std::string_view kDeviceRows =
    "SELECT M.Name AS Manufacturer, P.MfrId, P.ProtocolId, T.TavDevTypeId, T.DeviceType, "
    "T.Name AS Device, R.TavDevRevId, R.DeviceRevision, R.Name AS Revision, R.DeviceCategoryId "
    "FROM DeviceRevisions R JOIN DeviceTypes T ON T.TavDevTypeId = R.TavDevTypeId "
    "JOIN MfrProtocols P ON P.MfrProtocolId = T.MfrProtocolId "
    "JOIN Manufacturers M ON M.TavMfrNameId = P.TavMfrNameId ORDER BY R.TavDevRevId";

std::string ListStatement(const std::string& kind, std::int16_t schemaVersion) {
    const bool isCurrent = schemaVersion >= kCurrentSchema;
    if (kind == "protocols") return std::string(statements::kProtocols);
    if (kind == "major-categories") return std::string(statements::kMajorCategories);
    if (kind == "minor-categories") return std::string(statements::kMinorCategories);
    if (isCurrent) return std::string(kind == "devices" ? kDeviceRows : kManufacturerRows);
    return statements::Fill(statements::kWholeTable,
                            {kind == "devices" ? tables::kPDevices : tables::kMfrIds});
}

}  // namespace

ExitCode CreateDatabase(Services& services, const CreateDatabaseOptions& options, Console& console) {
    // The driver takes the path as a part of its connect string and would open another file.
    if (options.file.find_first_of(";{}") != std::string::npos) {
        throw CliError(ExitCode::WrongCall, options.file + ": a connect string cannot name this path", {},
                       "Choose a path without \";\", \"{\" and \"}\".");
    }
    try {
        services.Files().RequireReplaceable(options.file);
    } catch (const RunTimeError& error) {
        throw CliError(CodeOf(error), options.file + ": " + error.what(), {}, FileAdvice(error.Number()));
    }
    if (services.Files().Exists(options.file)) {
        throw CliError(ExitCode::WrongCall, options.file + " exists", {},
                       "Name a new file; nothing is overwritten.");
    }
    const std::vector<std::string> script = SchemaStatements(services, options.isOldSchema);
    bool isOpen = false;
    try {
        const std::string driver = SqliteDriver();
        if (!options.dataSource.empty()) RequireNewDataSource(options.dataSource);
        RunScript("ODBC;DRIVER={" + driver + "};Database=" + options.file, services, script, isOpen);
        if (!options.dataSource.empty()) RegisterSqliteDataSource(options.dataSource, options.file);
    } catch (const RunTimeError& error) {
        std::error_code ignored;  // the error that is told is the one that made the file useless
        std::filesystem::remove(std::filesystem::u8path(options.file), ignored);
        const std::string what = options.file + " was not made";
        if (isOpen) ThrowDatabaseError(ExitCode::TargetFailed, what, error);
        ThrowDatabaseError(ExitCode::Unreachable, what, error, ConnectAdvice(error.Diagnostics(), false));
    }
    console.document["file"] = options.file;
    console.document["dataSource"] = options.dataSource;
    console.WriteNews(options.file + ": made with the " + (options.isOldSchema ? "old" : "current") +
                      " schema");
    if (!options.dataSource.empty())
        console.WriteNews("data source \"" + options.dataSource + "\" leads to it");
    return ExitCode::Done;
}

ExitCode ShowDatabase(Services& services, Console& console) {
    std::unique_ptr<clsTavDB> facade;
    std::int16_t schemaVersion = 0;
    services.Connect(facade, schemaVersion);
    try {
        const ConnectionFacts facts = services.Connection()->Facts();
        const auto show = [&](const std::string& label, std::string_view key, const std::string& value) {
            console.document[key] = value;
            console.WriteLine(label + ": " + value);
        };
        show("data source", "dataSource", services.Settings().DSN);
        show("database", "database", facts.database);
        show("product", "product", facts.product + " " + facts.productVersion);
        show("driver", "driver", facts.driver + " " + facts.driverVersion);
        show("driver manager", "driverManager", facts.driverManager);
        console.document["schemaCode"] = schemaVersion;
        console.WriteLine("schema code: " + std::to_string(schemaVersion));
        show("schema", "schema", schemaVersion >= kCurrentSchema ? "current" : "old");
        auto& counts = console.document["rows"] = Json::object();
        for (const CountedTable& counted : CountedTables(schemaVersion)) {
            const auto rows = services.Connection()->OpenRecordset(
                statements::Fill(statements::kWholeTable, {counted.table}), RecordsetType::Snapshot);
            counts[counted.table] = rows->RecordCount();
            console.WriteLine(std::string(counted.label) + ": " + std::to_string(rows->RecordCount()));
        }
    } catch (const RunTimeError& error) {
        ThrowDatabaseError(ExitCode::TargetFailed, services.DataSourceText(), error);
    }
    return ExitCode::Done;
}

ExitCode ListRows(Services& services, const std::string& kind, Console& console) {
    std::unique_ptr<clsTavDB> facade;
    std::int16_t schemaVersion = 0;
    services.Connect(facade, schemaVersion);
    try {
        const auto rows =
            services.Connection()->OpenRecordset(ListStatement(kind, schemaVersion), RecordsetType::Snapshot);
        auto& list = console.document["rows"] = Json::array();
        std::string heading;
        for (const std::string& column : rows->Columns()) heading += (heading.empty() ? "" : "\t") + column;
        console.WriteLine(heading);
        for (; !rows->AtEnd(); rows->MoveNext()) {
            Json row = Json::object();
            std::string line;
            for (const std::string& column : rows->Columns()) {
                const Field field = rows->Column(column);
                row[column] = field.IsNull() ? Json() : Json(field.Text());
                line += (row.size() == 1 ? "" : "\t") + (field.IsNull() ? "NULL" : field.Text());
            }
            list.push_back(std::move(row));
            console.WriteLine(line);
        }
    } catch (const RunTimeError& error) {
        ThrowDatabaseError(ExitCode::TargetFailed, services.DataSourceText(), error);
    }
    return ExitCode::Done;
}

ExitCode ListSources(Console& console) {
    try {
        auto& list = console.document["sources"] = Json::array();
        for (const DataSource& source : ListDataSources()) {
            const std::string scope = source.system ? "system" : "user";
            list.push_back({{"name", source.name}, {"driver", source.driver}, {"scope", scope}});
            console.WriteLine(source.name + "\t" + source.driver + "\t" + scope);
        }
    } catch (const RunTimeError& error) {
        ThrowDatabaseError(ExitCode::Unreachable, "the data sources cannot be listed", error);
    }
    return ExitCode::Done;
}

}  // namespace ventlock
