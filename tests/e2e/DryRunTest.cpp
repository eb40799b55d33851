#include <gtest/gtest.h>

#include <sstream>

#include "e2e/Refused.h"

namespace ventlock::test {
namespace {

/// Two entries of one manufacturer and one of another.
std::string ThreeEntries() {
    return std::string(kFlowEntry) +
           "[Level]\nManID=26\nManName=Acme\nManDesc=Acme Inc\nDevID=8\nDevName=Level\nDLLName=Lev\n"
           "TemplateName=l\n"
           "[Other]\nManID=11\nManName=Best\nProtocol=Conventional\nMajorCategory=Turbines\n"
           "MinorCategory=Magnetic\nDevID=1\nDevName=Best one\nDLLName=b\nTemplateName=b\n";
}

/// The statements of all entries of a "register --json" answer, in order.
std::vector<std::string> StatementsOf(const nlohmann::ordered_json& document) {
    std::vector<std::string> statements;
    for (const auto& entry : document["entries"]) {
        for (const auto& statement : entry["targets"]["database"]["statements"])
            statements.push_back(statement);
    }
    return statements;
}

TEST(DryRun, PrintsStatementsAndDiffsOfNewFilesAndWritesNothing) {
    const World world;
    world.MakeDatabase();
    world.Write("entry.ini", kFlowEntry);
    const auto before = world.Snapshot();
    const std::string rows = world.AllRows();
    const ProgramResult result = world.Run(With(kRegisterEntry, {"--dry-run"}));

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(
        result.out,
        "[Flow] entry.ini:1\n"
        "SELECT *   FROM DeviceCategories  ORDER BY DevicecategoryId \n"
        "select *   from MfrProtocols \n"
        "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (1, 'Acme', 'Acme Inc') \n"
        "INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, ProtocolId, MfrId) VALUES (1, 1, 0, "
        "'38') \n"
        "select *   from DeviceTypes \n"
        "INSERT INTO DeviceTypes        (TavDevTypeId, MfrProtocolId, DeviceType, Name, Description) VALUES "
        "(1, 1, '7', 'Flow', 'Flow meter') \n"
        "select *   from DeviceRevisions \n"
        "INSERT INTO DeviceRevisions        (TavDevRevId, TavDevTypeId, DeviceRevision, DeviceCategoryId, "
        "Name, Description) VALUES (1, 1, '1', 0, 'R1', 'First') \n"
        "[Flow] entry.ini:1: data source \"PYX\": would be written\n"
        "--- /dev/null\n"
        "+++ <world>/entry/Pyx.ini\n"
        "@@ -0,0 +1,9 @@\n"
        "+[Devices]\n"
        "+000026.0007.01=000026/0007\n"
        "+\n"
        "+[000026.0007.01]\n"
        "+DeviceHelp=000026\\0007\\h.hlp\n"
        "+BlockHelp_001=000026\\0007\\\n"
        "+DeviceDLL=000026\\0007\\Dev.dll\n"
        "+Description=Flow\n"
        "+HART Protocol Rev=5\n"
        "[Flow] entry.ini:1: <world>/entry/Pyx.ini: would be written\n"
        "--- /dev/null\n"
        "+++ <world>/entry/Ddinstal.ini\n"
        "@@ -0,0 +1,28 @@\n"
        "+[Version]\n"
        "+DD Version=2\n"
        "+\n"
        "+[General]\n"
        "+NumOfMfg=1\n"
        "+\n"
        "+[Mfg1]\n"
        "+ID=000026\n"
        "+NumOfDev=1\n"
        "+Name=Acme\n"
        "+\n"
        "+[000026.1]\n"
        "+DevType=0007\n"
        "+DevTypeDesc=Flow\n"
        "+DevTypeRevDesc=Rev 1\n"
        "+DevTypeRev=01\n"
        "+DDRevDesc=DD Rev 1\n"
        "+PYX=1,0101.pyx\n"
        "+SYM=1,0101.sym\n"
        "+MAP=1,0101.map\n"
        "+DeviceHelp=h.hlp\n"
        "+BlockHelp=\n"
        "+OtherHelp=\n"
        "+DeviceDLL=1,Dev.dll\n"
        "+OtherDLL=\n"
        "+Template=1,t.mrg\n"
        "+HART Protocol Rev=5\n"
        "+TAVVersionSupport=5.0, 6.0\n"
        "[Flow] entry.ini:1: <world>/entry/Ddinstal.ini: would be written\n");
    EXPECT_EQ(world.Snapshot(), before);
    EXPECT_EQ(world.AllRows(), rows);
}

TEST(DryRun, ShowsAChangeOfAnExistingFileAsAUnifiedDiff) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    world.Write("Pyx.ini",
                CrLf("[TAV Server 1]\nDataSourceName=PYX\n\n[Devices]\n000011.0001.01=000011/0001\n\n"
                     "[000011.0001.01]\nDescription=Old\n"));
    const ProgramResult result =
        world.Run({"register", "entry.ini", "--ini", "--ini-path", "Pyx.ini", "--dry-run"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out,
              "[Flow] entry.ini:1\n"
              "--- <world>/entry/Pyx.ini\n"
              "+++ <world>/entry/Pyx.ini\n"
              "@@ -3,6 +3,14 @@\n"
              " \n"
              " [Devices]\n"
              " 000011.0001.01=000011/0001\n"
              "+000026.0007.01=000026/0007\n"
              " \n"
              " [000011.0001.01]\n"
              " Description=Old\n"
              "+\n"
              "+[000026.0007.01]\n"
              "+DeviceHelp=000026\\0007\\h.hlp\n"
              "+BlockHelp_001=000026\\0007\\\n"
              "+DeviceDLL=000026\\0007\\Dev.dll\n"
              "+Description=Flow\n"
              "+HART Protocol Rev=5\n"
              "[Flow] entry.ini:1: <world>/entry/Pyx.ini: would be written\n");
    EXPECT_EQ(world.Listing(), "Pyx.ini entry.ini");
}

TEST(DryRun, OfABatchGivesTheStatementsOfTheRealRunAndChangesNothing) {
    const World world;
    world.MakeDatabase();
    world.Write("entry.ini", ThreeEntries());
    const auto before = world.Snapshot();
    const ProgramResult planned = world.Run(With(kRegisterEntry, {"--dry-run", "--json"}));
    ASSERT_EQ(planned.exitCode, 0) << planned.out;
    EXPECT_EQ(world.Snapshot(), before);

    const ProgramResult real = world.Run(With(kRegisterEntry, {"--json"}));
    ASSERT_EQ(real.exitCode, 0) << real.out;
    const std::vector<std::string> statements = StatementsOf(DocumentOf(real.out));
    EXPECT_GE(statements.size(), 20U);
    EXPECT_EQ(StatementsOf(DocumentOf(planned.out)), statements);
}

TEST(DryRun, OfABatchOnTheOldSchemaGivesTheStatementsOfTheRealRun) {
    const World world;
    world.MakeDatabase("old");
    world.Write("entry.ini",
                "[A]\nManID=26\nManName=Acme\nDevID=7\nDevName=F\n"
                "[B]\nManID=27\nManName=Best\nDevID=8\nDevName=G\n");
    const auto before = world.Snapshot();
    const ProgramResult planned = world.Run({"register", "entry.ini", "--db", "--dry-run", "--json"});
    EXPECT_EQ(world.Snapshot(), before);
    const ProgramResult real = world.Run({"register", "entry.ini", "--db", "--json"});
    ASSERT_EQ(real.exitCode, 0) << real.out;
    const std::vector<std::string> statements = StatementsOf(DocumentOf(real.out));
    EXPECT_EQ(statements.size(), 6U);
    EXPECT_EQ(StatementsOf(DocumentOf(planned.out)), statements);
}

/// The lines that a diff of a new file adds, as the file that they make.
std::string FileOfDiffs(const nlohmann::ordered_json& document, const std::string& target) {
    std::vector<std::string> lines;
    for (const auto& entry : document["entries"]) {
        std::istringstream diff(entry["targets"][target]["diff"].get<std::string>());
        std::size_t at = 0;
        for (std::string line; std::getline(diff, line);) {
            if (line.starts_with("---") || line.starts_with("+++")) continue;
            if (line.starts_with("@@")) {
                at = static_cast<std::size_t>(std::stoi(line.substr(line.find('+') + 1))) - 1;
            } else if (line.starts_with("+")) {
                lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at++), line.substr(1));
            } else if (line.starts_with("-")) {
                lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(at));
            } else {
                EXPECT_EQ(lines.at(at++), line.substr(1));
            }
        }
    }
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    return text;
}

