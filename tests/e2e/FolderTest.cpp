// A folder in place of an entry file stands for the entry files in it.

#include <gtest/gtest.h>

#include <filesystem>

#include "e2e/Refused.h"

namespace ventlock::test {
namespace {

/// An entry that needs no database: type 7 of this manufacturer.
std::string Entry(const std::string& manufacturer) {
    return "[" + manufacturer + "]\nManID=" + manufacturer + "\nDevID=7\nDevName=Flow\nDLLName=d\n";
}

const std::vector<std::string> kToPyxIni = {"--ini", "--ini-path", "Pyx.ini"};

std::vector<std::string> Register(const std::vector<std::string>& paths) {
    return With(With({"register"}, paths), kToPyxIni);
}

TEST(Folder, StandsForItsEntryFilesByName) {
    const World world;
    std::filesystem::create_directories(world.Path("devices/deeper"));
    world.Write("devices/b.ini", Entry("2"));
    world.Write("devices/a.INI", Entry("1"));
    world.Write("devices/B.ini", Entry("3"));
    world.Write("devices/deeper/c.ini", Entry("4"));
    world.Write("devices/.d.ini", Entry("5"));
    world.Write("devices/e.ini.bak", Entry("6"));
    world.Write("devices/ini", Entry("7"));
    const ProgramResult result = world.Run(Register({"devices"}));

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(result.out,
              "[3] devices/B.ini:1: <world>/entry/Pyx.ini: written\n"
              "[1] devices/a.INI:1: <world>/entry/Pyx.ini: written\n"
              "[2] devices/b.ini:1: <world>/entry/Pyx.ini: written\n"
              "3 of 3 entries written\n");
    EXPECT_EQ(result.err, "");
}

TEST(Folder, StandsAmongFilesAndOtherFoldersInTheOrderOfTheCall) {
    const World world;
    std::filesystem::create_directory(world.Path("one"));
    std::filesystem::create_directory(world.Path("two"));
    world.Write("one/a.ini", Entry("1"));
    world.Write("two/a.ini", Entry("2"));
    world.Write("a.txt", Entry("3"));
    const ProgramResult result = world.Run(Register({"two/", "a.txt", world.Path("one")}));

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(result.out,
              "[2] two/a.ini:1: <world>/entry/Pyx.ini: written\n"
              "[3] a.txt:1: <world>/entry/Pyx.ini: written\n"
              "[1] <world>/entry/one/a.ini:1: <world>/entry/Pyx.ini: written\n"
              "3 of 3 entries written\n");
}

TEST(Folder, ThatHoldsTheTargetsToo) {
    const World world;
    world.MakeDatabase();
    world.Write("flow.ini", kFlowEntry);
    world.Write("PYX.INI", "");
    const std::vector<std::string> arguments = {
        "register", ".", "--all", "--ini-path", "PYX.INI", "--ddinstall-path", "Ddinstal.ini"};
    for (int run = 0; run < 2; ++run) {
        const ProgramResult result = world.Run(arguments);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(world.Read("PYX.INI"), kFlowPyxIni);
        EXPECT_EQ(world.Read("Ddinstal.ini"), kFlowDdinstal);
    }
}

TEST(Folder, LeavesOutAndTellsOtherProgramsFiles) {
    const World world;
    world.Write("flow.ini", kFlowEntry);
    world.Write("desktop.ini", "[.ShellClassInfo]\nIconFile=a.ico\n");
    world.Write("editor.ini", "[Window]\nWidth=80\n");
    world.Write("mine.ini", "[Mfg1]\nID=000026\nName=Caf\xE9\n");
    const std::vector<std::string> arguments = {"register", ".", "--ini", "--ini-path", "target.ini"};
    const ProgramResult result = world.Run(arguments);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err,
              "./editor.ini: left out: it holds no key of an entry\n"
              "./mine.ini: left out: it holds no key of an entry\n");
    EXPECT_EQ(world.Read("target.ini"), kFlowPyxIni);
    EXPECT_EQ(world.Run(With(arguments, {"--quiet"})).err, "");

