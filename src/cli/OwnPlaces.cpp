#include "cli/OwnPlaces.h"

#include <array>

namespace ventlock {
namespace {

constexpr auto kVariables = std::to_array<Place>({
    {"VENTLOCK_REGISTRY",
     "The file that settings are kept in, in place of the user's `~/.config/ventlock/registry.ini`"},
    {"XDG_CONFIG_HOME",
     "The folder of configuration, in place of `~/.config`; a path that is not absolute is passed over"},
    {"XDG_STATE_HOME",
     "The folder of state, in place of `~/.local/state`; a path that is not absolute is passed over"},
    {"HOME", "The user's home folder; without it the one that the system has for the user"},
    {"ODBCINI", "The file of the user's data sources, which the ODBC driver manager reads"},
    {"ODBCSYSINI",
     "The folder of the system's data sources and drivers, which the ODBC driver manager reads"},
    {"LC_ALL, LC_MESSAGES, LANG",
     "The language of texts when the setting `Language` names none; the first that is set counts"},
});

constexpr auto kFiles = std::to_array<Place>({
    {"~/.config/ventlock/registry.ini",
     "The settings: paths, the entry last worked on, the place of the window; it may be edited by hand"},
    {"~/.config/ventlock/Pyx.ini",
     "The `Pyx.ini` that is taken when no setting names another one; its section `TAV Server 1` names the "
     "data source"},
    {"~/.config/ventlock/ventlock.ini",
     "The versions that may be offered, the version of new `Ddinstal.ini` files, and the code page of both "
     "files"},
    {"~/.local/state/ventlock/Ventlock.log",
     "The error log; beside the program when its folder can be written and is none of the system's"},
    {"/usr/share/ventlock",
     "Dictionaries, help book, and in `schema` tables and reference rows of the device database"},
    {"/usr/share/doc/ventlock",
     "Guides and changes; in `examples` an entry file and a `Pyx.ini` to try the programs with"},
});

}  // namespace

std::span<const Place> EnvironmentVariables() {
    return kVariables;
}

std::span<const Place> KeptFiles() {
    return kFiles;
}

}  // namespace ventlock
