#include "entry/EntryFile.h"

#include <gtest/gtest.h>

#include <ostream>

#include "support/Raised.h"
#include "support/RowName.h"

namespace ventlock {

static void PrintTo(const Finding& finding, std::ostream* out) {
    *out << finding.line << ' ' << (finding.severity == Severity::Error ? "error" : "warning") << " ["
         << finding.id << "] " << finding.text;
}

namespace test {
namespace {

using namespace std::string_literals;

constexpr auto kError = Severity::Error;

Finding NotText(int line) {
    return {line, kError, "not-text",
            "the file is no text in UTF-8 from here on; save it as UTF-8, or as UTF-16 with a mark"};
}

std::string Utf16(std::string_view ascii) {
    std::string bytes = "\xFF\xFE";
    for (const char c : ascii) bytes += {c, '\0'};
    return bytes;
}

/// A file that is in order: its entries as "name@line: key@line=text|..." each.
struct GoodFile {
    std::string name;
    std::string bytes;
    std::string entries;
};

void PrintTo(const GoodFile& row, std::ostream* out) {
    *out << row.name;
}

std::string EntriesOf(const EntryFile& file) {
    std::string text;
    for (const FileEntry& entry : file.entries) {
        text += entry.name + "@" + std::to_string(entry.line) + ":";
        for (const auto& [key, value] : entry.values) {
            text += " " + key + "@" + std::to_string(value.line) + "=" + value.text + "|";
        }
        text += "\n";
    }
    return text;
}

class GoodEntryFile : public testing::TestWithParam<GoodFile> {};

TEST_P(GoodEntryFile, GivesItsEntriesWithTheirLines) {
    const EntryFile file = ParseEntryFile(GetParam().bytes);
    EXPECT_EQ(EntriesOf(file), GetParam().entries);
    EXPECT_EQ(file.findings, std::vector<Finding>());
}

INSTANTIATE_TEST_SUITE_P(
    Files, GoodEntryFile,
    testing::Values(
        GoodFile{"OneEntry", "[A]\nManID=26\nDevID=7\n", "A@1: DevID@3=7| ManID@2=26|\n"},
        GoodFile{"TwoEntries", "[A]\nManID=26\n[B]\nManID=27\n", "A@1: ManID@2=26|\nB@3: ManID@4=27|\n"},
        GoodFile{"WithoutKeys", "[A]\n", "A@1:\n"},
        GoodFile{"CrLf", "[A]\r\nManID=26\r\n", "A@1: ManID@2=26|\n"},
        GoodFile{"CrOnly", "[A]\rManID=26\r", "A@1: ManID@2=26|\n"},
        GoodFile{"NoLastLineEnd", "[A]\nManID=26", "A@1: ManID@2=26|\n"},
        GoodFile{"CommentsAndBlankLines", "; first\n\n[A]\n; ManID=1\n  \nManID=26\n", "A@3: ManID@6=26|\n"},
        GoodFile{"KeysInAnyCase", "[A]\nmanid=26\nDEVNAME=Flow\n", "A@1: DevName@3=Flow| ManID@2=26|\n"},
        GoodFile{"BlanksAround", "[ A ]\n  ManID =  26  \n", "A@1: ManID@2=26|\n"},
        GoodFile{"Quotes", "[A]\nManName=\" Acme \"\nDevName='Flow'\n",
                 "A@1: DevName@3=Flow| ManName@2= Acme |\n"},
        GoodFile{"EqualsSignInTheValue", "[A]\nManDesc=a=b\n", "A@1: ManDesc@2=a=b|\n"},
        GoodFile{"EmptyValue", "[A]\nManDesc=\n", "A@1: ManDesc@2=|\n"},
        GoodFile{"Utf8", "[K\u00FChler]\nManName=\u03A9\n", "K\u00FChler@1: ManName@2=\u03A9|\n"},
        GoodFile{"Utf8WithAMark", "\xEF\xBB\xBF[A]\nManID=26\n", "A@1: ManID@2=26|\n"},
        GoodFile{"Utf16WithAMark", Utf16("[A]\r\nManID=26\r\n"), "A@1: ManID@2=26|\n"},
        GoodFile{
            "EveryKey",
            "[A]\nManID=a\nManName=b\nManDesc=c\nProtID=d\nDevID=e\nDevName=f\nDevDesc=g\nDevRev=h\nDDRev=i\n"
            "ProtRev=j\nDevRevName=k\nDevRevDesc=l\nDevCatID=m\nDevMinCatID=n\nDLLName=o\nTemplateName=p\n"
            "DevHelp=q\nBlkHelp=r\nTAVVersions=s\nProtocol=t\nMajorCategory=u\nMinorCategory=v\n",
            "A@1: BlkHelp@19=r| DDRev@10=i| DLLName@16=o| DevCatID@14=m| DevDesc@8=g| DevHelp@18=q| "
            "DevID@6=e| "
            "DevMinCatID@15=n| DevName@7=f| DevRev@9=h| DevRevDesc@13=l| DevRevName@12=k| "
            "MajorCategory@22=u| ManDesc@4=c| ManID@2=a| ManName@3=b| MinorCategory@23=v| ProtID@5=d| "
            "ProtRev@11=j| Protocol@21=t| TAVVersions@20=s| TemplateName@17=p|\n"}),
    RowName());

struct BadFile {
    std::string name;
    std::string bytes;
    std::vector<Finding> findings;
};

void PrintTo(const BadFile& row, std::ostream* out) {
    *out << row.name;
}

class BadEntryFile : public testing::TestWithParam<BadFile> {};

TEST_P(BadEntryFile, GivesExactlyTheseFindings) {
    EXPECT_EQ(ParseEntryFile(GetParam().bytes).findings, GetParam().findings);
}

const std::string kKeyNames =
    "ManID, ManName, ManDesc, ProtID, DevID, DevName, DevDesc, DevRev, DDRev, ProtRev, DevRevName, "
    "DevRevDesc, "
    "DevCatID, DevMinCatID, DLLName, TemplateName, DevHelp, BlkHelp, TAVVersions, Protocol, MajorCategory, "
    "MinorCategory";

INSTANTIATE_TEST_SUITE_P(
    Files, BadEntryFile,
    testing::Values(
        BadFile{"Empty",
                "",
                {{0, kError, "no-section", "the file holds no entry; begin each one with a line [name]"}}},
        BadFile{"CommentsOnly",
                "; nothing\n\n",
                {{0, kError, "no-section", "the file holds no entry; begin each one with a line [name]"}}},
        BadFile{"KeyBeforeTheFirstSection",
                "ManID=26\n[A]\n",
                {{1, kError, "no-section",
                  "\"ManID\" stands before the first section; begin the entry with a line [name]"}}},
        BadFile{"DuplicateSectionInOtherCase",
                "[Flow]\n[flow]\n",
                {{2, kError, "duplicate-section",
                  "section [flow] stands twice; give each entry a name of its own"}}},
        BadFile{"DuplicateKeyInOtherCase",
                "[A]\nManID=1\nMANID=2\n",
                {{3, kError, "duplicate-key", "\"MANID\" stands twice in this section; keep one"}}},
        BadFile{"UnknownKey",
                "[A]\nColour=red\n",
                {{2, kError, "unknown-key", "\"Colour\" is no key of an entry; the keys are " + kKeyNames}}},
        BadFile{"OddLine",
                "[A]\nManID\n",
                {{2, kError, "syntax", "the line is no section, no key=value and no comment"}}},
        BadFile{"EverythingAtOnce",
                "odd\nManID=1\n[A]\nX=1\n[A]\n",
                {{1, kError, "syntax", "the line is no section, no key=value and no comment"},
                 {2, kError, "no-section",
                  "\"ManID\" stands before the first section; begin the entry with a line [name]"},
                 {4, kError, "unknown-key", "\"X\" is no key of an entry; the keys are " + kKeyNames},
                 {5, kError, "duplicate-section",
                  "section [A] stands twice; give each entry a name of its own"}}},
        BadFile{"NoUtf8", "[A]\nManName=K\xFChler\n", {NotText(2)}},
        BadFile{"CutUtf8", "[A]\nManName=\xC3\n", {NotText(2)}},
        BadFile{"OverlongUtf8", "\xC0\x80\n", {NotText(1)}},
        BadFile{"NulByte", "[A]\nManID=2\n\0\n"s, {NotText(3)}},
        BadFile{"Utf16OfAnOddNumberOfBytes", Utf16("[A]") + "x", {NotText(1)}},
        BadFile{"Utf16WithoutAMark", Utf16("[A]").substr(2), {NotText(1)}}),
    RowName());

std::string UnknownKeyText(const std::string& key) {
    const std::vector<Finding> findings = ParseEntryFile("[A]\n" + key + "=1\n").findings;
    return findings.size() == 1 && findings[0].id == "unknown-key" ? findings[0].text : "";
}

TEST(EntryFile, AKeyThatIsNearAnotherIsTakenForAMisspeltOne) {
    for (const char* const key : {"DevNam", "devnmae", "Dev Name", "DEVNAMES", "DefName"}) {
        EXPECT_EQ(UnknownKeyText(key),
                  "\"" + std::string(key) + "\" is no key of an entry; did you mean DevName?");
    }
    EXPECT_EQ(UnknownKeyText("TAVVersion"),
              "\"TAVVersion\" is no key of an entry; did you mean TAVVersions?");
    EXPECT_EQ(UnknownKeyText("Rev"), "\"Rev\" is no key of an entry; the keys are " + kKeyNames);
}

TEST(FindingLine, NamesPathLineSeverityAndId) {
    EXPECT_EQ(FindingLine("a/b.ini", {7, kError, "hex-digits", "no number"}),
              "a/b.ini:7: error [hex-digits] no number");
    EXPECT_EQ(FindingLine("b.ini", {0, Severity::Warning, "too-wide", "too wide"}),
              "b.ini: warning [too-wide] too wide");
}

TEST(EntryFile, AHalfCharacterOfUtf16IsNoText) {
    EXPECT_EQ(ParseEntryFile("\xFF\xFE[\0A\0]\0\n\0\x00\xD8\n\0"s).findings,
              std::vector<Finding>{NotText(2)});
}

TEST(EntryFile, OfAnotherProgramIsToldByItsKeys) {
    for (const char* const bytes : {"[.ShellClassInfo]\nIconFile=a.ico\n", "Colour=red\n",
                                    "[Mfg1]\nID=000026\nName=Caf\xE9\n", "[A]\nMan\xE9ID=1\nold\n"}) {
        EXPECT_FALSE(MayBeEntryFile(bytes)) << bytes;
    }
    using namespace std::string_literals;
    for (const std::string& bytes :
         {""s, "[A]\n"s, "; nothing yet\n"s, "no key\n"s, "ManID=26\n"s, "[A]\n\tmanid =26\nColour=red\n"s,
          "[A]\nColour=red\nManDesc=Caf\xE9\n"s, "M\0a\0n\0I\0D\0=\0"s, "\xEF\xBB\xBFManID=26\n"s,
          "\xFF\xFE"s + "M\0a\0n\0I\0D\0=\0"s, "\xFF\xFE"s + "a\0=\0b"s}) {
        EXPECT_TRUE(MayBeEntryFile(bytes)) << bytes;
    }
    EXPECT_FALSE(MayBeEntryFile("\xFF\xFE"s + "a\0=\0b\0"s));
}

TEST(FileEntry, GivesDefaultsAndTheHeadersLineForKeysThatAreAbsent) {
    const EntryFile file = ParseEntryFile("\n[A]\nManID=26\n");
    ASSERT_EQ(file.entries.size(), 1U);
    const FileEntry& entry = file.entries.front();
    EXPECT_EQ(entry.Text("ManID"), "26");
    EXPECT_EQ(entry.Line("ManID"), 3);
    EXPECT_TRUE(entry.Has("ManID"));
    EXPECT_EQ(entry.Line("DevID"), 2);
    EXPECT_FALSE(entry.Has("DevID"));
    EXPECT_EQ(entry.Text("Colour"), "");
}

TEST(EntryText, IsReadBackAsItWas) {
    FileEntry entry{"Caf\xC3\xA9 1", 1, {}};
    for (const EntryKey& key : EntryKeys()) entry.values[std::string(key.name)] = {"x", 0};
    entry.values["ManName"].text = "";
    entry.values["ManDesc"].text = " blanks\t";
    entry.values["DevName"].text = "\"quoted\"";
    entry.values["DevDesc"].text = "'";
    entry.values["DevRevName"].text = "''";
    entry.values["DevRevDesc"].text = "\" [a]; b = c";
    entry.values["DLLName"].text = "; no comment";
    const EntryFile file = ParseEntryFile(EntryText(entry));
    EXPECT_EQ(file.findings, std::vector<Finding>());
    ASSERT_EQ(file.entries.size(), 1U);
    EXPECT_EQ(file.entries[0].name, entry.name);
    for (const EntryKey& key : EntryKeys()) {
        EXPECT_EQ(file.entries[0].Text(key.name), entry.Text(key.name)) << key.name;
    }
}

TEST(EntryText, HasNoKeyThatTheEntryHasNot) {
    EXPECT_EQ(EntryText({"A", 1, {{"DevID", {"0A", 0}}, {"ManID", {"26", 0}}}}), "[A]\nManID=26\nDevID=0A\n");
}

TEST(EntryText, RefusesWhatNoLineHolds) {
    using namespace std::string_literals;
    for (const std::string& text : {"a\nb"s, "a\r"s, "\0"s, "\xFF"s, "\xED\xA0\x80"s}) {
        EXPECT_EQ(NumberRaisedBy([&] { EntryText({"A", 1, {{"ManID", {text, 0}}}}); }), 75) << text;
        EXPECT_EQ(NumberRaisedBy([&] { EntryText({text, 1, {}}); }), 75) << text;
    }
    for (const char* const name : {"a]b", " a", "a "}) {
        EXPECT_EQ(NumberRaisedBy([&] { EntryText({name, 1, {}}); }), 75) << name;
    }
}

TEST(EntryKeys, HaveTheDefaultsOfACleanSettingsStore) {
    std::string table;
    for (const EntryKey& key : EntryKeys()) {
        table.append(key.name).append("=").append(key.defaultText).append("\n");
    }
    EXPECT_EQ(
        table,
        "ManID=\nManName=\nManDesc=\nProtID=0\nDevID=\nDevName=\nDevDesc=\nDevRev=01\nDDRev=01\nProtRev=05\n"
        "DevRevName=\nDevRevDesc=\nDevCatID=0\nDevMinCatID=0\nDLLName=\nTemplateName=\nDevHelp=\nBlkHelp=\n"
        "TAVVersions=5.0\nProtocol=\nMajorCategory=\nMinorCategory=\n");
}

TEST(HoldsEntryKey, IsTrueForOneKeyAmongAnything) {
    EXPECT_TRUE(HoldsEntryKey("[A]\nmanid = 1\nOther=2\nnothing"));
    EXPECT_TRUE(HoldsEntryKey("DevName="));
    EXPECT_TRUE(HoldsEntryKey("\xEF\xBB\xBF[A]\r\nProtocol=HART\r\n"));
    EXPECT_TRUE(HoldsEntryKey(Utf16("[A]\nManID=1\n")));
}

TEST(HoldsEntryKey, IsFalseForWhatMayStillBeAnEntryFile) {
    for (const std::string& bytes :
         {""s, "[A]\n"s, "; ManID=1\n"s, "\x89PNG\r\n\x1A\n\0"s, "[Devices]\nA=B\n"s, "ManID\n"s}) {
        EXPECT_FALSE(HoldsEntryKey(bytes)) << bytes;
    }
}

}  // namespace
}  // namespace test
}  // namespace ventlock
