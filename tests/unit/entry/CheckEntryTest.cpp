#include "entry/CheckEntry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

#include "db/SchemaVersion.h"
#include "support/RowName.h"

namespace ventlock::test {
namespace {

constexpr Targets kAll{true, true, true};
constexpr Targets kDatabase{true, false, false};
constexpr Targets kIni{false, true, false};
constexpr Targets kDDInstall{false, false, true};

/// An entry that no rule objects to; its section's header is line 1.
const std::string kGood = "[A]\nManID=26\nManName=Acme\nDevID=7\nDevName=Flow\nDLLName=Dev\nTemplateName=t\n";

FileEntry EntryOf(const std::string& text) {
    EntryFile file = ParseEntryFile(text);
    EXPECT_TRUE(file.findings.empty());
    return file.entries.at(0);
}

/// The findings as "line severity id: text" lines.
std::string FindingsOf(const std::string& text, const CheckContext& context) {
    std::string lines;
    for (const Finding& finding : CheckEntry(EntryOf(text), context)) {
        lines += std::to_string(finding.line) +
                 (finding.severity == Severity::Error ? " error " : " warning ") + finding.id + ": " +
                 finding.text + "\n";
    }
    return lines;
}

CheckContext Context(const Targets& targets, std::int16_t schema = kCurrentSchema) {
    CheckContext context;
    context.targets = targets;
    context.schemaVersion = schema;
    return context;
}

struct Rule {
    std::string name;
    Targets targets;
    std::int16_t schema;
    std::string text;
    std::string findings;
};

void PrintTo(const Rule& rule, std::ostream* out) {
    *out << rule.name;
}

class EntryRule : public testing::TestWithParam<Rule> {};

TEST_P(EntryRule, FindsExactlyThis) {
    EXPECT_EQ(FindingsOf(GetParam().text, Context(GetParam().targets, GetParam().schema)),
              GetParam().findings);
}

std::string HexFinding(const std::string& key, const std::string& text) {
    return key + " \"" + text + "\" is no hexadecimal number; use the digits 0 to 9 and A to F only\n";
}

INSTANTIATE_TEST_SUITE_P(
    HexDigits, EntryRule,
    testing::Values(Rule{"Good", kAll, kCurrentSchema, kGood, ""},
                    Rule{"SmallLettersAreDigits", kAll, kCurrentSchema, kGood + "DevRev=0a\nDDRev=fF\n", ""},
                    Rule{"ManID", kIni, kCurrentSchema, "[A]\nManID=2G\nDevID=7\nDevName=F\nDLLName=d\n",
                         "2 error hex-digits: " + HexFinding("ManID", "2G")},
                    Rule{"DevID", kIni, kCurrentSchema, "[A]\nManID=2\nDevID=0x7\nDevName=F\nDLLName=d\n",
                         "3 error hex-digits: " + HexFinding("DevID", "0x7")},
                    Rule{"DevRev", kAll, kCurrentSchema, kGood + "DevRev=-1\n",
                         "8 error hex-digits: " + HexFinding("DevRev", "-1")},
                    Rule{"DDRev", kAll, kCurrentSchema, kGood + "DDRev=1 2\n",
                         "8 error hex-digits: " + HexFinding("DDRev", "1 2")},
                    Rule{"ProtRev", kAll, kCurrentSchema, kGood + "ProtRev=V\n",
                         "8 error hex-digits: " + HexFinding("ProtRev", "V")}),
    RowName());

std::string WideFinding(const std::string& key, const std::string& text, int width) {
    return key + " \"" + text + "\" has more than " + std::to_string(width) +
           " digits; Ddinstal.ini never finds it again and gains a section with every write\n";
}

INSTANTIATE_TEST_SUITE_P(
    TooWide, EntryRule,
    testing::Values(
        Rule{"ManID", kAll, kCurrentSchema,
             "[A]\nManID=1234567\nManName=A\nDevID=7\nDevName=F\nDLLName=d\nTemplateName=t\n",
             "2 warning too-wide: " + WideFinding("ManID", "1234567", 6)},
        Rule{"ManIDOfSixDigits", kAll, kCurrentSchema,
             "[A]\nManID=123456\nManName=A\nDevID=7\nDevName=F\nDLLName=d\nTemplateName=t\n", ""},
        Rule{"DevID", kDDInstall, kCurrentSchema,
             "[A]\nManID=1\nManName=A\nDevID=12345\nDevName=F\nDLLName=d\nTemplateName=t\n",
             "4 warning too-wide: " + WideFinding("DevID", "12345", 4)},
        Rule{"RevisionOfMoreDigitsThanANumberKeeps", kAll, kCurrentSchema, kGood + "ProtRev=12345678901234\n",
             "8 error too-large: ProtRev \"12345678901234\" has more than 13 digits; no target keeps such a "
             "number\n"},
        Rule{"RevisionOfAsManyDigitsAsANumberKeeps", kAll, kCurrentSchema, kGood + "ProtRev=1234567890123\n",
             ""},
        Rule{"DevRev", kAll, kCurrentSchema, kGood + "DevRev=001\n",
             "8 warning too-wide: " + WideFinding("DevRev", "001", 2)},
        Rule{"DDRev", kAll, kCurrentSchema, kGood + "DDRev=123\n",
             "8 warning too-wide: " + WideFinding("DDRev", "123", 2)},
        Rule{"ProtRevMayBeWide", kAll, kCurrentSchema, kGood + "ProtRev=00005\n", ""},
        Rule{"OtherFilesFindEveryWidth", {true, true, false}, kCurrentSchema, kGood + "DevRev=001\n", ""}),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    DecimalId, EntryRule,
    testing::Values(Rule{"ProtID", kAll, kCurrentSchema, kGood + "ProtID=A\n",
                         "8 error decimal-id: ProtID \"A\" is no id; use decimal digits only\n"},
                    Rule{"DevCatID", kAll, kCurrentSchema, kGood + "DevCatID=-1\n",
                         "8 error decimal-id: DevCatID \"-1\" is no id; use decimal digits only\n"},
                    Rule{"DevMinCatID", kAll, kCurrentSchema, kGood + "DevMinCatID=\n",
                         "8 error decimal-id: DevMinCatID \"\" is no id; use decimal digits only\n"},
                    Rule{"Good", kAll, kCurrentSchema, kGood + "ProtID=12\nDevCatID=3\nDevMinCatID=4\n", ""}),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    Required, EntryRule,
    testing::Values(
        Rule{"AllOfTheDatabase", kDatabase, kCurrentSchema, "[A]\nDevRev=\n",
             "1 error required: ManID is empty; the database cannot do without it\n"
             "1 error required: ManName is empty; the database cannot do without it\n"
             "1 error required: DevID is empty; the database cannot do without it\n"
             "2 error required: DevRev is empty; the database cannot do without it\n"},
        Rule{"AllOfPyxIni", kIni, kCurrentSchema, "[A]\nDevRev=\nProtRev= \n",
             "1 error required: ManID is empty; Pyx.ini cannot do without it\n"
             "1 error required: DevID is empty; Pyx.ini cannot do without it\n"
             "1 error required: DevName is empty; Pyx.ini cannot do without it\n"
             "1 error required: DLLName is empty; Pyx.ini cannot do without it\n"
             "2 error required: DevRev is empty; Pyx.ini cannot do without it\n"
             "3 error required: ProtRev is empty; Pyx.ini cannot do without it\n"},
        Rule{"AllOfDdinstalIni", kDDInstall, kCurrentSchema, "[A]\nDevRev=\nProtRev=\nDDRev=\nTAVVersions=\n",
             "1 error required: ManID is empty; Ddinstal.ini cannot do without it\n"
             "1 error required: ManName is empty; Ddinstal.ini cannot do without it\n"
             "1 error required: DevID is empty; Ddinstal.ini cannot do without it\n"
             "1 error required: DevName is empty; Ddinstal.ini cannot do without it\n"
             "1 error required: DLLName is empty; Ddinstal.ini cannot do without it\n"
             "1 error required: TemplateName is empty; Ddinstal.ini cannot do without it\n"
             "2 error required: DevRev is empty; Ddinstal.ini cannot do without it\n"
             "3 error required: ProtRev is empty; Ddinstal.ini cannot do without it\n"
             "4 error required: DDRev is empty; Ddinstal.ini cannot do without it\n"
             "5 error required: TAVVersions is empty; Ddinstal.ini cannot do without it\n"},
        Rule{"TargetsThatShareAField", kAll, kCurrentSchema,
             "[A]\nManID=26\nManName=\nDevID=\nDevName=\nDLLName=Dev\nTemplateName=t\n",
             "3 error required: ManName is empty; the database and Ddinstal.ini cannot do without it\n"
             "4 error required: DevID is empty; the database, Pyx.ini and Ddinstal.ini cannot do without it\n"
             "5 error required: DevName is empty; Pyx.ini and Ddinstal.ini cannot do without it\n"}),
    RowName());

const std::string kApostrophe =
    " holds an apostrophe, which ends the text within the statement; write it without\n";
const std::string kQuestionMark =
    " holds a question mark, which the next value of the statement would take; write it without\n";

INSTANTIATE_TEST_SUITE_P(
    StatementTexts, EntryRule,
    testing::Values(
        Rule{"ApostropheInEachText", kDatabase, kCurrentSchema,
             "[A]\nManID=1\nManName='\nDevID=7\nManDesc=a'b\nDevName=a'b\nDevDesc=a'b\nDevRevName=a'b\n"
             "DevRevDesc=a'b\nMajorCategory=a'b\nMinorCategory=a'b\n",
             "3 error apostrophe: ManName" + kApostrophe + "5 error apostrophe: ManDesc" + kApostrophe +
                 "6 error apostrophe: DevName" + kApostrophe + "7 error apostrophe: DevDesc" + kApostrophe +
                 "8 error apostrophe: DevRevName" + kApostrophe + "9 error apostrophe: DevRevDesc" +
                 kApostrophe + "10 error apostrophe: MajorCategory" + kApostrophe +
                 "11 error apostrophe: MinorCategory" + kApostrophe},
        Rule{"QuestionMark", kDatabase, kCurrentSchema, "[A]\nManID=1\nManName=A?B\nDevID=7\nDevDesc=?\n",
             "3 error question-mark: ManName" + kQuestionMark + "5 error question-mark: DevDesc" +
                 kQuestionMark},
        Rule{"BothInOneText", kDatabase, kCurrentSchema, "[A]\nManID=1\nManName=A?'\nDevID=7\n",
             "3 error apostrophe: ManName" + kApostrophe + "3 error question-mark: ManName" + kQuestionMark},
        Rule{"BothAreSafeInTheOldSchema", kDatabase, kOldSchema,
             "[A]\nManID=1\nManName=A?'\nDevID=7\nDevName='?\n", ""},
        Rule{"BothAreSafeInFiles", kIni, kCurrentSchema, "[A]\nManID=1\nDevID=7\nDevName=A?'\nDLLName=d\n",
             ""}),
    RowName());

std::string LongFinding(int line, const std::string& key, int has, int takes) {
    return std::to_string(line) + " error too-long: " + key + " has " + std::to_string(has) +
           " characters; the database takes " + std::to_string(takes) + "\n";
}

const std::string kLongName(65, 'n');
const std::string kLongDescription(256, 'd');

std::string Repeated(std::string_view text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) all += text;
    return all;
}

INSTANTIATE_TEST_SUITE_P(
    TooLong, EntryRule,
    testing::Values(Rule{"EachText", kDatabase, kCurrentSchema,
                         "[A]\nManID=1\nManName=" + kLongName + "\nManDesc=" + kLongDescription +
                             "\nDevID=7\nDevName=" + kLongName + "\nDevDesc=" + kLongDescription +
                             "\nDevRevName=" + kLongName + "\nDevRevDesc=" + kLongDescription +
                             "\nMajorCategory=" + kLongName + "\nMinorCategory=" + kLongName + "\n",
                         LongFinding(3, "ManName", 65, 64) + LongFinding(4, "ManDesc", 256, 255) +
                             LongFinding(6, "DevName", 65, 64) + LongFinding(7, "DevDesc", 256, 255) +
                             LongFinding(8, "DevRevName", 65, 64) + LongFinding(9, "DevRevDesc", 256, 255) +
                             LongFinding(10, "MajorCategory", 65, 64) +
                             LongFinding(11, "MinorCategory", 65, 64)},
                    Rule{"CharactersCountNotBytes", kDatabase, kCurrentSchema,
                         "[A]\nManID=1\nManName=" + Repeated("\u00FC", 64) +
                             "\nDevID=7\nDevName=" + Repeated("\u00FC", 65) + "\n",
                         LongFinding(5, "DevName", 65, 64)},
                    Rule{"OldSchemaHasOnlyTheNames", kDatabase, kOldSchema,
                         "[A]\nManID=1\nManName=" + kLongName + "\nManDesc=" + kLongDescription +
                             "\nDevID=7\nDevName=" + kLongName + "\nDevRevName=" + kLongName + "\n",
                         LongFinding(3, "ManName", 65, 64) + LongFinding(6, "DevName", 65, 64)},
                    Rule{"FilesTakeAnyLength", kIni, kCurrentSchema,
                         "[A]\nManID=1\nDevID=7\nDevName=" + kLongName + "\nDLLName=d\n", ""}),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    ChoicesAndVersions, EntryRule,
    testing::Values(Rule{"Ambiguous", kAll, kCurrentSchema,
                         kGood + "Protocol=HART\nProtID=0\nMajorCategory=Flow\nDevCatID=3\nMinorCategory="
                                 "Gauge\nDevMinCatID=1\n",
                         "8 error ambiguous: Protocol and ProtID are both given; keep one\n"
                         "10 error ambiguous: MajorCategory and DevCatID are both given; keep one\n"
                         "12 error ambiguous: MinorCategory and DevMinCatID are both given; keep one\n"},
                    Rule{"AnEmptyNameIsNoChoice", kAll, kCurrentSchema, kGood + "Protocol=\nProtID=0\n", ""},
                    Rule{"EmptyVersion", kAll, kCurrentSchema, kGood + "TAVVersions=5.0,,6.0\n",
                         "8 warning empty-version: TAVVersions \"5.0,,6.0\" holds an empty version between "
                         "two separators\n"}),
    RowName());

std::string OddFinding(const std::string& item) {
    return "8 warning odd-version: TAVVersions \"" + item +
           "\" is no version such as 5.0; commas and blanks separate one version from the next\n";
}

INSTANTIATE_TEST_SUITE_P(
    Versions, EntryRule,
    testing::Values(
        Rule{"OfManyDigits", kAll, kCurrentSchema, kGood + "TAVVersions=5.0, 10.25 007.0\n", ""},
        Rule{"WithACommaInThem", kAll, kCurrentSchema, kGood + "TAVVersions=5,0\n",
             OddFinding("5") + OddFinding("0")},
        Rule{"OddAmongGood", kAll, kCurrentSchema, kGood + "TAVVersions=5.0, v6.0, 7.0\n",
             OddFinding("v6.0")},
        Rule{"OfThreeParts", kAll, kCurrentSchema, kGood + "TAVVersions=5.0.1\n", OddFinding("5.0.1")},
        Rule{"WithoutDigitsInFront", kAll, kCurrentSchema, kGood + "TAVVersions=.5\n", OddFinding(".5")},
        Rule{"WithoutDigitsBehind", kAll, kCurrentSchema, kGood + "TAVVersions=5.\n", OddFinding("5.")},
        Rule{"WithAnotherSeparator", kAll, kCurrentSchema, kGood + "TAVVersions=5.0;6.0\n",
             OddFinding("5.0;6.0")}),
    RowName());

std::string FolderFinding(const std::string& key, const std::string& text) {
    return key + " \"" + text + "\" names a folder; only the name of a file is expected\n";
}

INSTANTIATE_TEST_SUITE_P(
    FolderInName, EntryRule,
    testing::Values(Rule{"DLLName", kIni, kCurrentSchema, "[A]\nManID=2\nDevID=7\nDevName=F\nDLLName=d/e\n",
                         "5 warning folder-in-name: " + FolderFinding("DLLName", "d/e")},
                    Rule{"TemplateName", kAll, kCurrentSchema,
                         "[A]\nManID=2\nManName=A\nDevID=7\nDevName=F\nDLLName=d\nTemplateName=C:\\t.mrg\n",
                         "7 warning folder-in-name: " + FolderFinding("TemplateName", "C:\\t.mrg")},
                    Rule{"HelpFiles", kAll, kCurrentSchema, kGood + "DevHelp=./h.hlp\nBlkHelp=\\b\n",
                         "8 warning folder-in-name: " + FolderFinding("DevHelp", "./h.hlp") +
                             "9 warning folder-in-name: " + FolderFinding("BlkHelp", "\\b")},
                    Rule{"NotOfOtherKeys", kAll, kCurrentSchema, kGood + "ManDesc=a/b\\c\n", ""}),
    RowName());

TEST(CheckEntry, FindsTextsThatTheFilesOfTheTargetsLack) {
    const ProfileFile ini("", CodePage(1252));
    const ProfileFile ddInstall("\xFF\xFE", CodePage(1252));
    CheckContext context = Context(kAll);
    context.ini = &ini;
    context.ddInstall = &ddInstall;
    const std::string entry =
        "[A]\nManID=26\nManName=\u03A9\nDevID=7\nDevName=\u03A9 "
        "1\nDLLName=\u00FC\nTemplateName=\u03A9\nDevHelp=\u03A9\n";
    const auto finding = [](int line, const std::string& key, const std::string& text) {
        return std::to_string(line) + " error code-page: " + key + " cannot be written to Pyx.ini: \"" +
               text +
               "\" holds a character that code page 1252 lacks; write it without, or store that file as "
               "UTF-16LE "
               "with a mark\n";
    };
    // Ddinstal.ini is UTF-16 and takes them all; the manufacturer's name and the template stand there only.
    EXPECT_EQ(FindingsOf(entry, context),
              finding(5, "DevName", "\u03A9 1") + finding(8, "DevHelp", "\u03A9"));
    context.ddInstall = &ini;
    context.ini = &ddInstall;
    std::string lines = FindingsOf(entry, context);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 4);
    EXPECT_EQ(lines.find("Pyx.ini"), std::string::npos);
    EXPECT_NE(lines.find("3 error code-page: ManName cannot be written to Ddinstal.ini"), std::string::npos);
    EXPECT_NE(lines.find("7 error code-page: TemplateName cannot be written to Ddinstal.ini"),
              std::string::npos);
}

