#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>

#include "e2e/Refused.h"
#include "support/RowName.h"

namespace ventlock::test {
namespace {

constexpr const char* kEnd =
    "ventlock-cli: the entry files hold errors; nothing was written\n"
    "  Mend what the findings name and run the command again.\n";

struct BadEntry {
    std::string name;
    std::string bytes;
    std::string findings;
};

void PrintTo(const BadEntry& row, std::ostream* out) {
    *out << row.name;
}

class BadEntryFile : public testing::TestWithParam<BadEntry> {};

TEST_P(BadEntryFile, IsRefusedWithCode2AndChangesNothing) {
    const World world;
    world.MakeDatabase();
    world.Write("entry.ini", GetParam().bytes);
    world.Write("Pyx.ini", "[TAV Server 1]\nDataSourceName=PYX\n");
    const std::string rows = world.AllRows();
    ExpectRefused(world, kRegisterEntry, 2, GetParam().findings + kEnd);
    ExpectRefusedAsDocument(world, kRegisterEntry, 2, "the entry files hold errors; nothing was written");
    EXPECT_EQ(world.AllRows(), rows);
}

using namespace std::string_literals;

const std::string kGood = "ManID=26\nManName=Acme\nDevID=7\nDevName=Flow\nDLLName=d\nTemplateName=t\n";

INSTANTIATE_TEST_SUITE_P(
    Rows, BadEntryFile,
    testing::Values(
        BadEntry{
            "Empty", "",
            "entry.ini: error [no-section] the file holds no entry; begin each one with a line [name]\n"},
        BadEntry{
            "WithoutSections", "ManID=26\nManName=Acme\n",
            "entry.ini:1: error [no-section] \"ManID\" stands before the first section; begin the entry with "
            "a line [name]\n"
            "entry.ini:2: error [no-section] \"ManName\" stands before the first section; begin the entry "
            "with a line [name]\n"},
        BadEntry{
            "NoUtf8", "[A]\n" + kGood + "ManDesc=\xFF\xFE\n",
            "entry.ini:8: error [not-text] the file is no text in UTF-8 from here on; save it as UTF-8, or "
            "as UTF-16 with a mark\n"},
        BadEntry{
            "ANulByte", "[A]\nMan\0ID=26\n"s,
            "entry.ini:2: error [not-text] the file is no text in UTF-8 from here on; save it as UTF-8, or "
            "as UTF-16 with a mark\n"},
        BadEntry{
            "AnUnknownKey", "[A]\n" + kGood + "Colour=red\n",
            "entry.ini:8: error [unknown-key] \"Colour\" is no key of an entry; the keys are ManID, ManName, "
            "ManDesc, ProtID, DevID, DevName, DevDesc, DevRev, DDRev, ProtRev, DevRevName, DevRevDesc, "
            "DevCatID, DevMinCatID, DLLName, TemplateName, DevHelp, BlkHelp, TAVVersions, Protocol, "
            "MajorCategory, MinorCategory\n"},
        BadEntry{
            "ADuplicatedSection", "[A]\n" + kGood + "[a]\n" + kGood,
            "entry.ini:8: error [duplicate-section] section [a] stands twice; give each entry a name of its "
            "own\n"},
        BadEntry{"ADuplicatedKey", "[A]\n" + kGood + "manid=27\n",
                 "entry.ini:8: error [duplicate-key] \"manid\" stands twice in this section; keep one\n"},
        BadEntry{"AnOddLine", "[A]\n" + kGood + "Acme\n",
                 "entry.ini:8: error [syntax] the line is no section, no key=value and no comment\n"},
        BadEntry{
            "ANonHexadecimalId", "[A]\nManID=2G\nManName=A\nDevID=7\nDevName=F\nDLLName=d\nTemplateName=t\n",
            "entry.ini:2: error [hex-digits] ManID \"2G\" is no hexadecimal number; use the digits 0 to 9 "
            "and A to F only\n"},
        BadEntry{"AnEmptyRequiredField",
                 "[A]\nManID=26\nManName=\nDevID=7\nDevName=F\nDLLName=d\nTemplateName=t\n",
                 "entry.ini:3: error [required] ManName is empty; the database and Ddinstal.ini cannot do "
                 "without it\n"},
        BadEntry{
            "AllWrongAtOnce", "[A]\nManID=\nManName=O'Neil\nDevID=x\nDevName=F\nDLLName=d\nDevRev=\n",
            "entry.ini:1: error [required] TemplateName is empty; Ddinstal.ini cannot do without it\n"
            "entry.ini:2: error [required] ManID is empty; the database, Pyx.ini and Ddinstal.ini cannot do "
            "without it\n"
            "entry.ini:4: error [hex-digits] DevID \"x\" is no hexadecimal number; use the digits 0 to 9 and "
            "A to F only\n"
            "entry.ini:7: error [required] DevRev is empty; the database, Pyx.ini and Ddinstal.ini cannot do "
            "without it\n"},
        BadEntry{
            "AnApostrophe", "[A]\n" + kGood + "ManDesc=Neil's\n",
            "entry.ini:8: error [apostrophe] ManDesc holds an apostrophe, which ends the text within the "
            "statement; write it without\n"},
        BadEntry{
            "AQuestionMark", "[A]\n" + kGood + "DevDesc=Flow?\n",
            "entry.ini:8: error [question-mark] DevDesc holds a question mark, which the next value of the "
            "statement would take; write it without\n"},
        BadEntry{
            "AnUnknownProtocol", "[A]\n" + kGood + "Protocol=Modbus\n",
            "entry.ini:8: error [unknown-protocol] the database has no protocol \"Modbus\"; it has HART (0), "
            "Fieldbus (1), Conventional (2)\n"},
        BadEntry{
            "AnUnknownCategoryId", "[A]\n" + kGood + "Protocol=Conventional\nDevMinCatID=99\n",
            "entry.ini:9: error [unknown-category] the database has no minor category \"99\"; it has Not "
            "classified (0), Gauge (1), Differential (2), Absolute (3), Thermocouple (4), Resistance "
            "thermometer (5), Magnetic (6), Coriolis (7), Vortex (8), Ultrasonic (9), Radar (10), "
            "Hydrostatic "
            "(11), Control valve (12), On-off valve (13), pH and redox (14), Conductivity (15), Dissolved "
            "oxygen (16), Multivariable (17)\n"},
        BadEntry{
            "ACharacterThatTheFilesLack",
            "[A]\nManID=26\nManName=A\nDevID=7\nDevName=\u03A9\nDLLName=d\nTemplateName=t\n",
            "entry.ini:5: error [code-page] DevName cannot be written to Pyx.ini: "
            "\"\u03A9\" holds a character that code page 1252 lacks; write it without, or store that file as "
            "UTF-16LE with a mark\n"
            "entry.ini:5: error [code-page] DevName cannot be written to Ddinstal.ini: "
            "\"\u03A9\" holds a character that code page 1252 lacks; write it without, or store that file as "
            "UTF-16LE with a mark\n"}),
    RowName());

TEST(EntryFile, ThatIsMissingIsRefusedWithCode2) {
    const World world;
    world.MakeDatabase();
    ExpectRefused(
        world, kRegisterEntry, 2,
        "ventlock-cli: entry file entry.ini: File not found \"<world>/entry/entry.ini\": No such file or "
        "directory\n"
        "  Check the path.\n");
    ExpectRefusedAsDocument(
        world, kRegisterEntry, 2,
        "entry file entry.ini: File not found \"<world>/entry/entry.ini\": No such file or directory");
}

TEST(EntryFile, ThatMayNotBeReadIsRefusedWithCode2) {
    World world;
    world.MakeDatabase();
    world.Write("entry.ini", kFlowEntry);
    std::filesystem::permissions(world.Path("entry.ini"), std::filesystem::perms::none);
    const ProgramResult result = world.RunAsOrdinaryUser(kRegisterEntry);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(
        result.err,
        "ventlock-cli: entry file entry.ini: Path/File access error \"<world>/entry/entry.ini\": Permission "
        "denied\n"
        "  Check that the path names a file, not a folder, and that you may read and write it.\n");
    EXPECT_EQ(world.Listing(), "device.db entry.ini");
}

TEST(EntryFile, OfABatchThatIsWrongKeepsTheGoodOnesFromBeingWrittenToo) {
    const World world;
    world.MakeDatabase();
    world.Write("entry.ini", kFlowEntry);
    world.Write("wrong.ini", "[W]\nManID=2G\nManName=A\nDevID=7\n");
    const std::string rows = world.AllRows();
    ExpectRefused(
        world, {"register", "entry.ini", "wrong.ini", "--db"}, 2,
        std::string("wrong.ini:2: error [hex-digits] ManID \"2G\" is no hexadecimal number; use the "
                    "digits 0 to 9 and A to F only\n") +
            kEnd);
    EXPECT_EQ(world.AllRows(), rows);
}

TEST(EntryFile, InUtf16WithAMarkIsRead) {
    const World world;
    std::string bytes = "\xFF\xFE";
    for (const char c : kFlowEntry) bytes += {c, '\0'};
    world.Write("entry.ini", bytes);
    EXPECT_EQ(world.Run({"register", "entry.ini", "--ini", "--ini-path", "Pyx.ini"}).exitCode, 0);
    EXPECT_EQ(world.Read("Pyx.ini"), kFlowPyxIni);
}

}  // namespace
}  // namespace ventlock::test
