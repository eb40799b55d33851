#include <gtest/gtest.h>

#include <filesystem>

#include "e2e/Refused.h"

namespace ventlock::test {
namespace {

const std::vector<std::string> kPaths = {"--ini-path", "Pyx.ini", "--ddinstall-path", "Ddinstal.ini"};

/// Four devices: two revisions of one type, one more type, and one of another manufacturer.
constexpr const char* kDevices =
    "[A]\nManID=26\nManName=Acme\nManDesc=Acme Inc\nProtID=0\nDevID=0A\nDevName=Flow\nDevDesc=Flow meter\n"
    "DevRev=1\nDDRev=2\nProtRev=07\nDevRevName=R1\nDevRevDesc=First\nDLLName=a.dll\nTemplateName=a.mrg\n"
    "DevHelp=a.hlp\nBlkHelp=b.hlp\nTAVVersions=5.0, 6.0\n"
    "[B]\nManID=26\nManName=Acme\nManDesc=Acme Inc\nProtID=0\nDevID=0A\nDevName=Flow\nDevDesc=Flow meter\n"
    "DevRev=1F\nDevRevName=R31\nDLLName=a.dll\nTemplateName=a.mrg\n"
    "[C]\nManID=26\nManName=Acme\nManDesc=Acme Inc\nProtID=2\nDevID=0A\nDevName=Level\nDevCatID=2\n"
    "DevMinCatID=6\nDLLName=c.dll\nTemplateName=c.mrg\n"
    "[D]\nManID=E0\nManName=Best \"one\"\nDevID=1\nDevName=\"Heat\" 2\nDLLName=d.dll\nTemplateName=d.mrg\n";

/// A world with these devices in all three targets.
class Exported : public testing::Test {
 protected:
    explicit Exported(const std::string& schema = "current") {
        world_.MakeDatabase(schema);
        world_.Write("devices.ini", kDevices);
        const ProgramResult result = world_.Run(With({"register", "devices.ini", "--all"}, kPaths));
        EXPECT_TRUE(schema == "old" || result.exitCode == 0) << result.err;
    }

    [[nodiscard]] ProgramResult Export(const std::vector<std::string>& arguments) const {
        return world_.Run(With({"export"}, arguments));
    }

