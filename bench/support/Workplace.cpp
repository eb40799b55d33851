#include "support/Workplace.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "support/Files.h"

namespace ventlock::bench {

namespace fs = std::filesystem;

Workplace::Workplace() {
    const char* const given = std::getenv("VENTLOCK_BENCH_FOLDER");
    const fs::path parent =
        given != nullptr && *given != '\0' ? fs::path(given) : fs::path(VENTLOCK_BENCH_FOLDER);
    fs::create_directories(parent);
    std::string name = (fs::absolute(parent) / "ventlock-bench-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
        throw fs::filesystem_error(name, std::error_code(errno, std::generic_category()));
    folder_ = name;
    for (const char* const part : {"home", "config", "state", "system", "target"})
        fs::create_directory(Path(part));
    for (const char* const file : {"odbc.ini", "system/odbc.ini", "system/odbcinst.ini"})
        StoreBytes(Path(file), "");
    const char* const path = std::getenv("PATH");
    environment_ = {"HOME=" + Path("home"),
                    "XDG_CONFIG_HOME=" + Path("config"),
                    "XDG_STATE_HOME=" + Path("state"),
                    "ODBCINI=" + Path("odbc.ini"),
                    "ODBCSYSINI=" + Path("system"),
                    "VENTLOCK_REGISTRY=" + Path("registry.ini"),
                    "GIT_CONFIG_NOSYSTEM=1",
                    "LC_ALL=C.UTF-8",
                    "PATH=" + std::string(path == nullptr ? "/usr/bin:/bin" : path)};
}

Workplace::~Workplace() {
    std::error_code ignored;  // the folder is below the build's own; a rest of it harms nobody
    fs::remove_all(folder_, ignored);
}

void Workplace::EmptyTargets() const {
    for (const auto& entry : fs::directory_iterator(Target(""))) fs::remove_all(entry);
}

}  // namespace ventlock::bench
