#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "base/Text.h"
#include "e2e/Refused.h"

namespace ventlock::test {
namespace {

const std::vector<std::string> kPaths = {"--ini-path", "Pyx.ini", "--ddinstall-path", "Ddinstal.ini"};

std::vector<std::string> Verify(const std::vector<std::string>& targets) {
    return With(With({"verify", "flow.ini"}, targets), kPaths);
}

/// A world whose three targets hold an entry, and the entry's file.
class Verified : public testing::Test {
 protected:
    explicit Verified(const std::string& schema = "current") {
        world_.MakeDatabase(schema);
        world_.Write("flow.ini", kFlowEntry);
        const ProgramResult result = world_.Run(With({"register", "flow.ini", "--all"}, kPaths));
        EXPECT_EQ(result.exitCode, 0) << result.err;
    }

    void Change(const std::string& statement) const { world_.Database().Execute(statement); }

    void Replace(std::string_view file, const std::string& from, const std::string& to) const {
        std::string text = world_.Read(file);
        const std::size_t at = text.find(from);
        ASSERT_NE(at, std::string::npos) << from << " is not in\n" << text;
        world_.Write(file, text.replace(at, from.size(), to));
    }

    /// Runs the comparison, which must find exactly these differences in one target and change nothing.
    void ExpectDifferences(const std::string& target, const std::string& place,
                           const std::vector<std::string>& differences) const {
        const auto before = world_.Snapshot();
        const ProgramResult result = world_.Run(Verify({target}));
        EXPECT_EQ(result.exitCode, differences.empty() ? 0 : 1) << result.err;
        EXPECT_EQ(result.err, "");
        std::string lines;
        for (const std::string& text : differences)
            lines += "[Flow] flow.ini:1: " + place + ": " + text + "\n";
        if (differences.empty()) lines = "[Flow] flow.ini:1: " + place + ": same\n";
        EXPECT_EQ(result.out, lines + Counted(differences.size(), "difference") + "\n");
        EXPECT_EQ(world_.Snapshot(), before);
    }

    void ExpectInDatabase(const std::vector<std::string>& differences) const {
        ExpectDifferences("--db", "data source \"PYX\"", differences);
    }
    void ExpectInPyxIni(const std::vector<std::string>& differences) const {
        ExpectDifferences("--ini", "<world>/entry/Pyx.ini", differences);
    }
    void ExpectInDdinstal(const std::vector<std::string>& differences) const {
        ExpectDifferences("--ddinstall", "<world>/entry/Ddinstal.ini", differences);
    }

    World world_;
};

TEST_F(Verified, WhatWasRegisteredIsTheSameInAllTargets) {
    const auto before = world_.Snapshot();
    const std::string rows = world_.AllRows();
    const ProgramResult result = world_.Run(Verify({"--all"}));
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out,
              "[Flow] flow.ini:1: data source \"PYX\": same\n"
              "[Flow] flow.ini:1: <world>/entry/Pyx.ini: same\n"
              "[Flow] flow.ini:1: <world>/entry/Ddinstal.ini: same\n"
              "0 differences\n");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(world_.Snapshot(), before);
    EXPECT_EQ(world_.AllRows(), rows);
    EXPECT_EQ(world_.Run(With(Verify({"--all"}), {"--quiet"})).out, "");
}

TEST_F(Verified, ATargetThatCannotBeComparedIsToldAndTheOthersAreCompared) {
    world_.Write("Ddinstal.ini", "[General]\r\nNumOfMfg=9e9\r\n");
    const ProgramResult result = world_.Run(Verify({"--all"}));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out,
              "[Flow] flow.ini:1: data source \"PYX\": same\n"
              "[Flow] flow.ini:1: <world>/entry/Pyx.ini: same\n"
              "0 differences, 1 not compared\n");
    EXPECT_EQ(result.err, "ventlock-cli: [Flow] flow.ini:1: <world>/entry/Ddinstal.ini: Overflow\n");
}

