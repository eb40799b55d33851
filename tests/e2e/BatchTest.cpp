#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string_view>

#include "e2e/Refused.h"

namespace ventlock::test {
namespace {

constexpr const char* kTwoManufacturers =
    "[A]\nManID=26\nManName=Acme\nDevID=7\nDevName=Flow\nDLLName=d\nTemplateName=t\n"
    "[B]\nManID=27\nManName=Best\nDevID=8\nDevName=Level\nDLLName=d\nTemplateName=t\n";

TEST(Batch, TwoEntriesGetFreshNumbersEach) {
    const World world;
    world.MakeDatabase();
    world.Write("entry.ini", kTwoManufacturers);
    EXPECT_EQ(world.Run({"register", "entry.ini", "--db"}).exitCode, 0);
    EXPECT_EQ(world.Rows("SELECT * FROM Manufacturers"), "1|Acme|\n2|Best|\n");
    EXPECT_EQ(world.Rows("SELECT * FROM MfrProtocols"), "1|1|0|38\n2|2|0|39\n");
    EXPECT_EQ(world.Rows("SELECT * FROM DeviceTypes"), "1|1|7|Flow|\n2|2|8|Level|\n");
    EXPECT_EQ(world.Rows("SELECT * FROM DeviceRevisions"), "1|1|1|0||\n2|2|1|0||\n");
}

TEST(Batch, EntriesOfSeveralFilesAreWrittenInTheOrderOfTheCall) {
    const World world;
    world.Write("one.ini", "[A]\nManID=26\nDevID=7\nDevName=Flow\nDLLName=d\n");
    world.Write("two.ini", "[A]\nManID=27\nDevID=8\nDevName=Level\nDLLName=d\n");
    const ProgramResult result =
        world.Run({"register", "two.ini", "one.ini", "--ini", "--ini-path", "Pyx.ini"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out,
              "[A] two.ini:1: <world>/entry/Pyx.ini: written\n"
              "[A] one.ini:1: <world>/entry/Pyx.ini: written\n"
              "2 of 2 entries written\n");
    EXPECT_EQ(world.Read("Pyx.ini"), CrLf("[Devices]\n"
                                          "000027.0008.01=000027/0008\n"
                                          "000026.0007.01=000026/0007\n"
                                          "\n"
                                          "[000027.0008.01]\n"
                                          "DeviceHelp=000027\\0008\\\n"
                                          "BlockHelp_001=000027\\0008\\\n"
                                          "DeviceDLL=000027\\0008\\d.dll\n"
                                          "Description=Level\n"
                                          "HART Protocol Rev=5\n"
                                          "\n"
                                          "[000026.0007.01]\n"
                                          "DeviceHelp=000026\\0007\\\n"
                                          "BlockHelp_001=000026\\0007\\\n"
                                          "DeviceDLL=000026\\0007\\d.dll\n"
                                          "Description=Flow\n"
                                          "HART Protocol Rev=5\n"));
}

TEST(Batch, TwoEntriesForOneDeviceAreWrittenAndComparedWithAWarning) {
    const World world;
    world.Write("one.ini", "[A]\nManID=26\nDevID=7\nDevName=Flow\nDLLName=d\n");
    world.Write("two.ini", "[B]\nManID=0026\nDevID=07\nDevName=Level\nDLLName=d\n");
    const std::string warning = "two.ini:1: warning [same-device] the same device as one.ini:1 [A]\n";
    const std::vector<std::string> call = {"one.ini", "two.ini", "--ini", "--ini-path", "Pyx.ini"};
    const ProgramResult written = world.Run(With({"register"}, call));
    EXPECT_EQ(written.exitCode, 0);
    EXPECT_EQ(written.err, warning);
    const ProgramResult compared = world.Run(With({"verify"}, call));
    EXPECT_EQ(compared.exitCode, 1);
    EXPECT_EQ(compared.err, warning);
    EXPECT_EQ(compared.out,
              "[A] one.ini:1: <world>/entry/Pyx.ini: [000026.0007.01]: Description: expected \"Flow\", found "
              "\"Level\"\n"
              "[B] two.ini:1: <world>/entry/Pyx.ini: same\n"
              "1 difference\n");
}

TEST(Batch, AnEntryWhoseDatabaseHasBecomeUnsupportedMeanwhileIsNotCalledWritten) {
    const World world;
    world.MakeDatabase();
    world.Database().Execute(
        "CREATE TRIGGER newer AFTER INSERT ON DeviceRevisions BEGIN UPDATE __version SET Major = 2; END");
    world.Write("entry.ini", kTwoManufacturers);
    const ProgramResult result = world.Run({"register", "entry.ini", "--db"});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out, "[A] entry.ini:1: data source \"PYX\": written\n1 of 2 entries written\n");
    EXPECT_EQ(result.err,
              "ventlock-cli: [B] entry.ini:8: data source \"PYX\": the entry was not written\n"
              "  The version of the device database is not supported.\n"
              "  Check the entry with \"ventlock-cli check\" and the database with \"ventlock-cli database "
              "info\".\n");
    EXPECT_EQ(world.Rows("SELECT * FROM Manufacturers"), "1|Acme|\n");
}

TEST(Batch, AFailingEntryLeavesTheOthersWrittenAndTheRunEndsWithCode1) {
    const World world;
    world.MakeDatabase();
    world.Database().Execute(
        "CREATE TRIGGER no_acme BEFORE INSERT ON Manufacturers WHEN NEW.Name = 'Acme' BEGIN "
        "SELECT RAISE(ABORT, 'not this one'); END");
    world.Write("entry.ini", kTwoManufacturers);
    const ProgramResult result = world.Run(kRegisterEntry);

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out,
              "[B] entry.ini:8: data source \"PYX\": written\n"
              "[B] entry.ini:8: <world>/entry/Pyx.ini: written\n"
              "[B] entry.ini:8: <world>/entry/Ddinstal.ini: written\n"
              "1 of 2 entries written\n");
    EXPECT_EQ(result.err,
              "ventlock-cli: [A] entry.ini:1: data source \"PYX\": the entry was not written\n"
              "  MANins-02.1a: ODBC--call failed. [HY000] [SQLite]not this one (19) (19) (3146)\n"
              "  driver: [HY000] [SQLite]not this one (19) (19)\n"
              "  Check the entry with \"ventlock-cli check\" and the database with \"ventlock-cli database "
              "info\".\n");
    EXPECT_EQ(world.Rows("SELECT * FROM Manufacturers"), "1|Best|\n");
    EXPECT_EQ(world.Rows("SELECT * FROM DeviceRevisions"), "1|1|1|0||\n");
    EXPECT_EQ(world.Read("Pyx.ini"), CrLf("[Devices]\n"
                                          "000027.0008.01=000027/0008\n"
                                          "\n"
                                          "[000027.0008.01]\n"
                                          "DeviceHelp=000027\\0008\\\n"
                                          "BlockHelp_001=000027\\0008\\\n"
                                          "DeviceDLL=000027\\0008\\d.dll\n"
                                          "Description=Level\n"
                                          "HART Protocol Rev=5\n"));
    EXPECT_EQ(world.Read("Ddinstal.ini").find("Acme"), std::string::npos);
    EXPECT_NE(world.Read("Ddinstal.ini").find("Name=Best\r\n"), std::string::npos);
}

TEST(Batch, TheDocumentTellsOfEveryEntryAndTarget) {
    const World world;
    world.MakeDatabase();
    world.Database().Execute(
        "CREATE TRIGGER no_acme BEFORE INSERT ON Manufacturers WHEN NEW.Name = 'Acme' BEGIN "
        "SELECT RAISE(ABORT, 'not this one'); END");
    world.Write("entry.ini", kTwoManufacturers);
    const ProgramResult result = world.Run(With(kRegisterEntry, {"--json"}));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err, "");
    const auto document = DocumentOf(result.out);
    EXPECT_EQ(document["command"], "register");
    EXPECT_EQ(document["dryRun"], false);
    EXPECT_EQ(document["exitCode"], 1);
    ASSERT_EQ(document["entries"].size(), 2U);
    EXPECT_EQ(document["entries"][0]["name"], "A");
    EXPECT_EQ(document["entries"][0]["file"], "entry.ini");
    EXPECT_EQ(document["entries"][0]["line"], 1);
    EXPECT_EQ(document["entries"][1]["line"], 8);
    std::vector<std::string> statuses;
    for (const auto& entry : document["entries"]) {
        for (const char* const target : {"database", "ini", "ddinstall"}) {
            statuses.push_back(entry["targets"][target]["status"]);
        }
    }
    EXPECT_EQ(statuses,
              (std::vector<std::string>{"failed", "skipped", "skipped", "written", "written", "written"}));
}

