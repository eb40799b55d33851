#include "works/WindowWorld.h"

#include <cstdlib>
#include <filesystem>
#include <utility>

#include "support/Files.h"

namespace ventlock::bench {

namespace fs = std::filesystem;
namespace {

/// What a program needs to appear on the display.
constexpr const char* kDisplayVariables[] = {
    "DISPLAY",   "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR", "NO_AT_BRIDGE",     "GDK_BACKEND",
    "GDK_SCALE", "GTK_USE_PORTAL",           "GTK_IM_MODULE",   "GSETTINGS_BACKEND"};

constexpr const char* kShortName = "Dev";
constexpr const char* kCompleteName = "\"Dev.dll\"";

}  // namespace

WindowWorld::WindowWorld(const Workplace& place, const Starter& programs)
    : place_(place),
      programs_(programs),
      database_(place.Path("window/device.db")),
      store_(place.Path("window/registry.ini")) {
    fs::create_directories(place.Path("window/program"));
    fs::create_directories(place.Path("window/system"));
    const fs::path built = VENTLOCK_WINDOW;
    fs::copy_file(built, place.Path(kProgram), fs::copy_options::overwrite_existing);
    for (const char* const name : {"QorStandard.dct", "Ventlock.dct", "Ventlock.hlp"})
        fs::copy_file(built.parent_path() / name, place.Path("window/program/" + std::string(name)),
                      fs::copy_options::overwrite_existing);
    environment_ = {"HOME=" + Home(""),
                    "XDG_CONFIG_HOME=" + Home("config"),
                    "XDG_CACHE_HOME=" + Home("cache"),
                    "XDG_DATA_HOME=" + Home("data"),
                    "XDG_STATE_HOME=" + Home("state"),
                    "ODBCINI=" + place.Path("window/odbc.ini"),
                    "ODBCSYSINI=" + place.Path("window/system"),
                    "VENTLOCK_REGISTRY=" + store_};
    for (const char* const name : kDisplayVariables) {
        const char* const value = std::getenv(name);
        if (value != nullptr) environment_.push_back(std::string(name) + "=" + value);
    }
    for (const std::string& variable : place.Environment()) environment_.push_back(variable);
    MakeDatabase();
    settings_ = StoreEntry();
}

void WindowWorld::MakeDatabase() const {
    StoreBytes(place_.Path("window/odbc.ini"), "");
    StoreBytes(place_.Path("window/system/odbc.ini"), "");
    StoreBytes(place_.Path("window/system/odbcinst.ini"),
               "[SQLite3]\nDescription=SQLite 3\nDriver=" VENTLOCK_SQLITE_DRIVER "\n");
    programs_.Run({{VENTLOCK_CLI, "database", "create", "--file", database_, "--schema", "current", "--dsn",
                    "PYX", "--quiet"}},
                  environment_);
}

// Gives what the store holds then.
std::string WindowWorld::StoreEntry() const {
    std::vector<std::vector<std::string>> commands;
    for (const auto& [name, value] :
         {std::pair<std::string, std::string>{"ErrLogPath", place_.Path("window/kept.log")},
          {"INIPath", place_.Path("window/Pyx.ini")},
          {"DDInstallPath", place_.Path("window/Ddinstal.ini")},
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
          {"DevMinCatID", "1"}})
        commands.push_back({VENTLOCK_CLI, "settings", "set", name, value, "--quiet"});
    programs_.Run(commands, environment_);
    return ReadBytes(store_);
}

void WindowWorld::Refresh() const {
    fs::create_directories(Home(""));
    StoreBytes(store_, settings_);
}

bool WindowWorld::HasKeptEntry() const {
    return ReadBytes(store_).find(kCompleteName) != std::string::npos;
}

}  // namespace ventlock::bench
