#include <gtest/gtest.h>

#include <filesystem>

#include "e2e/Refused.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

const std::vector<std::string> kRegisterIni = {"register", "entry.ini", "--ini", "--ini-path", "Pyx.ini"};

/// The lines that an entry of kFlowEntry adds to a section of its own.
constexpr std::string_view kFlowSection =
    "[000026.0007.01]\n"
    "DeviceHelp=000026\\0007\\h.hlp\n"
    "BlockHelp_001=000026\\0007\\\n"
    "DeviceDLL=000026\\0007\\Dev.dll\n"
    "Description=Flow\n"
    "HART Protocol Rev=5\n";

std::string Utf16(std::string_view ascii) {
    std::string bytes;
    for (const char c : ascii) bytes += {c, '\0'};
    return bytes;
}

TEST(PyxIni, InUtf16StaysUtf16) {
    const World world;
    world.Write("entry.ini",
                "[E]\nManID=26\nDevID=7\nDevName=Flow \u03A9\nDevRev=1\nDLLName=Dev\nDevHelp=h\n");
    const std::string mark = "\xFF\xFE";
    const std::string omega = "\xA9\x03";
    world.Write("Pyx.ini", mark + Utf16("[Devices]\r\nOld=") + omega + Utf16("\r\n"));
    const ProgramResult result = world.Run(kRegisterIni);
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(world.Read("Pyx.ini"),
              mark + Utf16("[Devices]\r\nOld=") + omega +
                  Utf16("\r\n000026.0007.01=000026/0007\r\n\r\n[000026.0007.01]\r\n"
                        "DeviceHelp=000026\\0007\\h.hlp\r\nBlockHelp_001=000026\\0007\\\r\n"
                        "DeviceDLL=000026\\0007\\Dev.dll\r\nDescription=Flow ") +
                  omega + Utf16("\r\nHART Protocol Rev=5\r\n"));
}

TEST(PyxIni, OfTooManyLinesGetsItsKeysAndIsLeftUntidied) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    // With the eight lines of the entry these are 32,768.
    std::string old = "[Long]\r\n";
    for (int line = 2; line <= 32760; ++line) old += "k" + std::to_string(line) + "=v\r\n";
    world.Write("Pyx.ini", old);
    const ProgramResult result = world.Run(kRegisterIni);

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, "[Flow] entry.ini:1: <world>/entry/Pyx.ini: written\n");
    EXPECT_EQ(result.err,
              "ventlock-cli: [Flow] entry.ini:1: <world>/entry/Pyx.ini: INIwb-03.1: Overflow (6)\n");
    const std::string written =
        old + CrLf("[Devices]\n000026.0007.01=000026/0007\n" + std::string(kFlowSection));
    EXPECT_TRUE(world.Read("Pyx.ini") == written);
    EXPECT_TRUE(world.Read("Pyx.ini.bak") == written);
}

TEST(PyxIni, OfOneLineLessIsTidied) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    std::string old = "[Long]\r\n";
    for (int line = 2; line <= 32759; ++line) old += "k" + std::to_string(line) + "=v\r\n";
    world.Write("Pyx.ini", old);
    const ProgramResult result = world.Run(kRegisterIni);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_TRUE(world.Read("Pyx.ini") ==
                old + CrLf("\n[Devices]\n000026.0007.01=000026/0007\n\n" + std::string(kFlowSection)));
}

TEST(PyxIni, WithLoneLineFeedsKeepsItsLinesAndGetsOneKindOfLineEnd) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    world.Write("Pyx.ini", "[TAV Server 1]\nDataSourceName=PYX\n[Devices]\n000011.0001.01=000011/0001");
    EXPECT_EQ(world.Run(kRegisterIni).exitCode, 0);
    EXPECT_EQ(world.Read("Pyx.ini"),
              CrLf("[TAV Server 1]\nDataSourceName=PYX\n\n[Devices]\n000011.0001.01=000011/0001\n"
                   "000026.0007.01=000026/0007\n\n" +
                   std::string(kFlowSection)));
}

