#include "e2e/window/posix/WindowWorld.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace ventlock::test {
namespace fs = std::filesystem;

WindowWorld::WindowWorld() {
    const fs::path program = VENTLOCK_WINDOW;
    fs::create_directory(ProgramFolder());
    for (const char* const name : {"ventlock", "QorStandard.dct", "Ventlock.dct", "Ventlock.hlp"})
        fs::copy_file(program.parent_path() / name, ProgramFile(name));
    WriteBytes(ProgramFile("ventlock.ini"), "[TAVVersionSupport]\r\nTAVVersionSupport=5.0, 6.0, 7.0\r\n");
}

void WindowWorld::Set(const std::string& name, const std::string& value) const {
    const ProgramResult result = Run({"settings", "set", name, value, "--quiet"});
    EXPECT_EQ(result.exitCode, 0) << result.err;
}

std::string WindowWorld::Log() const {
    const std::string path = ProgramFile("Ventlock.log");
    return fs::exists(path) ? ReadBytes(path) : std::string();
}

}  // namespace ventlock::test
