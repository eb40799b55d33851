#include <gtest/gtest.h>

#include <filesystem>
#include <regex>

#include "e2e/Refused.h"

namespace ventlock::test {
namespace {

constexpr const char* kTwoManufacturers =
    "[A]\nManID=26\nManName=Acme\nDevID=7\nDevName=Flow\nDLLName=d\nTemplateName=t\n"
    "[B]\nManID=27\nManName=Best\nDevID=8\nDevName=Level\nDLLName=d\nTemplateName=t\n";

/// Of a run on two entries of which the database refuses the first.
constexpr const char* kJunitReport = R"xml(<?xml version="1.0" encoding="UTF-8"?>
<testsuites name="ventlock-cli register" tests="6" failures="1" errors="0" skipped="2">
  <testsuite name="ventlock-cli register" tests="6" failures="1" errors="0" skipped="2" timestamp="<time>">
    <properties>
      <property name="database" value="data source &quot;PYX&quot;" />
      <property name="ini" value="<world>/Pyx.ini" />
      <property name="ddinstall" value="<world>/Ddinstal.ini" />
    </properties>
    <testcase classname="entry.ini" name="[A] database" file="entry.ini" line="1">
      <failure message="failed: MANins-02.1a: ODBC--call failed. [HY000] [SQLite]not &lt;this> one (19) (19) (3146)" type="failed">MANins-02.1a: ODBC--call failed. [HY000] [SQLite]not &lt;this&gt; one (19) (19) (3146)
driver: [HY000] [SQLite]not &lt;this&gt; one (19) (19)
Check the entry with "ventlock-cli check" and the database with "ventlock-cli database info".</failure>
    </testcase>
    <testcase classname="entry.ini" name="[A] Pyx.ini" file="entry.ini" line="1">
      <skipped message="skipped" />
    </testcase>
    <testcase classname="entry.ini" name="[A] Ddinstal.ini" file="entry.ini" line="1">
      <skipped message="skipped" />
    </testcase>
    <testcase classname="entry.ini" name="[B] database" file="entry.ini" line="8" />
    <testcase classname="entry.ini" name="[B] Pyx.ini" file="entry.ini" line="8" />
    <testcase classname="entry.ini" name="[B] Ddinstal.ini" file="entry.ini" line="8" />
  </testsuite>
</testsuites>
)xml";

/// A report with the world's folder and the time of the run replaced.
std::string ReadReport(const World& world, std::string_view name) {
    static const std::regex kTime("\\d{4}-\\d\\d-\\d\\d[ T]\\d\\d:\\d\\d:\\d\\d");
    std::string text = std::regex_replace(world.Read(name), kTime, "<time>");
    const std::string folder = world.Path("");
    for (std::size_t at = 0; (at = text.find(folder)) != std::string::npos;) {
        text.replace(at, folder.size(), "<world>/");
    }
    return text;
}

/// A world of which the database refuses the manufacturer of the first of two entries.
class Reported : public testing::Test {
 protected:
    Reported() {
        world_.MakeDatabase();
        world_.Database().Execute(
            "CREATE TRIGGER no_acme BEFORE INSERT ON Manufacturers WHEN NEW.Name = 'Acme' BEGIN "
            "SELECT RAISE(ABORT, 'not <this> one'); END");
        world_.Write("entry.ini", kTwoManufacturers);
    }

