#include "e2e/window/win32/InstalledProgram.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>

namespace ventlock::test {
namespace fs = std::filesystem;
namespace {

constexpr const wchar_t* kSettingsKey = L"SOFTWARE\\Halvard Systems\\TAVToolkit\\Ventlock";

void ForgetSettings() {
    const LSTATUS status = RegDeleteTreeW(HKEY_LOCAL_MACHINE, kSettingsKey);
    EXPECT_TRUE(status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND) << status;
}

}  // namespace

InstalledProgram::InstalledProgram() {
    ForgetSettings();
    fs::create_directory(folder_ / "program");
    fs::create_directory(folder_ / "work");
    const fs::path built = VENTLOCK_PROGRAMS;
    for (const char* const name :
         {"ventlock.exe", "ventlock-cli.exe", "QorStandard.dct", "Ventlock.dct", "Ventlock.hlp"})
        fs::copy_file(built / name, folder_ / ("program/" + std::string(name)));
    WriteBytes(folder_ / "program/ventlock.ini",
               "[TAVVersionSupport]\r\nTAVVersionSupport=5.0, 6.0, 7.0\r\n");
}

InstalledProgram::~InstalledProgram() {
    ForgetSettings();
}

std::string InstalledProgram::Path(const std::string& name) const {
    return fs::path(folder_ / ("work/" + name)).make_preferred().string();
}

void InstalledProgram::UseDataSource(const std::string& name) const {
    WriteBytes(Path("Pyx.ini"), "[TAV Server 1]\r\nDataSourceName=" + name + "\r\n");
    const ProgramResult result = Run({"settings", "set", "INIPath", Path("Pyx.ini"), "--quiet"});
    EXPECT_EQ(result.exitCode, 0) << result.err;
}

ProgramCall InstalledProgram::WindowCall() const {
    ProgramCall call;
    call.command = {folder_ / "program/ventlock.exe"};
    call.folder = folder_ / "work";
    return call;
}

ProgramResult InstalledProgram::Run(const std::vector<std::string>& arguments) const {
    ProgramCall call;
    call.command = {folder_ / "program/ventlock-cli.exe"};
    call.command.insert(call.command.end(), arguments.begin(), arguments.end());
    call.folder = folder_ / "work";
    return RunProgram(call);
}

std::string InstalledProgram::Log() const {
    const std::string path = folder_ / "program/Ventlock.log";
    return fs::exists(path) ? ReadBytes(path) : std::string();
}

}  // namespace ventlock::test
