#pragma once

#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "e2e/RunProgram.h"
#include "support/OdbcFolder.h"
#include "support/OdbcProbe.h"
#include "support/TempFolder.h"

namespace ventlock::test {

/// A complete entry: manufacturer 26 Acme, type 7 Flow, revision 1.
extern const std::string_view kFlowEntry;

/// What an entry of kFlowEntry leaves where nothing was before, byte for byte.
extern const std::string_view kFlowPyxIni;
extern const std::string_view kFlowDdinstal;

/// A machine of its own for the program: home, configuration, settings store, drivers and data sources in one
/// temporary folder. Nothing of the user's or the machine's own is seen by the program or changed.
class World {
 public:
    World();
    ~World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    /// The folder that the program works in; target and entry files stand there.
    [[nodiscard]] std::string Path(std::string_view name) const {
        return folder_ / ("entry/" + std::string(name));
    }
    void Write(std::string_view name, std::string_view bytes) const { WriteBytes(Path(name), bytes); }
    [[nodiscard]] std::string Read(std::string_view name) const { return ReadBytes(Path(name)); }
    [[nodiscard]] bool Has(std::string_view name) const;

    /// Names of what the working folder holds, sorted.
    [[nodiscard]] std::string Listing() const;

    /// How the program is started with these arguments.
    [[nodiscard]] ProgramCall Call(const std::vector<std::string>& arguments) const;

    /// How another program of the family is started; `program` is its path.
    [[nodiscard]] ProgramCall Call(const std::string& program,
                                   const std::vector<std::string>& arguments) const;

    /// Runs the program. This world's folder is "<world>" in both texts.
    ProgramResult Run(const std::vector<std::string>& arguments) const { return Finished(Call(arguments)); }

    /// Runs it as a user without rights of its own, from a program folder that this user cannot write.
    ProgramResult RunAsOrdinaryUser(const std::vector<std::string>& arguments);

    /// Runs a call; the world's folder is "<world>" in both texts.
    [[nodiscard]] ProgramResult Finished(const ProgramCall& call) const;

    /// Makes "device.db" with the program and a data source for it.
    void MakeDatabase(const std::string& schema = "current", const std::string& dataSource = "PYX") const;

    /// Adds a data source of the user; `driver` is the path of its library.
    void AddDataSource(const std::string& name, const std::string& driver,
                       const OdbcFolder::Settings& settings) const;

    /// A connection to a database of the working folder that is none of the program's.
    [[nodiscard]] OdbcProbe Database(std::string_view file = "device.db") const;
    [[nodiscard]] std::string Rows(std::string_view sql) const { return Database().Rows(sql); }

    /// Everything that "device.db" holds, table by table.
    [[nodiscard]] std::string AllRows() const;

    /// Every file of the world with its permissions and bytes, and every folder; the error log left out.
    [[nodiscard]] std::map<std::string, std::string> Snapshot() const;

    /// From now on the driver of the first data source writes down what it is asked.
    void TraceStatements() const;

    /// The statements that have reached the driver since then, as they came.
    [[nodiscard]] std::vector<std::string> TracedStatements() const;

    [[nodiscard]] std::string UserDataSources() const { return folder_ / "odbc/odbc.ini"; }
    [[nodiscard]] std::string DriverFile() const { return folder_ / "odbc/system/odbcinst.ini"; }
    [[nodiscard]] std::string StateFolder() const { return folder_ / "state/ventlock"; }
    [[nodiscard]] std::string ConfigurationFolder() const { return folder_ / "config/ventlock"; }
    [[nodiscard]] std::string ProgramFolder() const { return folder_ / "program"; }
    [[nodiscard]] std::string SettingsStore() const { return folder_ / "registry.ini"; }

 private:
    TempFolder folder_;
};

/// The one JSON document that `out` must be; anything before or behind it fails the test.
nlohmann::ordered_json DocumentOf(const std::string& out);

}  // namespace ventlock::test