TEST(Batch, TwoProgramsAtOnceLoseNothingOfTheFiles) {
    const World world;
    std::vector<std::unique_ptr<RunningProgram>> programs;
    constexpr int kPrograms = 2;
    constexpr int kEntries = 8;
    for (int program = 0; program < kPrograms; ++program) {
        std::string entries;
        for (int entry = 0; entry < kEntries; ++entry) {
            entries += "[E" + std::to_string(entry) + "]\nManID=" + std::to_string(20 + program) +
                       "\nManName=M\nDevID=" + std::to_string(entry) +
                       "\nDevName=D\nDLLName=d\nTemplateName=t\n";
        }
        const std::string file = "entry" + std::to_string(program) + ".ini";
        world.Write(file, entries);
        programs.push_back(std::make_unique<RunningProgram>(
            world.Call({"register", file, "--ini", "--ddinstall", "--ini-path", "Pyx.ini", "--ddinstall-path",
                        "Ddinstal.ini", "--quiet"})));
    }
    for (const auto& program : programs) {
        const ProgramResult result = program->Wait();
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.err, "");
    }

    const std::string pyxIni = world.Read("Pyx.ini");
    const std::string ddinstal = world.Read("Ddinstal.ini");
    const auto expectIn = [](const std::string& file, std::initializer_list<std::string_view> parts) {
        std::string text;
        for (const std::string_view part : parts) text += part;
        EXPECT_NE(file.find(text), std::string::npos) << text << "\nis not in\n" << file;
    };
    for (int program = 0; program < kPrograms; ++program) {
        const std::string manufacturer = "0000" + std::to_string(20 + program);
        expectIn(ddinstal, {"ID=", manufacturer, "\r\nNumOfDev=8\r\n"});
        for (int entry = 0; entry < kEntries; ++entry) {
            const std::string type = "000" + std::to_string(entry);
            expectIn(pyxIni, {"\r\n", manufacturer, ".", type, ".01=", manufacturer, "/", type, "\r\n"});
            expectIn(pyxIni, {"\r\n[", manufacturer, ".", type, ".01]\r\nDeviceHelp="});
            const std::string section = std::to_string(entry + 1);
            expectIn(ddinstal, {"\r\n[", manufacturer, ".", section, "]\r\nDevType=", type});
        }
    }
    EXPECT_NE(ddinstal.find("[General]\r\nNumOfMfg=2\r\n"), std::string::npos) << ddinstal;
}

