#include "entry/FormToEntry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "base/RunTimeError.h"
#include "entry/EntryToForm.h"
#include "platform/IEvents.h"
#include "unit/entry/FilledForm.h"

namespace ventlock::test {
namespace {

using testing::IsEmpty;

constexpr std::int16_t kOld = 4;
constexpr std::int16_t kCurrent = 5;

ReferenceLists Lists() {
    ReferenceLists lists;
    lists.protocols.Add({{"HART", 10}, {"Fieldbus", 11}, {"Conventional", 12}});
    lists.majorCategories.Add({{"Not classified", 0}, {"Flow", 3}});
    lists.minorCategories.Add({{"Not classified", 0}, {"Mass", 7}});
    return lists;
}

/// FilledForm with the protocol that has categories.
EntryForm Conventional() {
    EntryForm form = FilledForm();
    form.cboDeviceProtocol = {2, 12, "Conventional", 3};
    form.cboDeviceCategory = {1, 3, "Flow", 2};
    form.cboMinorCategory = {1, 7, "Mass", 2};
    return form;
}

FileEntry Parsed(const std::string& text) {
    const EntryFile file = ParseEntryFile(text);
    EXPECT_THAT(file.findings, IsEmpty()) << text;
    return file.entries.at(0);
}

/// The form that an entry's text is read into.
EntryForm ReadBack(const std::string& text) {
    NoEvents events;
    const FileEntry entry = Parsed(text);
    EntryForm form = ToForm(entry, {"/targets/Pyx.ini", "/targets/Ddinstal.ini"}, events);
    EXPECT_THAT(ChooseFromLists(entry, Lists(), kCurrent, form), IsEmpty());
    return form;
}

TEST(FormToEntry, WritesEveryFieldOfTheForm) {
    EXPECT_EQ(EntryText(ToFileEntry(Conventional(), kCurrent, {})),
              "[000026.0007.01]\nManID=26\nManName=Acme\nManDesc=Acme Inc\nProtID=12\nDevID=7\nDevName=Flow\n"
              "DevDesc=Flow meter\nDevRev=01\nDDRev=01\nProtRev=05\nDevRevName=R1\nDevRevDesc=First\n"
              "DevCatID=3\nDevMinCatID=7\nDLLName=Dev\nTemplateName=t\nDevHelp=h\nBlkHelp=b\n"
              "TAVVersions=5.0, 6.0\n");
}

TEST(FormToEntry, IsReadBackAsTheSameForm) {
    EntryForm form = Conventional();
    form.txtMain[kDataSourceBox].clear();  // of the window, not of the entry
    form.txtMain[kManufacturerNameBox] = "  \xC3\x84kme \"A\" ";
    form.txtMain[kDeviceDescriptionBox] = "\"quoted\"";
    const std::string text = EntryText(ToFileEntry(form, kCurrent, {}));
    const EntryForm back = ReadBack(text);
    EXPECT_EQ(back.txtMain, form.txtMain);
    EXPECT_EQ(back.cboDevRev, "01");
    EXPECT_EQ(back.cboDeviceProtocol.index, 2);
    EXPECT_EQ(back.cboDeviceCategory.index, 1);
    EXPECT_EQ(back.cboMinorCategory.index, 1);
    EXPECT_EQ(back.lstTAVVersionSupport.size(), 2U);
    EXPECT_EQ(EntryText(ToFileEntry(back, kCurrent, {})), text);
}

TEST(FormToEntry, NamesATypedCategoryByItsText) {
    EntryForm form = Conventional();
    form.cboDeviceCategory = {-1, 0, "Turbines", 2};
    const FileEntry entry = ToFileEntry(form, kCurrent, {});
    EXPECT_EQ(entry.Text("MajorCategory"), "Turbines");
    EXPECT_FALSE(entry.Has("DevCatID"));
    EXPECT_EQ(ReadBack(EntryText(entry)).cboDeviceCategory.text, "Turbines");
}

TEST(FormToEntry, TakesAnEmptyCategoryForTheOneOfNoClass) {
    EntryForm form = Conventional();
    form.cboMinorCategory = {-1, 0, " ", 2};
    EXPECT_EQ(ToFileEntry(form, kCurrent, {}).Text("DevMinCatID"), "0");
}

TEST(FormToEntry, KeepsTheRecordsProtocolWhereNoneIsChosen) {
    EntryForm form = Conventional();
    form.cboDeviceProtocol = {-1, 0, "", 3};
    NoEvents events;
    clsManufacturer manufacturer(events);
    manufacturer.ProtID = "11";
    EXPECT_EQ(ToFileEntry(form, kCurrent, UnshownOf(manufacturer, clsDevice(events))).Text("ProtID"), "11");
}

TEST(FormToEntry, SaysThatNoVersionIsSelectedAndThatARevisionIsEmpty) {
    EntryForm form = Conventional();
    form.lstTAVVersionSupport = {{"5.0", false}};
    form.cboHARTRev.clear();
    form.txtMain[kDeviceHelpBox].clear();
    const FileEntry entry = Parsed(EntryText(ToFileEntry(form, kCurrent, {})));
    EXPECT_EQ(entry.Text("TAVVersions"), "") << "the default would select one";
    EXPECT_EQ(entry.Text("ProtRev"), "");
    EXPECT_FALSE(entry.Has("DevHelp"));
}

TEST(FormToEntry, OfTheOldSchemaTakesWhatItsFieldsDoNotShowFromTheRecords) {
    NoEvents events;
    clsManufacturer manufacturer(events);
    clsDevice device(events);
    const FileEntry kept = Parsed(
        "[A]\nManDesc=m\nDevDesc=d\nDevRevName=n\nDevRevDesc=r\nProtID=12\nDevCatID=3\nDevMinCatID=7\n");
    KeepUnshown(kept, manufacturer, device);
    EntryForm form = FilledForm();
    for (const std::size_t box :
         {kManufacturerDescriptionBox, kDeviceDescriptionBox, kRevisionNameBox, kRevisionDescriptionBox})
        form.txtMain[box].clear();
    const FileEntry entry = ToFileEntry(form, kOld, UnshownOf(manufacturer, device));
    for (const auto& [key, value] : kept.values) EXPECT_EQ(entry.Text(key), value.text) << key;
    EXPECT_EQ(entry.Text("ManName"), "Acme");
}

TEST(FormToEntry, OfTheOldSchemaKeepsNamesThatOnlyADatabaseKnows) {
    const FileEntry opened = Parsed("[A]\nProtocol=Conventional\nMajorCategory=Flow\nMinorCategory=Mass\n");
    const FileEntry entry = ToFileEntry(FilledForm(), kOld, opened);
    EXPECT_EQ(entry.Text("Protocol"), "Conventional");
    EXPECT_EQ(entry.Text("MajorCategory"), "Flow");
    EXPECT_EQ(entry.Text("MinorCategory"), "Mass");
    EXPECT_FALSE(entry.Has("ProtID"));
    Parsed(EntryText(entry));
}

TEST(FormToEntry, NamesAnEntryWithoutIdsByAWord) {
    EntryForm form = FilledForm();
    form.txtMain[kDeviceIdBox] = "7]";
    EXPECT_EQ(ToFileEntry(form, kCurrent, {}).name, "Entry");
    form.txtMain[kDeviceIdBox] = " ";
    EXPECT_EQ(ToFileEntry(form, kCurrent, {}).name, "Entry");
}

TEST(FormToEntry, OfTextThatFitsInNoLineIsRefused) {
    EntryForm form = FilledForm();
    form.txtMain[kDeviceNameBox] = "two\nlines";
    EXPECT_THROW(EntryText(ToFileEntry(form, kCurrent, {})), RunTimeError);
}

}  // namespace
}  // namespace ventlock::test