TEST(DryRun, OfABatchShowsDiffsThatAddUpToTheFilesOfTheRealRun) {
    const World world;
    world.MakeDatabase();
    world.Write("entry.ini", ThreeEntries());
    const ProgramResult planned = world.Run(With(kRegisterEntry, {"--dry-run", "--json"}));
    ASSERT_EQ(planned.exitCode, 0) << planned.out;
    ASSERT_EQ(world.Run(kRegisterEntry).exitCode, 0);
    const auto document = DocumentOf(planned.out);
    EXPECT_EQ(FileOfDiffs(document, "ini"), world.Read("Pyx.ini"));
    EXPECT_EQ(FileOfDiffs(document, "ddinstall"), world.Read("Ddinstal.ini"));
}

TEST(DryRun, OfARunThatChangesNothingShowsNoDiff) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    world.Write("Pyx.ini", kFlowPyxIni);
    const ProgramResult result =
        world.Run({"register", "entry.ini", "--ini", "--ini-path", "Pyx.ini", "--dry-run"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out,
              "[Flow] entry.ini:1\n"
              "[Flow] entry.ini:1: <world>/entry/Pyx.ini: would stay as it is\n");
}

TEST(DryRun, RefusesWhatTheRealRunRefuses) {
    const World world;
    world.MakeDatabase();
    world.Write("entry.ini", "[A]\nManID=2G\n");
    const ProgramResult real = world.Run({"register", "entry.ini", "--db"});
    const ProgramResult planned = world.Run({"register", "entry.ini", "--db", "--dry-run"});
    EXPECT_EQ(planned.exitCode, 2);
    EXPECT_EQ(planned.err, real.err);
    EXPECT_EQ(planned.out, real.out);
}

}  // namespace
}  // namespace ventlock::test