TEST_F(Verified, EveryColumnThatDiffersIsTold) {
    Change("UPDATE Manufacturers SET Name = 'ACME', Description = NULL");
    Change("UPDATE DeviceTypes SET Name = 'Flow ', Description = 'other'");
    Change("UPDATE DeviceRevisions SET DeviceCategoryId = 3, Name = '', Description = 'first'");
    ExpectInDatabase({"Manufacturers TAVMfrNameID=1: Name: expected \"Acme\", found \"ACME\"",
                      "Manufacturers TAVMfrNameID=1: Description: expected \"Acme Inc\", found nothing",
                      "DeviceTypes TavDevTypeId=1: Description: expected \"Flow meter\", found \"other\"",
                      "DeviceRevisions TavDevRevId=1: DeviceCategoryId: expected \"0\", found \"3\"",
                      "DeviceRevisions TavDevRevId=1: Name: expected \"R1\", found \"\"",
                      "DeviceRevisions TavDevRevId=1: Description: expected \"First\", found \"first\""});
}

TEST_F(Verified, IdsInAnotherFormAreTheSame) {
    Change("UPDATE MfrProtocols SET MfrId = ' 038 '");
    Change("UPDATE DeviceTypes SET DeviceType = '07'");
    ExpectInDatabase({});
}

TEST_F(Verified, AMissingRowIsToldWithWhatItWouldHold) {
    Change("DELETE FROM DeviceRevisions");
    ExpectInDatabase(
        {"DeviceRevisions: missing; expected TavDevRevId=1, TavDevTypeId=1, DeviceRevision=1, "
         "DeviceCategoryId=0, Name=R1, Description=First"});
    Change("DELETE FROM DeviceTypes");
    Change("DELETE FROM MfrProtocols");
    Change("DELETE FROM Manufacturers");
    ExpectInDatabase(
        {"Manufacturers: missing; expected TavMfrNameId=1, Name=Acme, Description=Acme Inc",
         "MfrProtocols: missing; expected MfrProtocolId=1, TavMfrNameId=1, ProtocolId=0, MfrId=38",
         "DeviceTypes: missing; expected TavDevTypeId=1, MfrProtocolId=1, DeviceType=7, Name=Flow, "
         "Description=Flow meter",
         "DeviceRevisions: missing; expected TavDevRevId=1, TavDevTypeId=1, DeviceRevision=1, "
         "DeviceCategoryId=0, Name=R1, Description=First"});
}

TEST_F(Verified, ARowThatNothingLeadsToIsMissing) {
    Change("PRAGMA foreign_keys = OFF");
    Change("UPDATE MfrProtocols SET TavMfrNameId = 9");
    ExpectInDatabase({"Manufacturers: missing; expected Name=Acme, Description=Acme Inc"});
}

TEST_F(Verified, RepeatedRowsAreTold) {
    Change("INSERT INTO Manufacturers VALUES (2, 'Other', '')");
    Change("INSERT INTO MfrProtocols VALUES (2, 2, 0, '038')");
    Change("INSERT INTO DeviceTypes VALUES (2, 1, '07', 'Other', '')");
    Change("INSERT INTO DeviceRevisions VALUES (2, 1, '01', 0, 'Other', '')");
    Change("INSERT INTO DeviceRevisions VALUES (3, 1, '001', 0, 'Other', '')");
    Change("INSERT INTO DeviceRevisions VALUES (4, 1, '2', 0, 'Other', '')");
    ExpectInDatabase({"MfrProtocols: MfrId=38, ProtocolId=0 stands 2 times",
                      "DeviceTypes: DeviceType=7, MfrProtocolID=1 stands 2 times",
                      "DeviceRevisions: TAVDevTypeID=1, DeviceRevision=1 stands 3 times"});
}

