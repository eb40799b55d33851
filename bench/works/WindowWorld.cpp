#include "works/WindowWorld.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <utility>

#include "support/Files.h"
#include "support/OdbcFolder.h"

namespace ventlock::bench {

namespace fs = std::filesystem;
namespace {

/// What a program needs to appear on the display.
constexpr const char* kDisplayVariables[] = {
    "DISPLAY",   "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR", "NO_AT_BRIDGE",     "GDK_BACKEND",
    "GDK_SCALE", "GTK_USE_PORTAL",           "GTK_IM_MODULE",   "GSETTINGS_BACKEND"};

constexpr const char* kPyxIni = "window/Pyx.ini";
constexpr const char* kShortName = "Dev";
constexpr const char* kCompleteName = "Dev.dll";

std::string NameOf(const std::string& variable) {
    return variable.substr(0, variable.find('=') + 1);
}

/// Adds the variables that are not there yet. None may be there twice: which one counts then is for each
/// program to say.
void Complete(std::vector<std::string>& variables, const std::vector<std::string>& more) {
    for (const std::string& variable : more) {
        const auto isSame = [&](const std::string& other) { return other.starts_with(NameOf(variable)); };
        if (std::none_of(variables.begin(), variables.end(), isSame)) variables.push_back(variable);
    }
}

}  // namespace

std::vector<std::pair<std::string, std::string>> StoredEntry(const std::string& place) {
    return {{"ErrLogPath", place + "kept.log"},
            {"INIPath", place + "Pyx.ini"},
            {"DDInstallPath", place + "Ddinstal.ini"},
            {"ManID", "26"},
            {"ManName", "Acme"},
            {"ManDesc", "Acme Inc"},
            {"ProtID", "2"},
            {"DevID", "0A"},
            {"DevName", "Flow"},
            {"DevDesc", "Flow meter"},
            {"DLLName", kShortName},
            {"TemplateName", "t.mrg"},
            {"DevHelp", "h.hlp"},
            {"BlkHelp", "b.hlp"},
            {"DevRevName", "R1"},
            {"DevRevDesc", "First"},
            {"DevCatID", "1"},
            {"DevMinCatID", "1"}};
}

bool HoldsEntry(std::string_view settings) {
    return settings.find(kCompleteName) != std::string_view::npos;
}

void WindowWorld::Make() {
    display_.emplace();
    fs::create_directories(place_.Path("window/system"));
    CopyPrograms();
    MakeEnvironment();
    MakeDatabase();
    StoreEntry();
    settings_ = ReadBytes(Store());
}

void WindowWorld::CopyPrograms() const {
    const fs::path built = VENTLOCK_WINDOW;
    const std::string program = place_.Path(kProgram);
    fs::create_directories(fs::path(program).parent_path());
    fs::copy_file(built, program);
    fs::copy_file(VENTLOCK_WINDOW_DRIVER, place_.Path(kDriver));
    for (const char* const name : {"QorStandard.dct", "Ventlock.dct", "Ventlock.hlp"})
        fs::copy_file(built.parent_path() / name, fs::path(program).parent_path() / name);
}

void WindowWorld::MakeEnvironment() {
    environment_ = {"HOME=" + Home(""),
                    "XDG_CONFIG_HOME=" + Home("config"),
                    "XDG_CACHE_HOME=" + Home("cache"),
                    "XDG_DATA_HOME=" + Home("data"),
                    "XDG_STATE_HOME=" + Home("state"),
                    "ODBCINI=" + place_.Path("window/odbc.ini"),
                    "ODBCSYSINI=" + place_.Path("window/system"),
                    "VENTLOCK_REGISTRY=" + Store()};
    for (const char* const name : kDisplayVariables) {
        const char* const value = std::getenv(name);
        if (value != nullptr) environment_.push_back(std::string(name) + "=" + value);
    }
    Complete(environment_, place_.Environment());
}

void WindowWorld::MakeDatabase() const {
    StoreBytes(place_.Path("window/odbc.ini"), "");
    StoreBytes(place_.Path("window/system/odbc.ini"), "");
    StoreBytes(place_.Path("window/system/odbcinst.ini"),
               "[SQLite3]\nDriver=" + test::OdbcFolder::DriverLibrary("libsqlite3odbc.so") + "\n");
    programs_.Run({{VENTLOCK_CLI, "database", "create", "--file", Database(), "--schema", "current", "--dsn",
                    kOwnDataSource, "--quiet"}},
                  environment_);
}

void WindowWorld::StoreEntry() const {
    std::vector<std::vector<std::string>> commands;
    for (const auto& [name, value] : StoredEntry(place_.Path("window/")))
        commands.push_back({VENTLOCK_CLI, "settings", "set", name, value, "--quiet"});
    programs_.Run(commands, environment_);
}

std::vector<std::string> WindowWorld::Environment(const std::string& dataSources) const {
    std::vector<std::string> variables{"ODBCINI=" + dataSources};
    Complete(variables, environment_);
    return variables;
}

void WindowWorld::Refresh(const std::string& dataSource) {
    if (settings_.empty()) Make();
    fs::create_directories(Home(""));
    StoreBytes(Store(), settings_);
    StoreBytes(place_.Path(kPyxIni), "[TAV Server 1]\r\nDataSourceName=" + dataSource + "\r\n");
}

bool WindowWorld::HasKeptEntry() const {
    return HoldsEntry(ReadBytes(Store()));
}

}  // namespace ventlock::bench