    const ProgramResult document = world.Run(With(arguments, {"--json"}));
    EXPECT_EQ(document.err, "");
    EXPECT_EQ(DocumentOf(document.out)["leftOut"],
              (nlohmann::ordered_json{"./editor.ini", "./mine.ini", "./target.ini"}));
}

TEST(Folder, WhoseFilesAreLeftOutIsNoGoodFolderForAStrictCheck) {
    const World world;
    world.Write("flow.ini", Entry("26"));
    world.Write("level.ini", "[Level]\nManufacturer=26\nDevice=8\n");
    world.Write("d.dll", "");
    world.Write("Desktop.ini", "[.ShellClassInfo]\nIconFile=a.ico\n");
    const std::vector<std::string> check = {"check", ".", "--ini", "--ini-path", "Pyx.ini"};
    const ProgramResult plain = world.Run(check);
    EXPECT_EQ(plain.exitCode, 0);
    EXPECT_EQ(plain.out, "0 errors, 1 warning\n");
    EXPECT_EQ(plain.err, "./level.ini: left out: it holds no key of an entry\n");
    const ProgramResult strict = world.Run(With(check, {"--strict"}));
    EXPECT_EQ(strict.exitCode, 2);
    EXPECT_EQ(strict.out, plain.out);
    EXPECT_EQ(strict.err, plain.err);
}

TEST(Folder, TakesAFileWithErrorsForAnEntryFile) {
    const World world;
    world.Write("a.ini", "[A]\nManID=26\nColour=red\n");
    world.Write("b.ini", "");
    world.Write("c.ini", std::string("[\0A\0]\0", 6));
    const ProgramResult result = world.Run({"check", "."});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.out.find("./a.ini:3: error [unknown-key]"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("./b.ini: error [no-section]"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("./c.ini:1: error [not-text]"), std::string::npos) << result.out;
    EXPECT_EQ(result.err, "");
}

TEST(Folder, KeepsTheBytesOfNamesThatAreNoUtf8) {
    const World world;
    std::filesystem::create_directory(world.Path("caf\xE9"));
    world.Write("caf\xE9/fl\xFCss.ini", Entry("26"));
    const ProgramResult result = world.Run(Register({"caf\xE9"}));
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(result.out, "[26] caf\xE9/fl\xFCss.ini:1: <world>/entry/Pyx.ini: written\n");
}

TEST(Folder, MayBeNamedInBrackets) {
    const World world;
    std::filesystem::create_directory(world.Path("[new]"));
    world.Write("[new]/[a,b].ini", Entry("26"));
    const std::string line = "[26] [new]/[a,b].ini:1: <world>/entry/Pyx.ini: written\n";
    const ProgramResult folder = world.Run(Register({"[new]"}));
    EXPECT_EQ(folder.exitCode, 0) << folder.err;
    EXPECT_EQ(folder.out, line);
    world.Write("[a,b]", Entry("27"));
    const ProgramResult file = world.Run(Register({"[a,b]"}));
    EXPECT_EQ(file.exitCode, 0) << file.err;
    EXPECT_EQ(file.out, "[27] [a,b]:1: <world>/entry/Pyx.ini: written\n");
}

TEST(Folder, WhoseNamesHoldLineEndsMakesNoLinesOfItsOwn) {
    const World world;
    world.Write("a\n[27] b.ini", Entry("26"));
    const ProgramResult result = world.Run(Register({"a\n[27] b.ini"}));
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(result.out, "[26] a\\x0A[27] b.ini:1: <world>/entry/Pyx.ini: written\n");
}

TEST(Folder, WithoutEntryFilesIsRefusedWithCode2) {
    const World world;
    std::filesystem::create_directory(world.Path("devices"));
    world.Write("devices/Pyx.ini", "");
    world.Write("devices/ddinstal.ini", "");
    const std::string text = "folder devices: there is no entry file in it";
    ExpectRefused(
        world, Register({"devices"}), 2,
        "ventlock-cli: " + text +
            "\n  Entry files are named *.ini; \"Pyx.ini\", \"Ddinstal.ini\", hidden files and folders "
            "below it do not count.\n");
    ExpectRefusedAsDocument(world, {"check", "devices"}, 2, text);
}

TEST(Folder, OfWhichAFileCannotBeReadIsRefusedWithCode2) {
    const World world;
    world.Write("a.ini", Entry("1"));
    std::filesystem::create_symlink("nowhere", world.Path("b.ini"));
    const ProgramResult result = world.Run(Register({"."}));
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err,
              "ventlock-cli: entry file ./b.ini: File not found \"<world>/entry/./b.ini\": No such file or "
              "directory\n  Check the path.\n");
    EXPECT_EQ(world.Listing(), "a.ini b.ini");
}

TEST(Folder, ThatMayNotBeReadIsRefusedWithCode2) {
    World world;
    std::filesystem::create_directory(world.Path("devices"));
    world.Write("devices/a.ini", Entry("1"));
    std::filesystem::permissions(world.Path("devices"), std::filesystem::perms::owner_exec);
    const ProgramResult result = world.RunAsOrdinaryUser(Register({"devices"}));
    std::filesystem::permissions(world.Path("devices"), std::filesystem::perms::owner_all);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err,
              "ventlock-cli: folder devices: Path/File access error \"<world>/entry/devices\": Permission "
              "denied\n  Check that you may read the folder.\n");
}

}  // namespace
}  // namespace ventlock::test
