#include <gtest/gtest.h>

#include "db/SchemaVersion.h"
#include "entry/EntryToForm.h"

namespace ventlock::test {
namespace {

FileEntry EntryOf(const std::string& text) {
    EntryFile file = ParseEntryFile("[A]\n" + text);
    EXPECT_TRUE(file.findings.empty());
    return file.entries.at(0);
}

ItemList ListOf(const std::vector<ListItem>& items) {
    ItemList list;
    list.Add(items);
    return list;
}

/// Ids that differ from positions, so that the two cannot be mistaken for each other.
ReferenceLists Lists() {
    return {ListOf({{"HART", 10}, {"Fieldbus", 11}, {"Conventional", 12}}),
            ListOf({{"Not classified", 0}, {"Flow", 30}, {"Level", 31}}),
            ListOf({{"Not classified", 0}, {"Magnetic", 40}})};
}

struct Chosen {
    EntryForm form;
    std::string findings;  ///< "line severity id: text" lines
};

Chosen Choose(const std::string& text, const ReferenceLists& lists = Lists()) {
    NoEvents events;
    const FileEntry entry = EntryOf(text);
    Chosen chosen{ToForm(entry, {}, events), ""};
    for (const Finding& finding : ChooseFromLists(entry, lists, kCurrentSchema, chosen.form)) {
        chosen.findings += std::to_string(finding.line) +
                           (finding.severity == Severity::Error ? " error " : " warning ") + finding.id +
                           ": " + finding.text + "\n";
    }
    return chosen;
}

void ExpectChoice(const ListChoice& choice, int index, std::int32_t itemData, const std::string& text) {
    EXPECT_EQ(choice.index, index);
    EXPECT_EQ(choice.itemData, itemData);
    EXPECT_EQ(choice.text, text);
}

TEST(ToForm, OffersAndSelectsEveryVersionOfTheEntry) {
    NoEvents events;
    const EntryForm form = ToForm(EntryOf("TAVVersions=5.0, 6.0,,7\n"), {}, events);
    std::string versions;
    for (const OfferedVersion& version : form.lstTAVVersionSupport) {
        versions += "[" + version.text + (version.isSelected ? " selected]" : "]");
    }
    EXPECT_EQ(versions, "[5.0 selected][6.0 selected][ selected][7 selected]");
}

TEST(ToForm, GivesKeysThatAreAbsentTheirDefaults) {
    NoEvents events;
    const EntryForm form = ToForm(EntryOf(""), {}, events);
    EXPECT_EQ(form.cboDevRev, "01");
    EXPECT_EQ(form.cboDDRev, "01");
    EXPECT_EQ(form.cboHARTRev, "05");
    EXPECT_EQ(form.txtMain[kDllBox], "");
    ASSERT_EQ(form.lstTAVVersionSupport.size(), 1U);
    EXPECT_EQ(form.lstTAVVersionSupport[0].text, "5.0");
}

TEST(ChooseFromLists, RefusesAnUnknownProtocolAndNamesTheKnownOnes) {
    EXPECT_EQ(
        Choose("Protocol=Modbus\n").findings,
        "2 error unknown-protocol: the database has no protocol \"Modbus\"; it has HART (10), Fieldbus (11), "
        "Conventional (12)\n");
    EXPECT_EQ(
        Choose("").findings,
        "1 error unknown-protocol: the database has no protocol \"0\"; it has HART (10), Fieldbus (11), "
        "Conventional (12)\n");
    EXPECT_EQ(Choose("ProtID=1\n", ReferenceLists()).findings,
              "2 error unknown-protocol: the database has no protocol \"1\"; it has none\n"
              "1 error unknown-category: the database has no major category \"0\"; it has none\n"
              "1 error unknown-category: the database has no minor category \"0\"; it has none\n");
}

TEST(ChooseFromLists, RefusesAnUnknownCategoryIdAndNamesTheKnownOnes) {
    EXPECT_EQ(
        Choose("Protocol=Conventional\nDevCatID=99\nDevMinCatID=98\n").findings,
        "3 error unknown-category: the database has no major category \"99\"; it has Not classified (0), "
        "Flow "
        "(30), Level (31)\n"
        "4 error unknown-category: the database has no minor category \"98\"; it has Not classified (0), "
        "Magnetic (40)\n");
}

TEST(ChooseFromLists, DropsTheCategoriesOfEveryOtherDeviceWithAWarning) {
    const Chosen chosen = Choose("Protocol=HART\nMajorCategory=Level\nDevMinCatID=40\n");
    ExpectChoice(chosen.form.cboDeviceCategory, 0, 0, "Not classified");
    ExpectChoice(chosen.form.cboMinorCategory, 0, 0, "Not classified");
    EXPECT_EQ(
        chosen.findings,
        "3 warning not-used: MajorCategory is not used: only a device of the protocol at position 2 of the "
        "list has categories\n"
        "4 warning not-used: DevMinCatID is not used: only a device of the protocol at position 2 of the "
        "list "
        "has categories\n");
}

TEST(ChooseFromLists, DropsACategoryOfIdZeroSilently) {
    EXPECT_EQ(Choose("Protocol=HART\nDevCatID=0\nDevMinCatID=0\n").findings, "");
}

TEST(ChooseFromLists, DropsTheRevisionNameOfTheProtocolAtPosition1WithAWarning) {
    const Chosen chosen = Choose("Protocol=Fieldbus\nDevRevName=R1\nDevRevDesc=First\n");
    EXPECT_EQ(chosen.form.txtMain[kRevisionNameBox], "");
    EXPECT_EQ(chosen.form.txtMain[kRevisionDescriptionBox], "First");
    EXPECT_EQ(chosen.findings,
              "3 warning not-used: DevRevName is not used: a device of this protocol has no revision name\n");
}

}  // namespace
}  // namespace ventlock::test