TEST(PyxIni, WithDuplicateSectionsOddLinesAndHighBytesKeepsWhatWasNotAskedToChange) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    world.Write("Pyx.ini", CrLf("an odd line\n"
                                "; K\xFChler \x80\x81\n"
                                "[devices]\n"
                                "000011.0001.01 = 000011/0001\n"
                                "000011.0001.01=second\n"
                                "no key\n"
                                "\n"
                                "[Devices]\n"
                                "000026.0007.01=elsewhere\n"
                                "\n"
                                "[000026.0007.01]\n"
                                "devicedll=old.dll\n"
                                "Extra=\xE4\xF6\n"
                                "; kept\n"));
    EXPECT_EQ(world.Run(kRegisterIni).exitCode, 0);
    EXPECT_EQ(world.Read("Pyx.ini"), CrLf("an odd line\n"
                                          "; K\xFChler \x80\x81\n"
                                          "\n"
                                          "[devices]\n"
                                          "000011.0001.01 = 000011/0001\n"
                                          "000011.0001.01=second\n"
                                          "000026.0007.01=000026/0007\n"
                                          "no key\n"
                                          "\n"
                                          "[Devices]\n"
                                          "000026.0007.01=elsewhere\n"
                                          "\n"
                                          "[000026.0007.01]\n"
                                          "devicedll=000026\\0007\\Dev.dll\n"
                                          "Extra=\xE4\xF6\n"
                                          "DeviceHelp=000026\\0007\\h.hlp\n"
                                          "BlockHelp_001=000026\\0007\\\n"
                                          "Description=Flow\n"
                                          "HART Protocol Rev=5\n"
                                          "; kept\n"));
}

TEST(PyxIni, GetsNamesInItsOwnCodePage) {
    const World world;
    world.Write("entry.ini", "[E]\nManID=26\nDevID=7\nDevName=K\u00FChler\nDLLName=Dev\n");
    EXPECT_EQ(world.Run(kRegisterIni).exitCode, 0);
    EXPECT_NE(world.Read("Pyx.ini").find("\r\nDescription=K\xFChler\r\n"), std::string::npos);
}

TEST(PyxIni, BehindASymbolicLinkIsReplacedAndTheLinkStays) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    world.Write("real.ini", "");
    fs::create_symlink("real.ini", world.Path("Pyx.ini"));
    EXPECT_EQ(world.Run(kRegisterIni).exitCode, 0);
    EXPECT_TRUE(fs::is_symlink(world.Path("Pyx.ini")));
    EXPECT_EQ(world.Read("real.ini"), kFlowPyxIni);
}

TEST(PyxIni, WhoseBackupCannotBeMadeGetsItsKeysAndSaysSo) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    fs::create_directory(world.Path("Pyx.ini.bak"));
    const ProgramResult result = world.Run(kRegisterIni);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(
        result.err,
        "ventlock-cli: [Flow] entry.ini:1: <world>/entry/Pyx.ini: INIwb-01: Path/File access error (75)\n");
    EXPECT_EQ(world.Read("Pyx.ini"),
              CrLf("[Devices]\n000026.0007.01=000026/0007\n" + std::string(kFlowSection)));
}

TEST(DdinstalIni, WhoseBackupCannotBeMadeIsLeftAloneWithCode1) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    world.Write("Ddinstal.ini", "[General]\r\nNumOfMfg=0\r\n");
    fs::create_directory(world.Path("Ddinstal.ini.bak"));
    ExpectRefused(world, {"register", "entry.ini", "--ddinstall", "--ddinstall-path", "Ddinstal.ini"}, 1,
                  "ventlock-cli: [Flow] entry.ini:1: <world>/entry/Ddinstal.ini: the entry was not written\n"
                  "  DDwddi-01: Path/File access error (75)\n"
                  "  Check that the path names a file, not a folder, and that you may read and write it.\n");
}

TEST(DdinstalIni, ThatExistsIsKeptAsABackupFromBeforeTheChange) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    const std::string old = CrLf(
        "[Version]\nDD Version=3\n[General]\nNumOfMfg=1\n[Mfg1]\nID=000011\nNumOfDev=0\n"
        "Name=Best\n");
    world.Write("Ddinstal.ini", old);
    EXPECT_EQ(
        world.Run({"register", "entry.ini", "--ddinstall", "--ddinstall-path", "Ddinstal.ini"}).exitCode, 0);
    EXPECT_EQ(world.Read("Ddinstal.ini.bak"), old);
    const std::string all(kFlowDdinstal);
    EXPECT_EQ(
        world.Read("Ddinstal.ini"),
        CrLf(
            "[Version]\nDD Version=3\n\n[General]\nNumOfMfg=2\n\n[Mfg1]\nID=000011\nNumOfDev=0\nName=Best\n\n"
            "[Mfg2]\nID=000026\nNumOfDev=1\nName=Acme\n\n") +
            all.substr(all.find("[000026.1]")));
}

}  // namespace
}  // namespace ventlock::test