TEST_F(Verified, ACategoryThatWouldBeMadeIsMissing) {
    world_.Write("flow.ini",
                 "[Flow]\nManID=26\nManName=Acme\nManDesc=Acme Inc\nDevID=7\nDevName=Flow\n"
                 "Protocol=Conventional\nMajorCategory=Turbines\n");
    const ProgramResult result = world_.Run(Verify({"--db"}));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.out.find(": MajorDeviceCategories: missing; expected MajorDeviceCategoryId=10, "
                              "Name=Turbines, Description=\n"),
              std::string::npos)
        << result.out;
    EXPECT_EQ(world_.Rows("SELECT COUNT(*) FROM MajorDeviceCategories WHERE Name = 'Turbines'"), "0\n");
}

TEST_F(Verified, EveryEntryIsComparedWithWhatIsThereNow) {
    world_.Write("flow.ini", "[A]\nManID=99\nManName=New\nDevID=1\n[B]\nManID=99\nManName=New\nDevID=2\n");
    const ProgramResult result = world_.Run(Verify({"--db"}));
    EXPECT_EQ(result.exitCode, 1);
    for (const char* const title : {"[A] flow.ini:1", "[B] flow.ini:5"}) {
        EXPECT_NE(result.out.find(std::string(title) +
                                  ": data source \"PYX\": Manufacturers: missing; expected TavMfrNameId=2"),
                  std::string::npos)
            << result.out;
    }
}

TEST_F(Verified, PyxIniIsComparedKeyByKey) {
    ExpectInPyxIni({});
    Replace("Pyx.ini", "Description=Flow\r\n", "Description=flow\r\n");
    Replace("Pyx.ini", "DeviceDLL=000026\\0007\\Dev.dll\r\n", "");
    Replace("Pyx.ini", "=000026/0007", " =  '000026/0007' ");
    ExpectInPyxIni({"[000026.0007.01]: DeviceDLL: expected \"000026\\0007\\Dev.dll\", found nothing",
                    "[000026.0007.01]: Description: expected \"Flow\", found \"flow\""});
    world_.Write("Pyx.ini",
                 world_.Read("Pyx.ini") + "[devices]\r\n[000026.0007.01 ]\r\n[ 000026.0007.01]\r\n");
    ExpectInPyxIni({"[Devices]: stands 2 times", "[000026.0007.01]: stands 3 times",
                    "[000026.0007.01]: DeviceDLL: expected \"000026\\0007\\Dev.dll\", found nothing",
                    "[000026.0007.01]: Description: expected \"Flow\", found \"flow\""});
    world_.Write("Pyx.ini", "[Devices]\n");
    ExpectInPyxIni(
        {"[Devices]: 000026.0007.01: expected \"000026/0007\", found nothing", "[000026.0007.01]: missing"});
    std::filesystem::remove(world_.Path("Pyx.ini"));
    ExpectInPyxIni({"[Devices]: missing", "[000026.0007.01]: missing"});
}

TEST_F(Verified, DdinstalIsComparedKeyByKey) {
    ExpectInDdinstal({});
    Replace("Ddinstal.ini", "Name=Acme", "Name=Acme ?");
    Replace("Ddinstal.ini", "TAVVersionSupport=5.0, 6.0", "TAVVersionSupport=5.0,6.0");
    Replace("Ddinstal.ini", "PYX=1,0101.pyx\r\n", "");
    ExpectInDdinstal({"[Mfg1]: Name: expected \"Acme\", found \"Acme ?\"",
                      "[000026.1]: PYX: expected \"1,0101.pyx\", found nothing",
                      "[000026.1]: TAVVersionSupport: expected \"5.0, 6.0\", found \"5.0,6.0\""});
    Replace("Ddinstal.ini", "NumOfDev=1", "NumOfDev=0");
    ExpectInDdinstal({"[Mfg1]: Name: expected \"Acme\", found \"Acme ?\"",
                      "[000026.*]: missing; expected DevType=0007, DevTypeRev=01"});
    Replace("Ddinstal.ini", "NumOfMfg=1", "NumOfMfg=0");
    ExpectInDdinstal(
        {"[Mfg*]: missing; expected ID=000026", "[000026.*]: missing; expected DevType=0007, DevTypeRev=01"});
}

