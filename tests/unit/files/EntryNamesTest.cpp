#include "files/EntryNames.h"

#include <gtest/gtest.h>

namespace ventlock::test {
namespace {

TEST(EntryNames, ManufacturerIsFilledToSixCharactersAndNeverCut) {
    EXPECT_EQ(PaddedManufacturer("26"), "000026");
    EXPECT_EQ(PaddedManufacturer(""), "000000");
    EXPECT_EQ(PaddedManufacturer("00AB12"), "00AB12");
    EXPECT_EQ(PaddedManufacturer("1234567"), "1234567");
}

TEST(EntryNames, DeviceTypeIsFilledToFourCharactersAndNeverCut) {
    EXPECT_EQ(PaddedDeviceType("7"), "0007");
    EXPECT_EQ(PaddedDeviceType("1A2B3"), "1A2B3");
}

TEST(EntryNames, RevisionIsFilledToTwoCharactersAndNeverCut) {
    EXPECT_EQ(PaddedRevision("1"), "01");
    EXPECT_EQ(PaddedRevision("0A"), "0A");
    EXPECT_EQ(PaddedRevision("100"), "100");
}

TEST(EntryNames, LettersKeepTheirCase) {
    EXPECT_EQ(PaddedManufacturer("ab"), "0000ab");
    EXPECT_EQ(PaddedDeviceType("aB"), "00aB");
}

TEST(EntryNames, PaddingCountsCharactersAndNotBytes) {
    EXPECT_EQ(PaddedManufacturer("Ω中"), "0000Ω中");
    EXPECT_EQ(PaddedDeviceType("ü"), "000ü");
}

TEST(EntryNames, HexadecimalTextIsGivenInDecimalWithoutBlanks) {
    EXPECT_EQ(DecimalOfHex("05"), "5");
    EXPECT_EQ(DecimalOfHex("0A"), "10");
    EXPECT_EQ(DecimalOfHex("0x0A"), "10");
    EXPECT_EQ(DecimalOfHex("a"), "10");
    EXPECT_EQ(DecimalOfHex(""), "0");
    EXPECT_EQ(DecimalOfHex("G"), "-1");
}

TEST(EntryNames, TheThreeSeparatorsDiffer) {
    EXPECT_EQ(DeviceKey("26", "7", "1"), "000026.0007.01");
    EXPECT_EQ(DeviceDirectory("26", "7"), "000026/0007");
    EXPECT_EQ(ResourcePrefix("26", "7"), "000026\\0007\\");
}

}  // namespace
}  // namespace ventlock::test
