#include "core/SystemInformation.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "platform/Host.h"
#include "support/FakeRegistry.h"
#include "support/Fakes.h"
#include "support/RowName.h"
#include "support/TempFolder.h"

namespace ventlock::test {
namespace {

using std::string_literals::operator""s;
using Paths = std::vector<std::string>;

constexpr auto kRoot = RegistryRoot::LocalMachine;
constexpr std::string_view kKey = "SOFTWARE\\Maker\\Tool";
constexpr std::uint32_t kBinary = 3;

class KeyValue : public testing::Test {
 protected:
    /// What is read, with the text that was there before.
    bool Read(std::string_view name) { return GetKeyValue(registry_, kRoot, kKey, name, value_); }

    FakeRegistry registry_;
    std::string value_ = "before";
};

TEST_F(KeyValue, OfAMissingKeyIsFalseAndEmpty) {
    EXPECT_FALSE(Read("Name"));
    EXPECT_EQ(value_, "");
}

TEST_F(KeyValue, ThatIsMissingIsFalseAndEmpty) {
    registry_.PutText(kRoot, kKey, "Other", "text");
    EXPECT_FALSE(Read("Name"));
    EXPECT_EQ(value_, "");
}

TEST_F(KeyValue, IsReadBelowTheRootThatIsGiven) {
    registry_.PutText(RegistryRoot::CurrentUser, kKey, "Name", "text");
    EXPECT_FALSE(Read("Name"));
    EXPECT_TRUE(GetKeyValue(registry_, RegistryRoot::CurrentUser, kKey, "Name", value_));
    EXPECT_EQ(value_, "text");
}

TEST_F(KeyValue, IsReadWithFullAccess) {
    registry_.PutText(kRoot, kKey, "Name", "text");
    EXPECT_TRUE(Read("Name"));
    const FakeRegistry::OpenCall full{"HKEY_LOCAL_MACHINE\\SOFTWARE\\Maker\\Tool", 0x2003F, kRegistrySuccess};
    EXPECT_EQ(registry_.opens, std::vector{full});
}

TEST_F(KeyValue, IsReadWithReadAccessWhenFullAccessIsRefused) {
    registry_.PutText(kRoot, kKey, "Name", "text");
    registry_.RefuseOpen(0x2003F, kRegistryAccessDenied);
    EXPECT_TRUE(Read("Name"));
    EXPECT_EQ(value_, "text");
    ASSERT_EQ(registry_.opens.size(), 2U);
    EXPECT_EQ(registry_.opens[1].mask, kKeyRead);
}

TEST_F(KeyValue, IsFalseAndEmptyWhenReadAccessIsRefusedToo) {
    registry_.PutText(kRoot, kKey, "Name", "text");
    registry_.RefuseOpen(0x2003F, kRegistryAccessDenied);
    registry_.RefuseOpen(kKeyRead, kRegistryAccessDenied);
    EXPECT_FALSE(Read("Name"));
    EXPECT_EQ(value_, "");
    EXPECT_EQ(registry_.opens.size(), 2U);
}

TEST_F(KeyValue, FitsABufferOf1024Bytes) {
    registry_.PutText(kRoot, kKey, "Fits", std::string(1024, 'x'));
    registry_.PutText(kRoot, kKey, "TooLong", std::string(1025, 'x'));
    EXPECT_TRUE(Read("Fits"));
    EXPECT_EQ(value_, std::string(1024, 'x'));
    EXPECT_FALSE(Read("TooLong"));
    EXPECT_EQ(value_, "");
}

TEST_F(KeyValue, OfAStringLosesExactlyOneNulAtItsEnd) {
    registry_.PutText(kRoot, kKey, "None", "ab");
    registry_.PutText(kRoot, kKey, "One", "ab\0"s);
    registry_.PutText(kRoot, kKey, "Two", "ab\0\0"s);
    registry_.PutText(kRoot, kKey, "Inside", "a\0b"s);
    registry_.PutText(kRoot, kKey, "Empty", "");
    EXPECT_TRUE(Read("None"));
    EXPECT_EQ(value_, "ab");
    EXPECT_TRUE(Read("One"));
    EXPECT_EQ(value_, "ab");
    EXPECT_TRUE(Read("Two"));
    EXPECT_EQ(value_, "ab\0"s);
    EXPECT_TRUE(Read("Inside"));
    EXPECT_EQ(value_, "a\0b"s);
    EXPECT_TRUE(Read("Empty"));
    EXPECT_EQ(value_, "");
}

TEST_F(KeyValue, OfAnotherTypeIsTrueAndLeavesTheTextAsItWas) {
    registry_.Put(kRoot, kKey, "Name", kBinary, "ab\0"s);
    EXPECT_TRUE(Read("Name"));
    EXPECT_EQ(value_, "before");
}

struct NumberRow {
    std::string_view name;
    std::uint32_t number;
    std::string_view given;
};

void PrintTo(const NumberRow& row, std::ostream* out) {
    *out << row.number;
}

class KeyNumber : public testing::TestWithParam<NumberRow> {};

TEST_P(KeyNumber, IsGivenByItsUnpaddedHexadecimalDigits) {
    FakeRegistry registry;
    registry.PutNumber(kRoot, kKey, "Name", GetParam().number);
    std::string value;
    EXPECT_TRUE(GetKeyValue(registry, kRoot, kKey, "Name", value));
    EXPECT_EQ(value, GetParam().given);
}

INSTANTIATE_TEST_SUITE_P(Rows, KeyNumber,
                         testing::Values(NumberRow{"Zero", 0, "0"}, NumberRow{"OneByte", 255, "255"},
                                         NumberRow{"N256", 256, "16"}, NumberRow{"N513", 513, "33"},
                                         NumberRow{"N1033", 1033, "73"}, NumberRow{"N4096", 4096, "256"},
                                         NumberRow{"TwoBytes", 65535, "65535"},
                                         NumberRow{"N65536", 65536, "256"},
                                         NumberRow{"FourSmallBytes", 16909060, "4660"},
                                         NumberRow{"FourLargeBytes", 270544960, "270544960"},
                                         NumberRow{"Largest", 4294967295, "4294967295"}),
                         RowName());

constexpr std::string_view kViewerKey = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
constexpr std::string_view kFolderKey = "SOFTWARE\\Microsoft\\Shared Tools Location";

class SysInfo : public testing::Test {
 protected:
    bool Start() { return StartSysInfo(registry_, host_->Files(), processes_, paths_); }