TEST_F(Verified, RepeatedSectionsOfDdinstalAreTold) {
    Replace("Ddinstal.ini", "NumOfMfg=1", "NumOfMfg=2");
    Replace("Ddinstal.ini", "NumOfDev=1", "NumOfDev=3");
    world_.Write("Ddinstal.ini",
                 world_.Read("Ddinstal.ini") +
                     "[Mfg2]\r\nID=000026\r\n[000026.3]\r\nDevType=0007\r\nDevTypeRev=01\r\n");
    ExpectInDdinstal(
        {"[Mfg*]: ID=000026 stands 2 times", "[000026.*]: DevType=0007, DevTypeRev=01 stands 2 times"});
}

TEST_F(Verified, WhatIsDifferentIsTheSameAfterTheNextRegister) {
    Change("UPDATE DeviceTypes SET Name = 'x'");
    Change("DELETE FROM DeviceRevisions");
    world_.Write("Pyx.ini", "[Devices]\n");
    Replace("Ddinstal.ini", "Name=Acme", "Name=x");
    EXPECT_EQ(world_.Run(Verify({"--all"})).exitCode, 1);
    EXPECT_EQ(world_.Run(With({"register", "flow.ini", "--all"}, kPaths)).exitCode, 0);
    EXPECT_EQ(world_.Run(Verify({"--all"})).exitCode, 0);
}

TEST_F(Verified, NothingButReadsReachesTheDatabaseThoughAnotherProgramWrites) {
    Change("UPDATE DeviceTypes SET Name = 'x'");
    world_.TraceStatements();
    OdbcProbe other = world_.Database();
    other.Execute("BEGIN IMMEDIATE");
    EXPECT_EQ(world_.Run(Verify({"--db"})).exitCode, 1);
    other.Execute("ROLLBACK");
    const std::vector<std::string> statements = world_.TracedStatements();
    EXPECT_FALSE(statements.empty());
    for (const std::string& statement : statements) {
        EXPECT_TRUE(statement.starts_with("SELECT ") || statement.starts_with("select ")) << statement;
    }
}

TEST_F(Verified, TargetsNeedNotBeWritable) {
    namespace fs = std::filesystem;
    for (const char* const name : {"Pyx.ini", "Ddinstal.ini"}) {
        fs::permissions(world_.Path(name), fs::perms::owner_read | fs::perms::others_read);
    }
    fs::permissions(world_.Path(""), fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
    const ProgramResult result = world_.RunAsOrdinaryUser(Verify({"--ini", "--ddinstall"}));
    EXPECT_EQ(result.exitCode, 0) << result.err;
}

TEST_F(Verified, TheDocumentTellsEveryDifference) {
    Change("UPDATE DeviceTypes SET Name = NULL");
    world_.Write("Pyx.ini", "");
    const ProgramResult result = world_.Run(With(Verify({"--all"}), {"--json"}));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err, "");
    const auto document = DocumentOf(result.out);
    EXPECT_EQ(document["command"], "verify");
    EXPECT_EQ(document["differences"], 3);
    const auto targets = document["entries"][0]["targets"];
    EXPECT_EQ(targets["database"]["status"], "different");
    EXPECT_EQ(targets["database"]["differences"][0].dump(),
              R"({"kind":"value","place":"DeviceTypes TavDevTypeId=1","item":"Name","expected":"Flow",)"
              R"("found":null,"text":"DeviceTypes TavDevTypeId=1: Name: expected \"Flow\", found nothing"})");
    EXPECT_EQ(targets["ini"]["differences"][1]["kind"], "missing");
    EXPECT_EQ(targets["ddinstall"]["status"], "same");
    EXPECT_EQ(targets["ddinstall"]["differences"].size(), 0U);
}

TEST_F(Verified, TheReportHasACaseForEachTarget) {
    world_.Write("Pyx.ini", "");
    const ProgramResult result = world_.Run(With(Verify({"--all"}), {"--report", "out.xml"}));
    EXPECT_EQ(result.exitCode, 1);
    const std::string report = world_.Read("out.xml");
    EXPECT_NE(report.find(R"(<testsuites name="ventlock-cli verify" tests="3" failures="1")"),
              std::string::npos)
        << report;
    EXPECT_NE(report.find("      <failure message=\"different: [Devices]: missing\" "
                          "type=\"different\">[Devices]: missing\n[000026.0007.01]: missing</failure>\n"),
              std::string::npos)
        << report;
}

