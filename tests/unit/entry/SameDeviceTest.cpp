#include "entry/SameDevice.h"

#include <gtest/gtest.h>

#include <ostream>

#include "support/RowName.h"

namespace ventlock::test {
namespace {

FileEntry EntryOf(const std::string& keys) {
    EntryFile file = ParseEntryFile("[First]\n" + keys);
    EXPECT_TRUE(file.findings.empty());
    return file.entries.at(0);
}

/// Two entries, and whether they are for one device.
struct Pair {
    std::string name;
    std::string first;
    std::string second;
    bool isSame = true;
};

void PrintTo(const Pair& pair, std::ostream* out) {
    *out << pair.name;
}

class SameDevice : public testing::TestWithParam<Pair> {};

TEST_P(SameDevice, IsFound) {
    SameDevices devices;
    EXPECT_EQ(devices.Take("a.ini", EntryOf(GetParam().first)), std::nullopt);
    EXPECT_EQ(devices.Take("b.ini", EntryOf(GetParam().second)).has_value(), GetParam().isSame);
}

INSTANTIATE_TEST_SUITE_P(
    Pairs, SameDevice,
    testing::Values(
        Pair{"SameTexts", "ManID=26\nDevID=7\n", "ManID=26\nDevID=7\n"},
        Pair{"OtherNames", "ManID=26\nDevID=7\nDevName=A\n", "ManID=26\nDevID=7\nDevName=B\n"},
        Pair{"ZerosInFront", "ManID=26\nDevID=7\nDevRev=1\n", "ManID=000026\nDevID=0007\nDevRev=01\n"},
        Pair{"AllZeros", "ManID=0\nDevID=0\n", "ManID=000\nDevID=00\n"},
        Pair{"SmallLetters", "ManID=aB\nDevID=c\n", "ManID=Ab\nDevID=C\n"},
        Pair{"TheDefaultRevisionGiven", "ManID=26\nDevID=7\n", "ManID=26\nDevID=7\nDevRev=1\n"},
        Pair{"TheDefaultProtocolGiven", "ManID=26\nDevID=7\n", "ManID=26\nDevID=7\nProtID=00\n"},
        Pair{"ProtocolsByName", "ManID=26\nDevID=7\nProtocol=hart\n", "ManID=26\nDevID=7\nProtocol=HART\n"},
        Pair{"OtherManufacturer", "ManID=26\nDevID=7\n", "ManID=27\nDevID=7\n", false},
        Pair{"OtherType", "ManID=26\nDevID=7\n", "ManID=26\nDevID=70\n", false},
        Pair{"OtherRevision", "ManID=26\nDevID=7\n", "ManID=26\nDevID=7\nDevRev=2\n", false},
        Pair{"OtherProtocolById", "ManID=26\nDevID=7\nProtID=1\n", "ManID=26\nDevID=7\nProtID=2\n", false},
        Pair{"OtherProtocolByName", "ManID=26\nDevID=7\nProtocol=HART\n",
             "ManID=26\nDevID=7\nProtocol=Fieldbus\n", false},
        Pair{"DigitsElsewhere", "ManID=12\nDevID=3\n", "ManID=1\nDevID=23\n", false},
        Pair{"MoreDigitsThanANumberKeeps", "ManID=26\nDevID=123456789012345678901\n",
             "ManID=26\nDevID=123456789012345678902\n", false},
        Pair{"NoIds", "ManID=2G\nDevID=7\n", "ManID=2G\nDevID=7\n", false},
        Pair{"NoProtocolId", "ManID=26\nDevID=7\nProtID=x\n", "ManID=26\nDevID=7\nProtID=x\n", false},
        Pair{"EmptyIds", "ManID=26\n", "ManID=26\n", false}),
    RowName());

TEST(SameDevices, NameTheFirstOfThem) {
    FileEntry entry = EntryOf("ManID=26\nDevID=7\n");
    SameDevices devices;
    EXPECT_EQ(devices.Take("a\nb.ini", entry), std::nullopt);
    const std::string text = "the same device as a\\x0Ab.ini:1 [First]";
    for (const int line : {4, 9}) {
        entry.name = "Later";
        entry.line = line;
        EXPECT_EQ(devices.Take("b.ini", entry), (Finding{line, Severity::Warning, "same-device", text}));
    }
}

}  // namespace
}  // namespace ventlock::test