    World world_;
};

TEST_F(Exported, FromTheDatabaseItHoldsEveryColumn) {
    const auto before = world_.Snapshot();
    const ProgramResult result =
        Export({"--db", "--man-id", "26", "--dev-id", "A", "--dev-rev", "01", "--prot-id", "00"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out,
              "[000026.000A.01]\n"
              "ManID=26\n"
              "ManName=Acme\n"
              "ManDesc=Acme Inc\n"
              "ProtID=0\n"
              "DevID=0A\n"
              "DevName=Flow\n"
              "DevDesc=Flow meter\n"
              "DevRev=01\n"
              "DevRevName=R1\n"
              "DevRevDesc=First\n"
              "DevCatID=0\n"
              "DevMinCatID=0\n");
    EXPECT_EQ(world_.Snapshot(), before);
}

TEST_F(Exported, FromDdinstalItHoldsEveryKey) {
    const auto before = world_.Snapshot();
    const ProgramResult result = Export({"--ddinstall", "--ddinstall-path", "Ddinstal.ini", "--man-id", "26",
                                         "--dev-rev", "1", "--dev-id", "0A", "--list"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out,
              "ManID\tDevID\tDevRev\tProtID\tManName\tDevName\n"
              "26\t0A\t01\t\tAcme\tLevel\n");
    const ProgramResult other =
        Export({"--ddinstall", "--ddinstall-path", "Ddinstal.ini", "--man-id", "0E0"});
    EXPECT_EQ(other.exitCode, 0);
    EXPECT_EQ(other.err, "");
    EXPECT_EQ(other.out,
              "[0000E0.0001.01]\n"
              "ManID=E0\n"
              "ManName=Best \"one\"\n"
              "DevID=01\n"
              "DevName=\"Heat\" 2\n"
              "DevRev=01\n"
              "DDRev=01\n"
              "ProtRev=05\n"
              "DLLName=d.dll\n"
              "TemplateName=d.mrg\n"
              "DevHelp=\n"
              "BlkHelp=\n"
              "TAVVersions=5.0\n");
    EXPECT_EQ(world_.Snapshot(), before);
}

TEST_F(Exported, EveryDeviceComesBackAsItIs) {
    const std::string rows = world_.AllRows();
    const auto chosen =
        std::vector<std::vector<std::string>>{{"--man-id", "26", "--dev-rev", "1", "--prot-id", "0"},
                                              {"--man-id", "26", "--dev-rev", "1f"},
                                              {"--man-id", "26", "--prot-id", "2"},
                                              {"--man-id", "E0"}};
    for (const auto& choice : chosen) {
        const ProgramResult result =
            Export(With(With({"--db", "--output", "out.ini", "--force"}, choice), {"--quiet"}));
        ASSERT_EQ(result.exitCode, 0) << result.err;
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(world_.Run({"verify", "out.ini", "--db"}).exitCode, 0) << world_.Read("out.ini");
        ASSERT_EQ(world_.Run({"register", "out.ini", "--db"}).exitCode, 0);
        EXPECT_EQ(world_.AllRows(), rows) << world_.Read("out.ini");
    }
    const std::string ddinstal = world_.Read("Ddinstal.ini");
    for (const char* const id : {"26", "E0"}) {
        for (const char* const revision : {"1", "1F"}) {
            const ProgramResult result =
                Export({"--ddinstall", "--ddinstall-path", "Ddinstal.ini", "--man-id", id, "--dev-rev",
                        revision, "--output", "out.ini", "--force"});
            if (std::string(id) == "E0" && std::string(revision) == "1F") {
                EXPECT_EQ(result.exitCode, 2);
                continue;
            }
            ASSERT_EQ(result.exitCode, 0) << result.err;
            EXPECT_EQ(result.err, "");
            EXPECT_EQ(world_.Run({"register", "out.ini", "--ddinstall", "--ddinstall-path", "Ddinstal.ini"})
                          .exitCode,
                      0);
            EXPECT_EQ(world_.Read("Ddinstal.ini"), ddinstal) << world_.Read("out.ini");
        }
    }
}

TEST_F(Exported, WhatTheSourceDoesNotHoldIsGivenByOptions) {
    const ProgramResult result = Export({"--db", "--man-id", "E0", "--set", "dllname=x.dll", "--set",
                                         "TemplateName=a=b", "--set", "DevDesc="});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_NE(result.out.find("\nDevDesc=\nDevRev="), std::string::npos) << result.out;
    EXPECT_TRUE(result.out.ends_with("\nDLLName=x.dll\nTemplateName=a=b\n")) << result.out;
    for (const char* const wrong : {"Colour=red", "DLLName", "=x"}) {
        const ProgramResult refused = Export({"--db", "--man-id", "E0", "--set", wrong});
        EXPECT_EQ(refused.exitCode, 2) << wrong;
        EXPECT_NE(refused.err.find(std::string("--set \"") + wrong + "\" is no KEY=VALUE"), std::string::npos)
            << refused.err;
    }
}

TEST_F(Exported, AnItemIsGivenByItsNameOrItsId) {
    const ProgramResult result =
        Export({"--db", "--man-id", "E0", "--set", "Protocol=HART", "-o", "out.ini"});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(world_.Read("out.ini").find("ProtID="), std::string::npos) << world_.Read("out.ini");
    EXPECT_EQ(world_.Run({"check", "out.ini", "--db"}).exitCode, 0);
}

TEST_F(Exported, NamesThatLookLikeMoreAreWrittenOut) {
    world_.Database().Execute(
        "UPDATE Manufacturers SET Name = 'Best' || char(10) || '27' || char(9) || 'x' "
        "WHERE Name LIKE 'Best%'");
    const ProgramResult result = Export({"--db", "--man-id", "E0", "--list"});
    EXPECT_NE(result.out.find("\tBest\\x0A27\\x09x\t"), std::string::npos) << result.out;
    const ProgramResult compared = world_.Run({"verify", "devices.ini", "--db"});
    EXPECT_NE(compared.out.find("found \"Best\\x0A27\\x09x\"\n"), std::string::npos) << compared.out;
}

TEST_F(Exported, SeveralMatchesAreListedAndRefused) {
    const std::string text = "data source \"PYX\": 2 devices match";
    ExpectRefused(world_, {"export", "--db", "--man-id", "26", "--dev-rev", "1"}, 2,
                  "ventlock-cli: " + text +
                      "\n"
                      "  --man-id 26 --dev-id 0A --dev-rev 01 --prot-id 0  Acme, Flow\n"
                      "  --man-id 26 --dev-id 0A --dev-rev 01 --prot-id 2  Acme, Level\n"
                      "  Choose one with --man-id, --dev-id, --dev-rev and --prot-id.\n");
    ExpectRefusedAsDocument(world_, {"export", "--db", "--man-id", "26", "--dev-rev", "1"}, 2, text);
    ExpectRefused(world_, {"export", "--db", "--man-id", "27"}, 2,
                  "ventlock-cli: data source \"PYX\": there is no such device\n"
                  "  List what is there with --list.\n");
}

TEST_F(Exported, AFileIsReplacedOnlyWhenThatIsWanted) {
    world_.Write("out.ini", "mine");
    ExpectRefused(world_, {"export", "--db", "--man-id", "E0", "-o", "out.ini"}, 2,
                  "ventlock-cli: out.ini exists\n  Name a new file, or replace this one with --force.\n");
    ExpectRefused(
        world_, {"export", "--db", "--man-id", "E0", "-o", "none/out.ini"}, 3,
        "ventlock-cli: none/out.ini: Path not found \"<world>/entry/none/out.ini\": No such file or "
        "directory\n  Make the folder, or name another path.\n");
    for (const std::string path : {"Ddinstal.ini", "./Pyx.ini"}) {
        ExpectRefused(
            world_, {"export", "--db", "--man-id", "E0", "-o", path, "--force"}, 2,
            "ventlock-cli: " + path + " is no entry file\n  Name another file, or remove this one.\n");
    }
    const ProgramResult forced = Export({"--db", "--man-id", "E0", "-o", "out.ini", "--force"});
    EXPECT_EQ(forced.out, "out.ini: written\n");
    const ProgramResult made = Export({"--db", "--man-id", "E0", "-o", "new.ini", "--quiet"});
    EXPECT_EQ(made.out + made.err, "");
    EXPECT_EQ(world_.Read("new.ini"), world_.Read("out.ini"));
    EXPECT_EQ(world_.Read("new.ini").substr(0, 26), "[0000E0.0001.01]\nManID=E0\n");
    EXPECT_EQ(world_.Listing(),
              "Ddinstal.ini Ddinstal.ini.bak Pyx.ini Pyx.ini.bak device.db devices.ini new.ini "
              "out.ini");
}

TEST_F(Exported, TheDocumentHoldsTheEntry) {
    const ProgramResult result = Export({"--db", "--man-id", "E0", "--json"});
    EXPECT_EQ(result.exitCode, 0);
    const auto document = DocumentOf(result.out);
    EXPECT_EQ(document["entry"]["name"], "0000E0.0001.01");
    EXPECT_EQ(document["entry"]["values"]["ManName"], "Best \"one\"");
    EXPECT_EQ(document["text"], Export({"--db", "--man-id", "E0"}).out);
    EXPECT_FALSE(document.contains("warnings"));
    EXPECT_EQ(DocumentOf(Export({"--db", "--list", "--json"}).out)["devices"].size(), 4U);
}

TEST_F(Exported, WhatAnEntryCannotSayIsAWarning) {
    world_.Database().Execute("UPDATE DeviceTypes SET Description = NULL WHERE Name = 'Level'");
    const ProgramResult null = Export({"--db", "--prot-id", "2"});
    EXPECT_EQ(null.exitCode, 0);
    EXPECT_EQ(
        null.err,
        "ventlock-cli: a registration would change the source: DeviceTypes TavDevTypeId=2: Description: "
        "expected \"\", found nothing\n");
    EXPECT_EQ(null.out.find("DevDesc"), std::string::npos);

    world_.Database().Execute("UPDATE DeviceTypes SET Description = 'it''s' WHERE Name = 'Level'");
    const ProgramResult apostrophe = Export({"--db", "--prot-id", "2"});
    EXPECT_EQ(apostrophe.exitCode, 0);
    EXPECT_NE(apostrophe.out.find("\nDevDesc=it's\n"), std::string::npos) << apostrophe.out;
    EXPECT_NE(apostrophe.err.find("stdout:8: error [apostrophe] DevDesc"), std::string::npos)
        << apostrophe.err;
    EXPECT_NE(apostrophe.err.find("the entry cannot be registered in its source as it is: "),
              std::string::npos)
        << apostrophe.err;
}

TEST_F(Exported, AFormThatARegistrationWouldNotKeepIsAWarning) {
    std::string text = world_.Read("Ddinstal.ini");
    const std::string name = "DevTypeDesc=\"Heat\" 2";
    text.replace(text.find(name), name.size(), "DevTypeDesc = 'Heat 2'");
    world_.Write("Ddinstal.ini", text);
    const ProgramResult result =
        Export({"--ddinstall", "--ddinstall-path", "Ddinstal.ini", "--man-id", "E0"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_NE(result.out.find("\nDevName=Heat 2\n"), std::string::npos) << result.out;
    EXPECT_EQ(result.err,
              "ventlock-cli: a registration would write some of the source's lines in another form\n");
    EXPECT_EQ(world_.Read("Ddinstal.ini"), text);
}

TEST_F(Exported, ATextThatNoLineHoldsIsRefused) {
    world_.Database().Execute(
        "UPDATE DeviceTypes SET Description = 'a' || char(10) || 'b' WHERE Name = 'Level'");
    const ProgramResult broken = Export({"--db", "--prot-id", "2"});
    EXPECT_EQ(broken.exitCode, 1);
    EXPECT_EQ(broken.out, "");
    EXPECT_NE(broken.err.find("the device cannot be exported: "), std::string::npos) << broken.err;

    world_.Database().Execute(
        "UPDATE DeviceTypes SET Description = 'a' || char(27) || 'b' WHERE Name = 'Level'");
    const ProgramResult control = Export({"--db", "--prot-id", "2"});
    EXPECT_EQ(control.exitCode, 2);
    EXPECT_EQ(control.out, "");
    EXPECT_EQ(Export({"--db", "--prot-id", "2", "-o", "out.ini"}).exitCode, 0);
    EXPECT_NE(world_.Read("out.ini").find("\nDevDesc=a\x1B"
                                          "b\n"),
              std::string::npos);
}

class ExportedOldSchema : public Exported {
 protected:
    ExportedOldSchema() : Exported("old") {}
};

TEST_F(ExportedOldSchema, HoldsWhatItsTablesHold) {
    const std::string rows = world_.AllRows();
    const ProgramResult result = Export({"--db", "--man-id", "26"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out,
              "[000026.000A.01]\n"
              "ManID=26\n"
              "ManName=Acme\n"
              "DevID=0A\n"
              "DevName=Flow\n"
              "DevRev=01\n"
              "DDRev=02\n"
              "ProtRev=07\n");
    world_.Write("out.ini", result.out);
    EXPECT_EQ(world_.Run({"verify", "out.ini", "--db"}).exitCode, 0);
    EXPECT_EQ(world_.Run({"register", "out.ini", "--db"}).exitCode, 1) << "it is there already";
    EXPECT_EQ(world_.AllRows(), rows);
}

TEST_F(Exported, RevisionsThatNothingLeadsToAreListedAsWell) {
    const auto listed = [&] { return world_.Run({"export", "--db", "--list"}).out; };
    const std::string titles = "ManID\tDevID\tDevRev\tProtID\tManName\tDevName\n";
    world_.Database().Execute("PRAGMA foreign_keys = OFF");
    world_.Database().Execute("DELETE FROM DeviceRevisions WHERE TavDevRevId > 1");
    world_.Database().Execute("DELETE FROM Manufacturers");
    EXPECT_EQ(listed(), titles + "26\t0A\t01\t0\t\tFlow\n");
    world_.Database().Execute("DELETE FROM MfrProtocols");
    EXPECT_EQ(listed(), titles + "\t0A\t01\t\t\tFlow\n");
    world_.Database().Execute("DELETE FROM DeviceTypes");
    EXPECT_EQ(listed(), titles + "\t\t01\t\t\t\n");
}

TEST(Export, OfASourceThatCannotBeReachedEndsWithCode3) {
    const World world;
    ExpectRefused(
        world, {"export", "--ddinstall", "--ddinstall-path", "none.ini"}, 3,
        "ventlock-cli: <world>/entry/none.ini: File not found \"<world>/entry/none.ini\": No such file "
        "or directory\n  Check the path.\n");
    EXPECT_EQ(world.Run({"export", "--db", "--dsn", "NOWHERE"}).exitCode, 3);
}

TEST(Export, OfAWrongCallEndsWithCode2) {
    const World world;
    for (const std::vector<std::string>& sources :
         {std::vector<std::string>{}, std::vector<std::string>{"--db", "--ddinstall"}}) {
        ExpectRefused(world, With({"export"}, sources), 2,
                      "ventlock-cli: an export has one source\n  Give either --db or --ddinstall.\n");
    }
    world.Write("d.ini", "");
    ExpectRefused(world, {"export", "--ddinstall", "--ddinstall-path", "d.ini", "--man-id", "x"}, 2,
                  "ventlock-cli: --man-id \"x\" is no id\n  Give hexadecimal digits, 0A for one.\n");
    for (const std::vector<std::string>& writing :
         {std::vector<std::string>{"--output", "a.ini"}, std::vector<std::string>{"--set", "DLLName=d"},
          std::vector<std::string>{"--force"}}) {
        ExpectRefused(
            world, With({"export", "--ddinstall", "--ddinstall-path", "d.ini", "--list"}, writing), 2,
            "ventlock-cli: --list excludes " + writing.front() + "\n  See \"ventlock-cli export --help\".\n");
    }
}

}  // namespace
}  // namespace ventlock::test
