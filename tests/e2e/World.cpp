#include "e2e/World.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "e2e/OrdinaryUser.h"

namespace ventlock::test {

namespace fs = std::filesystem;

const std::string_view kFlowEntry =
    "[Flow]\n"
    "ManID=26\n"
    "ManName=Acme\n"
    "ManDesc=Acme Inc\n"
    "Protocol=HART\n"
    "DevID=7\n"
    "DevName=Flow\n"
    "DevDesc=Flow meter\n"
    "DevRev=1\n"
    "DDRev=1\n"
    "ProtRev=05\n"
    "DevRevName=R1\n"
    "DevRevDesc=First\n"
    "DLLName=Dev\n"
    "TemplateName=t\n"
    "DevHelp=h\n"
    "TAVVersions=5.0, 6.0\n";

const std::string_view kFlowPyxIni =
    "[Devices]\r\n"
    "000026.0007.01=000026/0007\r\n"
    "\r\n"
    "[000026.0007.01]\r\n"
    "DeviceHelp=000026\\0007\\h.hlp\r\n"
    "BlockHelp_001=000026\\0007\\\r\n"
    "DeviceDLL=000026\\0007\\Dev.dll\r\n"
    "Description=Flow\r\n"
    "HART Protocol Rev=5\r\n";

const std::string_view kFlowDdinstal =
    "[Version]\r\n"
    "DD Version=2\r\n"
    "\r\n"
    "[General]\r\n"
    "NumOfMfg=1\r\n"
    "\r\n"
    "[Mfg1]\r\n"
    "ID=000026\r\n"
    "NumOfDev=1\r\n"
    "Name=Acme\r\n"
    "\r\n"
    "[000026.1]\r\n"
    "DevType=0007\r\n"
    "DevTypeDesc=Flow\r\n"
    "DevTypeRevDesc=Rev 1\r\n"
    "DevTypeRev=01\r\n"
    "DDRevDesc=DD Rev 1\r\n"
    "PYX=1,0101.pyx\r\n"
    "SYM=1,0101.sym\r\n"
    "MAP=1,0101.map\r\n"
    "DeviceHelp=h.hlp\r\n"
    "BlockHelp=\r\n"
    "OtherHelp=\r\n"
    "DeviceDLL=1,Dev.dll\r\n"
    "OtherDLL=\r\n"
    "Template=1,t.mrg\r\n"
    "HART Protocol Rev=5\r\n"
    "TAVVersionSupport=5.0, 6.0\r\n";

namespace {

/// Passed on to the program when they are set: what the sanitizers, the dynamic linker and a mutation run
/// need.
constexpr const char* kInheritedVariables[] = {
    "PATH",         "TMPDIR",        "LD_LIBRARY_PATH", "ASAN_OPTIONS",
    "LSAN_OPTIONS", "UBSAN_OPTIONS", "VENTLOCK_MUTANT", "VENTLOCK_MUTANTS_SEEN"};

std::string Described(const fs::directory_entry& entry) {
    const auto mode = static_cast<unsigned>(entry.symlink_status().permissions());
    std::ostringstream text;
    text << std::oct << mode << ' ';
    if (entry.is_directory()) {
        text << "folder";
    } else {
        text << ReadBytes(entry.path().string());
    }
    return text.str();
}

std::string WithoutFolder(std::string text, const std::string& folder) {
    constexpr std::string_view kStandIn = "<world>";
    for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder, at)) {
        text.replace(at, folder.size(), kStandIn);
    }
    return text;
}

}  // namespace

World::World() {
    for (const char* const name :
         {"entry", "home", "config", "config/ventlock", "state", "odbc", "odbc/system"}) {
        fs::create_directory(folder_ / name);
    }
    WriteBytes(UserDataSources(), "");
    WriteBytes(folder_ / "odbc/system/odbc.ini", "");
    WriteBytes(DriverFile(), "[SQLite3]\nDescription=SQLite 3\nDriver=" +
                                 OdbcFolder::DriverLibrary("libsqlite3odbc.so") + "\n");
}

World::~World() {
    const fs::path own = ProgramFolder();
    if (fs::exists(own)) fs::permissions(own, fs::perms::owner_all, fs::perm_options::add);
}

bool World::Has(std::string_view name) const {
    return fs::exists(fs::symlink_status(Path(name)));
}

std::string World::Listing() const {
    std::string text;
    std::map<std::string, int> names;
    for (const auto& entry : fs::directory_iterator(Path(""))) ++names[entry.path().filename().string()];
    for (const auto& [name, count] : names) text += (text.empty() ? "" : " ") + name;
    return text;
}

ProgramCall World::Call(const std::vector<std::string>& arguments) const {
    return Call(VENTLOCK_CLI, arguments);
}