    World world_;
};

TEST_F(Reported, AsJunitARunIsASuiteWithACaseForEachEntryAndTarget) {
    const ProgramResult plain = world_.Run(With(kRegisterEntry, {"--dry-run"}));
    const ProgramResult result = world_.Run(With(kRegisterEntry, {"--report", "out.XML"}));
    EXPECT_EQ(plain.exitCode, 0);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(ReadReport(world_, "out.XML"), kJunitReport);
}

TEST_F(Reported, AsTextItIsForPeople) {
    const ProgramResult result = world_.Run(With(kRegisterEntry, {"--report", "out.txt", "--quiet"}));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(ReadReport(world_, "out.txt"),
              "ventlock-cli register, <time>\n"
              "database: data source \"PYX\"\n"
              "Pyx.ini: <world>/Pyx.ini\n"
              "Ddinstal.ini: <world>/Ddinstal.ini\n"
              "\n"
              "entry.ini:1: [A] database: failed\n"
              "  MANins-02.1a: ODBC--call failed. [HY000] [SQLite]not <this> one (19) (19) (3146)\n"
              "  driver: [HY000] [SQLite]not <this> one (19) (19)\n"
              "  Check the entry with \"ventlock-cli check\" and the database with \"ventlock-cli database "
              "info\".\n"
              "entry.ini:1: [A] Pyx.ini: skipped\n"
              "entry.ini:1: [A] Ddinstal.ini: skipped\n"
              "entry.ini:8: [B] database: written\n"
              "entry.ini:8: [B] Pyx.ini: written\n"
              "entry.ini:8: [B] Ddinstal.ini: written\n"
              "\n"
              "3 passed, 1 failed, 2 skipped\n"
              "exit code 1\n");
}

TEST_F(Reported, AsJsonItIsTheDocumentOfTheAnswer) {
    const ProgramResult result = world_.Run(With(kRegisterEntry, {"--report", "out.json", "--json"}));
    EXPECT_EQ(result.exitCode, 1);
    auto answer = nlohmann::ordered_json::parse(result.out);
    EXPECT_EQ(answer["report"].dump(),
              R"({"file":"<world>/entry/out.json","format":"json","status":"written"})");
    answer.erase("report");
    auto report = nlohmann::ordered_json::parse(world_.Read("out.json"));
    report["targets"] = answer["targets"];  // with the world's folder in their paths
    for (std::size_t i = 0; i < 2; ++i) report["entries"][i]["targets"] = answer["entries"][i]["targets"];
    EXPECT_EQ(report.dump(), answer.dump());
}

TEST_F(Reported, TheFormThatIsNamedCountsMoreThanTheName) {
    world_.Run(With(kRegisterEntry, {"--report", "out.xml", "--report-format", "text"}));
    EXPECT_EQ(ReadReport(world_, "out.xml").substr(0, 38), "ventlock-cli register, <time>\ndatabase");
    world_.Run(With(kRegisterEntry, {"--report", "out.txt", "--report-format", "junit"}));
    EXPECT_EQ(world_.Read("out.txt").substr(0, 6), "<?xml ");
}

TEST_F(Reported, EntriesThatATransactionTookBackHaveFailed) {
    world_.Write("entry.ini",
                 "[B]\nManID=27\nManName=Best\nDevID=8\n[A]\nManID=26\nManName=Acme\nDevID=7\n"
                 "[C]\nManID=28\nManName=Core\nDevID=8\n");
    const ProgramResult result =
        world_.Run({"register", "entry.ini", "--db", "--one-transaction", "--report", "out.txt"});
    EXPECT_EQ(result.exitCode, 1);
    const std::string report = ReadReport(world_, "out.txt");
    EXPECT_NE(report.find("\nentry.ini:1: [B] database: rolled back\n"), std::string::npos) << report;
    EXPECT_NE(report.find("\nentry.ini:5: [A] database: failed\n  MANins"), std::string::npos) << report;
    EXPECT_NE(report.find("\nentry.ini:9: [C] database: skipped\n"), std::string::npos) << report;
    EXPECT_NE(report.find("\n0 passed, 2 failed, 1 skipped\n"), std::string::npos) << report;
}

TEST(Report, OfARunWhoseDatabaseCannotBeReachedTellsThat) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    const ProgramResult result =
        world.Run({"register", "entry.ini", "--db", "--dsn", "NOWHERE", "--report", "out.xml"});
    EXPECT_EQ(result.exitCode, 3);
    const std::string report = ReadReport(world, "out.xml");
    EXPECT_NE(report.find(R"(tests="1" failures="1")"), std::string::npos) << report;
    EXPECT_NE(report.find(R"(    <testcase classname="register" name="register">
      <failure message="data source &quot;NOWHERE&quot; cannot be used: CONNconn-02: )"),
              std::string::npos)
        << report;
    EXPECT_NE(report.find("\nList the known ones with "), std::string::npos) << "the advice in " << report;
}

