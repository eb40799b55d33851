#include "entry/OpenEntry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int16_t kOld = 4;
constexpr std::int16_t kCurrent = 5;

ReferenceLists Lists() {
    ReferenceLists lists;
    lists.protocols.Add({{"HART", 0}, {"Fieldbus", 1}, {"Conventional", 2}});
    lists.majorCategories.Add({{"Not classified", 0}});
    lists.minorCategories.Add({{"Not classified", 0}});
    return lists;
}

OpenedEntry Open(const std::string& keys, std::int16_t schemaVersion) {
    NoEvents events;
    const EntryFile file = ParseEntryFile("[A]\n" + keys);
    EXPECT_THAT(file.findings, IsEmpty());
    return OpenEntry(file.entries.at(0), Lists(), schemaVersion, events);
}

std::vector<std::string> IdsOf(const OpenedEntry& opened) {
    std::vector<std::string> ids;
    for (const Finding& finding : opened.findings)
        ids.push_back(std::to_string(finding.line) + " " + finding.id);
    return ids;
}

TEST(OpenEntry, TakesAnUnfinishedEntry) {
    EXPECT_THAT(Open("DevName=Flow\n", kCurrent).findings, IsEmpty());
    EXPECT_EQ(Open("DevName=Flow\n", kCurrent).form.txtMain[kDeviceNameBox], "Flow");
}

TEST(OpenEntry, FindsWhatNoFieldCanShowInTheOrderOfLines) {
    EXPECT_THAT(IdsOf(Open("ProtRev=x\nDevID=g\n", kCurrent)), ElementsAre("2 hex-digits", "3 hex-digits"));
    EXPECT_THAT(IdsOf(Open("DevCatID=9\nProtocol=Smoke\n", kCurrent)),
                ElementsAre("2 unknown-category", "2 not-used", "3 unknown-protocol"));
}

TEST(OpenEntry, AsksTheListsOfACurrentSchemaOnly) {
    EXPECT_THAT(Open("Protocol=Smoke\nMajorCategory=Fire\n", kOld).findings, IsEmpty());
    EXPECT_EQ(Open("ProtID=2\n", kOld).form.cboDeviceProtocol.index, -1);
    EXPECT_EQ(Open("ProtID=2\n", kCurrent).form.cboDeviceProtocol.index, 2);
}

TEST(OpenEntry, LeavesEmptyAndDoubledVersionsOut) {
    std::vector<std::string> versions;
    for (const OfferedVersion& version : Open("TAVVersions=6.0,,5.0, 6.0\n", kOld).form.lstTAVVersionSupport)
        versions.push_back(version.text);
    EXPECT_THAT(versions, ElementsAre("6.0", "5.0"));
}

TEST(FindingLines, AreCutAndCounted) {
    const std::vector<Finding> findings(3, {1, Severity::Warning, "id", "text"});
    EXPECT_EQ(LinesOf("f", findings, 3).text,
              "f:1: warning [id] text\nf:1: warning [id] text\nf:1: warning [id] text");
    EXPECT_EQ(LinesOf("f", findings, 3).more, 0U);
    EXPECT_EQ(LinesOf("f", findings, 1).text, "f:1: warning [id] text");
    EXPECT_EQ(LinesOf("f", findings, 1).more, 2U);
}

}  // namespace
}  // namespace ventlock::test