TEST(CheckEntry, LeavesCharactersOfUnknownFilesUnchecked) {
    EXPECT_EQ(FindingsOf("[A]\nManID=26\nDevID=7\nDevName=\u03A9\nDLLName=d\n", Context(kIni)), "");
}

TEST(CheckEntry, LooksForEachResourceFileUnderItsFullName) {
    std::vector<std::string> asked;
    CheckContext context = Context(kAll);
    context.hasResource = [&](const std::string& name) {
        asked.push_back(name);
        return name == "t.mrg";
    };
    EXPECT_EQ(FindingsOf(kGood + "DevHelp=h\nBlkHelp=\n", context),
              "6 warning missing-file: DLLName \"Dev.dll\" is not beside the entry file\n"
              "8 warning missing-file: DevHelp \"h.hlp\" is not beside the entry file\n");
    EXPECT_EQ(asked, (std::vector<std::string>{"Dev.dll", "t.mrg", "h.hlp"}));
}

TEST(CheckEntry, LooksForNoResourceFileInAFolder) {
    CheckContext context = Context(kAll);
    context.hasResource = [](const std::string& name) { return name == "Dev.dll" || name == "t.mrg"; };
    EXPECT_EQ(FindingsOf(kGood + "DevHelp=help/h.hlp\n", context),
              "8 warning folder-in-name: " + FolderFinding("DevHelp", "help/h.hlp"));
}

TEST(CheckEntry, SortsItsFindingsByLine) {
    int last = 0;
    const auto findings =
        CheckEntry(EntryOf("[A]\nTAVVersions=,,\nManName=O'N\nManID=x\nProtID=y\n"), Context(kAll));
    ASSERT_GE(findings.size(), 6U);
    for (const Finding& finding : findings) {
        EXPECT_GE(finding.line, last);
        last = finding.line;
    }
}

TEST(HasErrors, IsTrueForAnErrorAmongWarnings) {
    EXPECT_FALSE(HasErrors({}));
    EXPECT_FALSE(HasErrors({{1, Severity::Warning, "too-wide", ""}}));
    EXPECT_TRUE(HasErrors({{1, Severity::Warning, "too-wide", ""}, {2, Severity::Error, "required", ""}}));
}

}  // namespace
}  // namespace ventlock::test
