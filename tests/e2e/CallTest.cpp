#include <gtest/gtest.h>

#include "e2e/Refused.h"

namespace ventlock::test {
namespace {

TEST(Call, WithoutACommandIsRefusedWithCode2) {
    const World world;
    ExpectRefused(world, {}, 2,
                  "ventlock-cli: A subcommand is required\n"
                  "  See \"ventlock-cli --help\".\n");
    ExpectRefusedAsDocument(world, {}, 2, "A subcommand is required");
}

TEST(Call, WithAnUnknownCommandIsRefusedWithCode2) {
    const World world;
    ExpectRefused(
        world, {"inscribe"}, 2,
        "ventlock-cli: \"inscribe\" is no command; the commands are register, verify, export, check, "
        "database, settings\n"
        "  See \"ventlock-cli --help\".\n");
    ExpectRefused(world, {"--timeout", "5", "database", "creat", "--file", "device.db"}, 2,
                  "ventlock-cli: \"creat\" is no command; the commands are create, info, list, sources\n"
                  "  Did you mean create? See \"ventlock-cli database --help\".\n");
}

TEST(Call, WithAnUnknownOptionIsRefusedWithCode2) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    ExpectRefused(world, {"register", "entry.ini", "--everywhere"}, 2,
                  "ventlock-cli: The following argument was not expected: --everywhere\n"
                  "  See \"ventlock-cli register --help\".\n");
    ExpectRefusedAsDocument(world, {"register", "entry.ini", "--everywhere"}, 2,
                            "The following argument was not expected: --everywhere");
}

TEST(Call, WithAMisspeltOptionIsToldTheOneThatWasMeant) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    ExpectRefused(world, {"register", "entry.ini", "--all", "--dryrun"}, 2,
                  "ventlock-cli: The following argument was not expected: --dryrun\n"
                  "  Did you mean --dry-run? See \"ventlock-cli register --help\".\n");
}

TEST(Call, WithoutATargetIsRefusedWithCode2) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    ExpectRefused(world, {"register", "entry.ini"}, 2,
                  "ventlock-cli: no target was named\n"
                  "  Add --db, --ini, --ddinstall or --all.\n");
    ExpectRefusedAsDocument(world, {"register", "entry.ini"}, 2, "no target was named");
}

TEST(Call, WithoutAFileIsRefusedWithCode2) {
    const World world;
    ExpectRefused(world, {"register", "--all"}, 2,
                  "ventlock-cli: FILE is required\n"
                  "  See \"ventlock-cli register --help\".\n");
}

TEST(Call, WithATimeLimitOutOfRangeIsRefusedWithCode2) {
    const World world;
    ExpectRefused(world, {"database", "info", "--timeout", "0"}, 2,
                  "ventlock-cli: --timeout: Value 0 not in range 1 to 3600\n"
                  "  See \"ventlock-cli database info --help\".\n");
}

TEST(Call, ForHelpOrVersionIsAnsweredOnStdoutAndTouchesNothing) {
    const World world;
    const auto before = world.Snapshot();
    const ProgramResult version = world.Run({"--version"});
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_EQ(version.out, "ventlock-cli 2.1.5 (" + std::to_string(8 * sizeof(void*)) + " bit)\n");
    EXPECT_EQ(version.err, "");
    for (const auto& call : std::vector<std::vector<std::string>>{{"--help"},
                                                                  {"register", "--help"},
                                                                  {"check", "--help"},
                                                                  {"database", "create", "--help"},
                                                                  {"settings", "set", "--help"}}) {
        const ProgramResult help = world.Run(call);
        EXPECT_EQ(help.exitCode, 0);
        EXPECT_EQ(help.err, "");
        EXPECT_NE(help.out.find("\nUsage: ventlock-cli"), std::string::npos) << help.out;
        const ProgramResult asDocument = world.Run(With(call, {"--json"}));
        EXPECT_EQ(asDocument.exitCode, 0);
        EXPECT_EQ(DocumentOf(asDocument.out)["text"], help.out);
    }
    EXPECT_EQ(world.Snapshot(), before);
}

TEST(Call, WhoseAnswerCannotBeWrittenEndsWithCode1) {
    const World world;
    ProgramCall call = world.Call({"settings", "list"});
    call.answersGoToAFullDisk = true;
    const ProgramResult result = world.Finished(call);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err,
              "ventlock-cli: everything was done, but the answer could not be written to stdout\n"
              "  Check where stdout leads to, for example whether its disk is full.\n");
}

