#include "works/WineWorld.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <stdexcept>

#include "support/Files.h"

namespace ventlock::bench {

namespace fs = std::filesystem;
namespace {

/// Where the Windows programs were built.
std::string BuildFolder() {
    const char* const folder = std::getenv("VENTLOCK_BENCH_WINDOWS");
    if (folder == nullptr)
        throw std::runtime_error("VENTLOCK_BENCH_WINDOWS does not name the Windows programs");
    return folder;
}

/// A path of this system as a Windows program under Wine has it.
std::string WindowsPath(std::string path) {
    std::ranges::replace(path, '/', '\\');
    return "Z:" + path;
}

}  // namespace

WineWorld::~WineWorld() {
    if (environment_.empty()) return;
    try {
        Run({"wineserver", "--kill"});
        Run({"wineserver", "--wait"});
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
    }
}

void WineWorld::Run(const std::vector<std::string>& command) const {
    window_.Programs().Run({command}, environment_);
}

void WineWorld::Make() {
    const fs::path built = BuildFolder();
    const std::string program = Folder() + "/program/";
    fs::create_directories(program);
    for (const char* const name :
         {"ventlock.exe", "ventlock-cli.exe", "QorStandard.dct", "Ventlock.dct", "Ventlock.hlp"})
        fs::copy_file(built / "bin" / name, program + name);

    environment_ = window_.Environment();
    environment_.insert(environment_.end(), {"WINEPREFIX=" + Folder() + "/prefix", "WINEDEBUG=-all",
                                             "WINEDLLOVERRIDES=mscoree,mshtml="});
    Run({"wineboot", "--init"});
    Run({"wineserver", "--wait"});
    Run({"wineserver", "--persistent"});
}

void WineWorld::Refresh() {
    window_.Refresh();
    if (environment_.empty()) Make();
    for (const auto& [name, value] : StoredEntry(WindowsPath(place_.Path("window/"))))
        Run({"wine", CommandLine(), "settings", "set", name, value, "--quiet"});
}

bool WineWorld::HasKeptEntry() const {
    const std::string kept = Folder() + "/kept.txt";
    Run({"wine", "cmd", "/c", WindowsPath(CommandLine()), "settings", "list", ">", WindowsPath(kept)});
    return HoldsEntry(ReadBytes(kept));
}

std::vector<std::string> WineWorld::Program() const {
    return {"wine", Folder() + "/program/ventlock.exe"};
}

std::vector<std::string> WineWorld::Limit() {
    return {"wine", BuildFolder() + "/bench/window_limit.exe"};
}

}  // namespace ventlock::bench