TEST(Report, OfWrongEntriesTellsEveryFinding) {
    const World world;
    world.Write("entry.ini", "[A]\nManID=2G\nManName=\nDevID=7\n");
    const ProgramResult result = world.Run({"register", "entry.ini", "--db", "--report", "out.txt"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(ReadReport(world, "out.txt"),
              "ventlock-cli register, <time>\n"
              "database: data source \"PYX\"\n"
              "\n"
              "entry.ini:2: line 2 [hex-digits]: error\n"
              "  ManID \"2G\" is no hexadecimal number; use the digits 0 to 9 and A to F only\n"
              "entry.ini:3: line 3 [required]: error\n"
              "  ManName is empty; the database cannot do without it\n"
              "register: the entry files hold errors; nothing was written\n"
              "  Mend what the findings name and run the command again.\n"
              "\n"
              "0 passed, 3 failed, 0 skipped\n"
              "exit code 2\n");
}

/// A folder with a good entry, one that a warning is for, and a file that is left out.
class ReportedCheck : public testing::Test {
 protected:
    ReportedCheck() {
        std::filesystem::create_directory(world_.Path("devices"));
        world_.Write("devices/a.ini", "[A]\nManID=26\nManName=Acme\nDevID=7\nDevName=Flow\n");
        world_.Write("devices/b.ini",
                     "[B]\nManID=26\nManName=Acme\nDevID=8\nDevName=Level\nTAVVersions=5.\n");
        world_.Write("devices/c.ini", "[Window]\nWidth=80\n");
    }

    World world_;
};

TEST_F(ReportedCheck, TellsEveryFileThatNothingSpeaksAgainst) {
    const ProgramResult result = world_.Run({"check", "devices", "--db", "--report", "out.txt"});
    EXPECT_EQ(result.exitCode, 0) << result.out;
    EXPECT_EQ(ReadReport(world_, "out.txt"),
              "ventlock-cli check, <time>\n"
              "left out: devices/c.ini\n"
              "\n"
              "devices/b.ini:6: line 6 [odd-version]: warning\n"
              "  TAVVersions \"5.\" is no version such as 5.0; commas and blanks separate one version from "
              "the next\n"
              "devices/a.ini: check: passed\n"
              "devices/b.ini: check: passed\n"
              "\n"
              "3 passed, 0 failed, 0 skipped\n"
              "exit code 0\n");
}

TEST_F(ReportedCheck, WhenItIsStrictFailsByWarningsAndByWhatIsLeftOut) {
    const ProgramResult result = world_.Run({"check", "devices", "--db", "--strict", "--report", "out.xml"});
    EXPECT_EQ(result.exitCode, 2) << result.out;
    EXPECT_EQ(ReadReport(world_, "out.xml"), R"xml(<?xml version="1.0" encoding="UTF-8"?>
<testsuites name="ventlock-cli check" tests="3" failures="2" errors="0" skipped="0">
  <testsuite name="ventlock-cli check" tests="3" failures="2" errors="0" skipped="0" timestamp="<time>">
    <properties>
      <property name="leftOut" value="devices/c.ini" />
    </properties>
    <testcase classname="devices/b.ini" name="line 6 [odd-version]" file="devices/b.ini" line="6">
      <failure message="warning: TAVVersions &quot;5.&quot; is no version such as 5.0; commas and blanks separate one version from the next" type="warning">TAVVersions "5." is no version such as 5.0; commas and blanks separate one version from the next</failure>
    </testcase>
    <testcase classname="devices/c.ini" name="check" file="devices/c.ini" line="0">
      <failure message="left out: it holds no key of an entry" type="left out">it holds no key of an entry</failure>
    </testcase>
    <testcase classname="devices/a.ini" name="check" file="devices/a.ini" line="0" />
  </testsuite>
</testsuites>
)xml");
}

TEST(Report, OfADryRunIsAllThatIsWritten) {
    const World world;
    world.MakeDatabase();
    world.Write("entry.ini", kFlowEntry);
    const ProgramResult result = world.Run(With(kRegisterEntry, {"--dry-run", "--report", "out.txt"}));
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(world.Listing(), "device.db entry.ini out.txt");
    EXPECT_NE(ReadReport(world, "out.txt").find("\nNothing was written; this is what would be.\n"),
              std::string::npos);
    EXPECT_NE(ReadReport(world, "out.txt").find("\nentry.ini:1: [Flow] Pyx.ini: planned\n"),
              std::string::npos);
}

TEST(Report, ReplacesAnOlderOneAndLeavesNothingBesideIt) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    ASSERT_EQ(world
                  .Run({"register", "entry.ini", "--ini", "--ini-path", "Pyx.ini", "--report", "out.xml",
                        "--report-format", "json"})
                  .exitCode,
              0);
    const ProgramResult result =
        world.Run({"register", "entry.ini", "--ini", "--ini-path", "Pyx.ini", "--report", "out.xml"});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(ReadReport(world, "out.xml").substr(0, 6), "<?xml ");
    EXPECT_EQ(world.Listing(), "Pyx.ini Pyx.ini.bak entry.ini out.xml");
}

TEST(Report, ThatCannotBeWrittenIsRefusedBeforeAnythingIsDone) {
    const World world;
    world.MakeDatabase();
    world.Write("entry.ini", kFlowEntry);
    const std::string text =
        "report none/out.xml: Path not found \"<world>/entry/none/out.xml\": No such file or directory";
    ExpectRefused(world, With(kRegisterEntry, {"--report", "none/out.xml"}), 3,
                  "ventlock-cli: " + text + "\n  Make the folder, or name another path.\n");
    ExpectRefusedAsDocument(world, With(kRegisterEntry, {"--report", "none/out.xml"}), 3, text);
    ExpectRefused(world, With(kRegisterEntry, {"--report", ""}), 1,
                  "ventlock-cli: report : Path/File access error \"\": No such file or directory\n"
                  "  Check that the path names a file, not a folder, and that you may read and write it.\n");
    EXPECT_EQ(world.Rows("SELECT * FROM Manufacturers"), "");
}

TEST(Report, ThatWouldOverwriteWhatTheRunReadsOrWritesIsRefused) {
    const World world;
    world.MakeDatabase();
    world.Write("entry.ini", kFlowEntry);
    for (const std::string path : {"entry.ini", "Pyx.ini", "Ddinstal.ini"}) {
        ExpectRefused(world, With(kRegisterEntry, {"--report", path}), 2,
                      "ventlock-cli: report " + path +
                          ": the run itself reads or writes this file\n"
                          "  Name another file for the report.\n");
    }
}

TEST(Report, ReplacesNoFileThatIsNoReportWhateverItIsCalled) {
    const World world;
    world.MakeDatabase();
    std::filesystem::create_directory(world.Path("devices"));
    world.Write("devices/a.ini", kFlowEntry);
    world.Write("entry.ini", kFlowEntry);
    ASSERT_EQ(world.Run(kRegisterEntry).exitCode, 0);
    for (const std::string path :
         {"./entry.ini", "./Pyx.ini", "devices/../Ddinstal.ini", "Pyx.ini.bak", "device.db"}) {
        ExpectRefused(world, With(kRegisterEntry, {"--report", path}), 2,
                      "ventlock-cli: report " + path +
                          ": there is a file that is no report\n"
                          "  Name another file for the report, or remove this one.\n");
    }
    EXPECT_EQ(world.Run({"verify", "devices", "--db", "--report", "devices/a.ini"}).exitCode, 2);
    EXPECT_EQ(world.Read("devices/a.ini"), kFlowEntry);
    EXPECT_EQ(world
                  .Run({"register", "entry.ini", "--ini", "--one-transaction", "--ini-path", "Pyx.ini",
                        "--report", "Pyx.ini"})
                  .exitCode,
              2);
    EXPECT_EQ(world.Run({"verify", "entry.ini", "--ini", "--ini-path", "Pyx.ini"}).exitCode, 0);
}

TEST(Report, IsNotWrittenOverATargetThatTheRunItselfHasMade) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    const ProgramResult result =
        world.Run({"register", "entry.ini", "--ini", "--ini-path", "Pyx.ini", "--report", "./Pyx.ini"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.err.find("report ./Pyx.ini: there is a file that is no report"), std::string::npos)
        << result.err;
    EXPECT_EQ(world.Run({"verify", "entry.ini", "--ini", "--ini-path", "Pyx.ini"}).exitCode, 0);
}

TEST(Report, NeedsAFileForItsFormat) {
    const World world;
    const ProgramResult result = world.Run({"register", "entry.ini", "--report-format", "junit"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find("--report-format requires --report"), std::string::npos) << result.err;
}

}  // namespace
}  // namespace ventlock::test