    void PutViewer(std::string_view path) { registry_.PutText(kRoot, kViewerKey, "PATH", path); }
    void PutFolder(std::string_view folder) { registry_.PutText(kRoot, kFolderKey, "MSINFO", folder); }

    TempFolder folder_;
    std::unique_ptr<Host> host_ = CreateHost("ventlock");
    FakeRegistry registry_;
    FakeProcess processes_;
    FakePaths paths_;
};

TEST_F(SysInfo, StartsTheProgramOfTheFirstValueAndDoesNotReadTheSecond) {
    PutViewer("/tools/msinfo");
    PutFolder(folder_.Path());
    WriteBytes(folder_ / "MSINFO32.EXE", "");
    EXPECT_TRUE(Start());
    EXPECT_EQ(processes_.started, Paths{"/tools/msinfo"});
    ASSERT_EQ(registry_.opens.size(), 1U);
    EXPECT_EQ(registry_.opens[0].path, "HKEY_LOCAL_MACHINE\\" + std::string(kViewerKey));
}

TEST_F(SysInfo, StartsTheViewerInTheFolderOfTheSecondValue) {
    PutFolder(folder_.Path());
    WriteBytes(folder_ / "MSINFO32.EXE", "");
    EXPECT_TRUE(Start());
    EXPECT_EQ(processes_.started, Paths{paths_.Join(folder_.Path(), "MSINFO32.EXE")});
}

TEST_F(SysInfo, IsUnavailableWhenTheFolderHasNoViewer) {
    PutFolder(folder_.Path());
    EXPECT_FALSE(Start());
    EXPECT_EQ(processes_.started, Paths{});
}

TEST_F(SysInfo, IsUnavailableWhenTheViewerIsAFolder) {
    PutFolder(folder_.Path());
    std::filesystem::create_directory(folder_ / "MSINFO32.EXE");
    EXPECT_FALSE(Start());
    EXPECT_EQ(processes_.started, Paths{});
}

TEST_F(SysInfo, IsUnavailableWithoutBothValues) {
    EXPECT_FALSE(Start());
    EXPECT_EQ(processes_.started, Paths{});
}

TEST_F(SysInfo, IsUnavailableWhenTheProgramDoesNotStart) {
    PutViewer("/tools/msinfo");
    PutFolder(folder_.Path());
    WriteBytes(folder_ / "MSINFO32.EXE", "");
    processes_.refuses = true;
    EXPECT_FALSE(Start());
    EXPECT_EQ(processes_.started, Paths{"/tools/msinfo"}) << "the second value is not tried";
}

TEST_F(SysInfo, IsUnavailableWhenTheViewerInTheFolderDoesNotStart) {
    PutFolder(folder_.Path());
    WriteBytes(folder_ / "MSINFO32.EXE", "");
    processes_.refuses = true;
    EXPECT_FALSE(Start());
}

TEST_F(SysInfo, IsUnavailableWhenTheFirstValueIsBlank) {
    PutFolder(folder_.Path());
    WriteBytes(folder_ / "MSINFO32.EXE", "");
    for (const std::string& blank : {""s, "  "s, "\0"s}) {
        PutViewer(blank);
        EXPECT_FALSE(Start());
    }
    EXPECT_EQ(processes_.started, Paths{});
}

TEST_F(SysInfo, ThatIsUnavailableHasItsMessage) {
    EXPECT_EQ(kSystemInformationUnavailable, "System Information Is Unavailable At This Time");
}

}  // namespace
}  // namespace ventlock::test