class VerifiedOldSchema : public Verified {
 protected:
    VerifiedOldSchema() : Verified("old") {}
};

TEST_F(VerifiedOldSchema, IsComparedByItsOwnKeys) {
    ExpectInDatabase({});
    Change("UPDATE MfrIds SET MfrIdName = 'x'");
    Change("UPDATE DevTypes SET DevTypeDesc = NULL");
    Change("UPDATE PDevices SET DevName = 'y', DevRev = 2, DevDDLRev = NULL, DevProtocolRev = 6");
    ExpectInDatabase({"MfrIds DevMfrId=38: MfrIdName: expected \"Acme\", found \"x\"",
                      "DevTypes DevMfrId=38, DevType=7: DevTypeDesc: expected \"Flow\", found nothing",
                      "PDevices UDevRevId=0000002600070001: DevName: expected \"Flow\", found \"y\"",
                      "PDevices UDevRevId=0000002600070001: DevRev: expected \"1\", found \"2\"",
                      "PDevices UDevRevId=0000002600070001: DevDDLRev: expected \"1\", found nothing",
                      "PDevices UDevRevId=0000002600070001: DevProtocolRev: expected \"5\", found \"6\""});
    Change("DELETE FROM PDevices");
    Change("DELETE FROM DevTypes");
    Change("DELETE FROM MfrIds");
    ExpectInDatabase({"MfrIds: missing; expected DevMfrId=38, MfrIdName=Acme",
                      "DevTypes: missing; expected DevMfrId=38, DevType=7, DevTypeDesc=Flow",
                      "PDevices: missing; expected UDevRevId=0000002600070001, DevMfrId=38, DevType=7, "
                      "DevName=Flow, DevRev=1, DevDDLRev=1, DevProtocolRev=5"});
}

TEST_F(VerifiedOldSchema, RepeatedRowsAreTold) {
    Change("DROP TABLE MfrIds");
    Change("CREATE TABLE MfrIds (DevMfrId BIGINT, MfrIdName VARCHAR(64))");
    Change("INSERT INTO MfrIds VALUES (38, 'Acme'), (38, 'Other')");
    ExpectInDatabase({"MfrIds: DevMfrId=38 stands 2 times"});
}

TEST(Verify, OfATargetThatCannotBeReachedEndsWithCode3) {
    const World world;
    world.Write("flow.ini", kFlowEntry);
    const auto text = [](const ProgramResult& result) { return result.err; };
    const ProgramResult database = world.Run(With(Verify({"--db"}), {"--dsn", "NOWHERE"}));
    EXPECT_EQ(database.exitCode, 3);
    EXPECT_TRUE(text(database).starts_with("ventlock-cli: data source \"NOWHERE\" cannot be used\n"));
    ExpectRefused(
        world, {"verify", "flow.ini", "--ini", "--ini-path", "none/Pyx.ini"}, 3,
        "ventlock-cli: <world>/entry/none/Pyx.ini: Path not found \"<world>/entry/none/Pyx.ini\": No "
        "such file or directory\n  Make the folder, or name another path by --ini-path or the setting "
        "INIPath.\n");
}

TEST(Verify, OfWrongEntriesAndWithoutTargetsEndsWithCode2) {
    const World world;
    world.Write("flow.ini", "[A]\nManID=x\n");
    const ProgramResult result = world.Run(Verify({"--ini"}));
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find("the entry files hold errors; nothing was compared"), std::string::npos)
        << result.err;
    ExpectRefused(world, {"verify", "flow.ini"}, 2,
                  "ventlock-cli: no target was named\n  Add --db, --ini, --ddinstall or --all.\n");
}

}  // namespace
}  // namespace ventlock::test