TEST(Batch, HowFarItHasComeIsShownOnATerminalOnly) {
    const World world;
    world.Write("entry.ini",
                "[A]\nManID=1\nDevID=1\nDevName=F\nDLLName=d\n"
                "[B]\nManID=1\nDevID=2\nDevName=F\nDLLName=d\n"
                "[C]\nManID=1\nDevID=3\nDevName=F\nDLLName=d\n");
    const std::vector<std::string> arguments = {"register", "entry.ini", "--ini", "--ini-path", "Pyx.ini"};
    const std::string lines =
        "[A] entry.ini:1: <world>/entry/Pyx.ini: written\n"
        "[B] entry.ini:6: <world>/entry/Pyx.ini: written\n"
        "[C] entry.ini:11: <world>/entry/Pyx.ini: written\n"
        "3 of 3 entries written\n";
    ProgramCall call = world.Call(arguments);
    call.errorsGoToTerminal = true;
    const ProgramResult onTerminal = world.Finished(call);
    EXPECT_EQ(onTerminal.exitCode, 0);
    EXPECT_EQ(onTerminal.out, lines);
    EXPECT_EQ(onTerminal.err,
              "\r0 of 3 entries\r\x1B[K"
              "\r1 of 3 entries\r\x1B[K"
              "\r2 of 3 entries\r\x1B[K");

    const ProgramResult elsewhere = world.Run(arguments);
    EXPECT_EQ(elsewhere.out, lines);
    EXPECT_EQ(elsewhere.err, "");
    for (const char* const silent : {"--quiet", "--json"}) {
        call.command = world.Call(With(arguments, {silent})).command;
        EXPECT_EQ(world.Finished(call).err, "") << silent;
    }
}

TEST(Batch, OneEntryShowsNoProgressEvenOnATerminal) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    ProgramCall call = world.Call({"register", "entry.ini", "--ini", "--ini-path", "Pyx.ini"});
    call.errorsGoToTerminal = true;
    EXPECT_EQ(world.Finished(call).err, "");
}

}  // namespace
}  // namespace ventlock::test
