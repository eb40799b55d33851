#include "entry/EntryToForm.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "platform/IEvents.h"

namespace ventlock {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ItemList ListOf(const std::vector<ListItem>& items) {
    ItemList list;
    list.Add(items);
    return list;
}

/// Lists whose ids differ from their positions.
ReferenceLists Lists() {
    return {ListOf({{"HART", 10}, {"Fieldbus", 11}, {"Conventional", 12}}),
            ListOf({{"Not classified", 0}, {"Flow", 3}, {"Level", 4}}),
            ListOf({{"Not classified", 0}, {"Mass", 7}})};
}

FileEntry Entry(const std::string& keys) {
    const EntryFile file = ParseEntryFile("[A]\n" + keys);
    EXPECT_THAT(file.findings, IsEmpty());
    return file.entries.at(0);
}

struct Chosen {
    EntryForm form;
    std::vector<std::tuple<int, Severity, std::string>> findings;
};

Chosen Choose(const std::string& keys) {
    NoEvents events;
    const FileEntry entry = Entry(keys);
    Chosen chosen;
    chosen.form = ToForm(entry, {}, events);
    for (const Finding& finding : ChooseFromLists(entry, Lists(), 5, chosen.form)) {
        chosen.findings.emplace_back(finding.line, finding.severity, finding.id);
    }
    return chosen;
}

TEST(EntryToForm, PutsEveryKeyIntoItsField) {
    NoEvents events;
    const FileEntry entry = Entry(
        "ManID=1\nManName=2\nManDesc=3\nDevID=4\nDevName=5\nDevDesc=6\nDLLName=7\nTemplateName=8\nDevRevName="
        "9\n"
        "DevRevDesc=10\nDevHelp=11\nBlkHelp=12\nDevRev=13\nDDRev=14\nProtRev=15\nTAVVersions=5.0, 6.0\n");
    const EntryForm form = ToForm(entry, {"/p/Pyx.ini", "/d/Ddinstal.ini"}, events);
    EXPECT_THAT(form.txtMain, ElementsAre("", "/d/Ddinstal.ini", "/p/Pyx.ini", "1", "2", "3", "4", "5", "6",
                                          "7", "8", "9", "10", "11", "12"));
    EXPECT_EQ(form.cboDevRev, "13");
    EXPECT_EQ(form.cboDDRev, "14");
    EXPECT_EQ(form.cboHARTRev, "15");
    ASSERT_EQ(form.lstTAVVersionSupport.size(), 2U);
    EXPECT_EQ(form.lstTAVVersionSupport[1].text, "6.0");
    EXPECT_TRUE(form.lstTAVVersionSupport[0].isSelected && form.lstTAVVersionSupport[1].isSelected);
    EXPECT_EQ(form.cboDeviceProtocol.index, -1);
}

TEST(EntryToForm, AProtocolIsChosenByNameWithoutRegardToCaseOrById) {
    for (const char* keys : {"Protocol=conventional\n", "ProtID=12\n", "ProtID=012\n"}) {
        const Chosen chosen = Choose(keys);
        EXPECT_EQ(chosen.form.cboDeviceProtocol.index, 2) << keys;
        EXPECT_EQ(chosen.form.cboDeviceProtocol.itemData, 12) << keys;
        EXPECT_THAT(chosen.findings, IsEmpty());
    }
}

TEST(EntryToForm, AnUnknownProtocolIsAnErrorThatNamesTheKnownOnes) {
    EXPECT_THAT(Choose("Protocol=Foo\n").findings,
                ElementsAre(std::tuple(2, Severity::Error, "unknown-protocol")));
    EXPECT_THAT(Choose("ManID=1\n").findings, ElementsAre(std::tuple(1, Severity::Error, "unknown-protocol")))
        << "the default id 0 is none of these";
    NoEvents events;
    const FileEntry entry = Entry("Protocol=Foo\n");
    EntryForm form = ToForm(entry, {}, events);
    EXPECT_EQ(ChooseFromLists(entry, Lists(), 5, form).at(0).text,
              "the database has no protocol \"Foo\"; it has HART (10), Fieldbus (11), Conventional (12)");
}

TEST(EntryToForm, CategoriesOfAConventionalDeviceAreChosenByNameOrId) {
    const Chosen byName = Choose("ProtID=12\nMajorCategory=flow\nMinorCategory=MASS\n");
    EXPECT_EQ(byName.form.cboDeviceCategory.itemData, 3);
    EXPECT_EQ(byName.form.cboMinorCategory.itemData, 7);
    EXPECT_THAT(byName.findings, IsEmpty());
    const Chosen byId = Choose("ProtID=12\nDevCatID=4\nDevMinCatID=7\n");
    EXPECT_EQ(byId.form.cboDeviceCategory.text, "Level");
    EXPECT_EQ(byId.form.cboMinorCategory.text, "Mass");
    EXPECT_THAT(byId.findings, IsEmpty());
}

TEST(EntryToForm, ANewCategoryNameStaysATypedText) {
    const Chosen chosen = Choose("ProtID=12\nMajorCategory=Vibration\n");
    EXPECT_EQ(chosen.form.cboDeviceCategory.index, -1);
    EXPECT_EQ(chosen.form.cboDeviceCategory.text, "Vibration");
    EXPECT_THAT(chosen.findings, IsEmpty());
}

TEST(EntryToForm, AnUnknownCategoryIdIsAnError) {
    EXPECT_THAT(Choose("ProtID=12\nDevCatID=99\n").findings,
                ElementsAre(std::tuple(3, Severity::Error, "unknown-category")));
}

TEST(EntryToForm, OtherProtocolsGetTheFirstCategoriesAndAWarningForWhatWasGiven) {
    const Chosen chosen = Choose("ProtID=10\nMajorCategory=Flow\nDevMinCatID=7\nDevRevName=R1\n");
    EXPECT_EQ(chosen.form.cboDeviceCategory.index, 0);
    EXPECT_EQ(chosen.form.cboDeviceCategory.itemData, 0);
    EXPECT_EQ(chosen.form.cboMinorCategory.itemData, 0);
    EXPECT_EQ(chosen.form.txtMain[kRevisionNameBox], "R1");
    EXPECT_THAT(chosen.findings, ElementsAre(std::tuple(3, Severity::Warning, "not-used"),
                                             std::tuple(4, Severity::Warning, "not-used")));
}

TEST(EntryToForm, WhatIsGivenAsBlankIsNotWarnedOf) {
    EXPECT_THAT(Choose("ProtID=11\nDevRevName= \n").findings, IsEmpty());
}

TEST(EntryToForm, AProtocolWithoutRevisionNameEmptiesItAndWarns) {
    const Chosen chosen = Choose("ProtID=11\nDevRevName=R1\n");
    EXPECT_EQ(chosen.form.txtMain[kRevisionNameBox], "");
    EXPECT_THAT(chosen.findings, ElementsAre(std::tuple(3, Severity::Warning, "not-used")));
}

}  // namespace
}  // namespace ventlock