TEST(Check, FindsEverythingAtOnceAndWritesNothing) {
    const World world;
    world.Write(
        "entry.ini",
        "[A]\nManID=2G\nManName=O'Neil\nDevID=\nDevName=F\nDLLName=d\nTemplateName=t\nTAVVersions=5.0,,6.0\n"
        "Colour=red\nProtocol=HART\nProtID=0\n");
    const auto before = world.Snapshot();
    const ProgramResult result = world.Run({"check", "entry.ini"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(
        result.out,
        "entry.ini:2: error [hex-digits] ManID \"2G\" is no hexadecimal number; use the digits 0 to 9 and A "
        "to F only\n"
        "entry.ini:3: error [apostrophe] ManName holds an apostrophe, which ends the text within the "
        "statement; write it without\n"
        "entry.ini:4: error [required] DevID is empty; the database, Pyx.ini and Ddinstal.ini cannot do "
        "without it\n"
        "entry.ini:6: warning [missing-file] DLLName \"d.dll\" is not beside the entry file\n"
        "entry.ini:7: warning [missing-file] TemplateName \"t.mrg\" is not beside the entry file\n"
        "entry.ini:8: warning [empty-version] TAVVersions \"5.0,,6.0\" holds an empty version between two "
        "separators\n"
        "entry.ini:9: error [unknown-key] \"Colour\" is no key of an entry; the keys are ManID, ManName, "
        "ManDesc, ProtID, DevID, DevName, DevDesc, DevRev, DDRev, ProtRev, DevRevName, DevRevDesc, DevCatID, "
        "DevMinCatID, DLLName, TemplateName, DevHelp, BlkHelp, TAVVersions, Protocol, MajorCategory, "
        "MinorCategory\n"
        "entry.ini:10: error [ambiguous] Protocol and ProtID are both given; keep one\n"
        "5 errors, 3 warnings\n");
    EXPECT_EQ(world.Snapshot(), before);
}

TEST(Check, OfAGoodEntryWithItsFilesFindsNothing) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    for (const char* const name : {"Dev.dll", "t.mrg", "h.hlp"}) world.Write(name, "");
    const ProgramResult result = world.Run({"check", "entry.ini"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, "0 errors, 0 warnings\n");
    EXPECT_EQ(world.Run({"check", "entry.ini", "--quiet"}).out, "");
    EXPECT_EQ(world.Run({"check", "entry.ini", "--strict"}).exitCode, 0);
}

TEST(Check, CountsWarningsAsErrorsOnlyWhenItIsToldTo) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    EXPECT_EQ(world.Run({"check", "entry.ini"}).exitCode, 0);
    EXPECT_EQ(world.Run({"check", "entry.ini", "--strict"}).exitCode, 2);
}

TEST(Check, LooksOnlyAtWhatTheNamedTargetsNeed) {
    const World world;
    world.Write("entry.ini", "[A]\nManID=26\nManName=O'Neil\nDevID=7\n");
    EXPECT_EQ(world.Run({"check", "entry.ini", "--db", "--schema", "old"}).out, "0 errors, 0 warnings\n");
    EXPECT_EQ(world.Run({"check", "entry.ini", "--db"}).exitCode, 2);
    EXPECT_EQ(world.Run({"check", "entry.ini", "--ini"}).out,
              "entry.ini:1: error [required] DevName is empty; Pyx.ini cannot do without it\n"
              "entry.ini:1: error [required] DLLName is empty; Pyx.ini cannot do without it\n"
              "2 errors, 0 warnings\n");
}

TEST(Check, FindsTheSameDeviceInAllFilesOfACall) {
    const World world;
    world.Write("a.ini",
                "[A]\nManID=26\nManName=A\nDevID=0a\n\n[B]\nManID=26\nManName=A\nDevID=A\nDevRev=1\n");
    world.Write("b.ini",
                "; another file\n[C]\nManID=000026\nManName=A\nDevID=A\n[D]\nManID=26\nManName=A\nDevID=B\n");
    const ProgramResult result = world.Run({"check", "a.ini", "b.ini", "--db"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out,
              "a.ini:6: warning [same-device] the same device as a.ini:1 [A]\n"
              "b.ini:2: warning [same-device] the same device as a.ini:1 [A]\n"
              "0 errors, 2 warnings\n");
    EXPECT_EQ(world.Run({"check", "a.ini", "b.ini", "--db", "--strict"}).exitCode, 2);
}

TEST(Check, CountsInWords) {
    const World world;
    world.Write("entry.ini", "[A]\nManID=26\nManName=A\nDevID=7G\nDLLName=d\n");
    EXPECT_EQ(world.Run({"check", "entry.ini", "--db"}).out,
              "entry.ini:4: error [hex-digits] DevID \"7G\" is no hexadecimal number; use the digits 0 to 9 "
              "and A to F only\n"
              "entry.ini:5: warning [missing-file] DLLName \"d.dll\" is not beside the entry file\n"
              "1 error, 1 warning\n");
}

TEST(Check, GivesAFindingOfTheWholeFileWithoutALine) {
    const World world;
    world.Write("entry.ini", "");
    EXPECT_EQ(world.Run({"check", "entry.ini"}).out,
              "entry.ini: error [no-section] the file holds no entry; begin each one with a line [name]\n"
              "1 error, 0 warnings\n");
    EXPECT_EQ(DocumentOf(world.Run({"check", "entry.ini", "--json"}).out)["findings"][0]["line"], 0);
}

TEST(Check, GivesItsFindingsAsADocument) {
    const World world;
    world.Write("entry.ini", "[A]\nManID=26\nManName=A\nDevID=7G\n");
    const ProgramResult result = world.Run({"check", "entry.ini", "--db", "--json"});
    EXPECT_EQ(result.exitCode, 2);
    const auto document = DocumentOf(result.out);
    EXPECT_EQ(document["command"], "check");
    EXPECT_EQ(document["exitCode"], 2);
    EXPECT_EQ(document["findings"],
              nlohmann::ordered_json::parse(
                  R"([{"file": "entry.ini", "line": 4, "severity": "error", "id": "hex-digits",
                       "text": "DevID \"7G\" is no hexadecimal number; use the digits 0 to 9 and A to F only"}])"));
    EXPECT_EQ(document["files"], nlohmann::ordered_json::parse(R"([{"file": "entry.ini", "entries": 1}])"));
}

TEST(Check, OfAMissingFileEndsWithCode2) {
    const World world;
    ExpectRefusedAsDocument(
        world, {"check", "entry.ini"}, 2,
        "entry file entry.ini: File not found \"<world>/entry/entry.ini\": No such file or directory");
}

}  // namespace
}  // namespace ventlock::test