ProgramCall World::Call(const std::string& program, const std::vector<std::string>& arguments) const {
    ProgramCall call;
    call.folder = Path("");
    call.command = {program};
    call.command.insert(call.command.end(), arguments.begin(), arguments.end());
    call.environment = {"HOME=" + (folder_ / "home"),
                        "XDG_CONFIG_HOME=" + (folder_ / "config"),
                        "XDG_STATE_HOME=" + (folder_ / "state"),
                        "ODBCINI=" + UserDataSources(),
                        "ODBCSYSINI=" + (folder_ / "odbc/system"),
                        "VENTLOCK_REGISTRY=" + SettingsStore(),
                        "LC_ALL=C.UTF-8"};
    for (const char* const name : kInheritedVariables) {
        const char* const value = std::getenv(name);
        if (value != nullptr) call.environment.push_back(std::string(name) + "=" + value);
    }
    return call;
}

ProgramResult World::Finished(const ProgramCall& call) const {
    ProgramResult result = RunProgram(call);
    result.out = WithoutFolder(result.out, folder_.Path());
    result.err = WithoutFolder(result.err, folder_.Path());
    return result;
}

ProgramResult World::RunAsOrdinaryUser(const std::vector<std::string>& arguments) {
    const fs::path program = VENTLOCK_CLI;
    const fs::path own = ProgramFolder();
    if (!fs::exists(own)) {
        fs::create_directory(own);
        for (const char* const name : {"QorStandard.dct", "Ventlock.dct", "schema"}) {
            fs::copy(program.parent_path() / name, own / name, fs::copy_options::recursive);
        }
        fs::copy(program, own / program.filename());
    }
    ProgramCall call = Call(arguments);
    call.command.front() = (own / program.filename()).string();
    // The driver manager opens the user's data sources for writing even when it only reads them.
    BecomeOrdinaryUser(folder_.Path(), own.string(), {folder_ / "state", UserDataSources()}, call);
    return Finished(call);
}

void World::MakeDatabase(const std::string& schema, const std::string& dataSource) const {
    const ProgramResult made = Run(
        {"database", "create", "--file", "device.db", "--schema", schema, "--dsn", dataSource, "--quiet"});
    EXPECT_EQ(made.exitCode, 0) << made.err;
}

void World::AddDataSource(const std::string& name, const std::string& driver,
                          const OdbcFolder::Settings& settings) const {
    std::string section = "[" + name + "]\nDriver=" + driver + "\n";
    for (const auto& [key, value] : settings) section += key + "=" + value + "\n";
    WriteBytes(UserDataSources(), ReadBytes(UserDataSources()) + section + "\n");
}

OdbcProbe World::Database(std::string_view file) const {
    return {"Driver=" + OdbcFolder::DriverLibrary("libsqlite3odbc.so") + ";Database=" + Path(file),
            ProbeText::Bytes};
}

std::string World::AllRows() const {
    OdbcProbe database = Database();
    std::istringstream tables(
        database.Rows("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name"));
    std::string text;
    for (std::string table; std::getline(tables, table);) {
        text += table + ":\n" + database.Rows("SELECT * FROM " + table);
    }
    return text;
}

std::map<std::string, std::string> World::Snapshot() const {
    std::map<std::string, std::string> found;
    for (const auto& entry : fs::recursive_directory_iterator(folder_.Path())) {
        const std::string name = entry.path().lexically_relative(folder_.Path()).string();
        const bool isProgramFile = name.starts_with("program");
        const bool isLog = name.starts_with("state/ventlock");
        if (!isProgramFile && !isLog) found[name] = Described(entry);
    }
    return found;
}

void World::TraceStatements() const {
    constexpr std::string_view kSetting = "FKSupport=1\n";
    std::string sources = ReadBytes(UserDataSources());
    const std::size_t at = sources.find(kSetting);
    ASSERT_NE(at, std::string::npos) << "no data source to trace:\n" << sources;
    sources.insert(at + kSetting.size(), "TraceFile=" + (folder_ / "trace.log") + "\n");
    WriteBytes(folder_ / "trace.log", "");
    WriteBytes(UserDataSources(), sources);
}

std::vector<std::string> World::TracedStatements() const {
    constexpr std::string_view kPrepared = "-- sqlite3_prepare_v2: ";
    std::vector<std::string> statements;
    std::istringstream lines(ReadBytes(folder_ / "trace.log"));
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(kPrepared)) statements.push_back(line.substr(kPrepared.size()));
    }
    return statements;
}

nlohmann::ordered_json DocumentOf(const std::string& out) {
    try {
        return nlohmann::ordered_json::parse(out);
    } catch (const nlohmann::json::exception& error) {
        ADD_FAILURE() << error.what() << " in:\n" << out;
    }
    return nlohmann::ordered_json::object();
}

}  // namespace ventlock::test
