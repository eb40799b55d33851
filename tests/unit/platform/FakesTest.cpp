#include "support/Fakes.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "support/FailingFiles.h"
#include "support/FakeRegistry.h"
#include "support/Raised.h"

namespace ventlock::test {
namespace {

constexpr auto kMachine = RegistryRoot::LocalMachine;

TEST(FakeRegistry, KeepsValuesAndTheOrderOfTheirSetting) {
    FakeRegistry registry;
    std::unique_ptr<IRegistryKey> key;
    ASSERT_EQ(registry.CreateKey(kMachine, "SOFTWARE\\Tool\\", key), kRegistrySuccess);
    EXPECT_EQ(key->Set("Name", kRegistryString, "Acme"), kRegistrySuccess);
    EXPECT_EQ(key->Set("NAME", kRegistryString, "Bolt"), kRegistrySuccess);

    std::uint32_t type = 0;
    std::string bytes;
    EXPECT_EQ(key->Query("name", type, bytes), kRegistrySuccess);
    EXPECT_EQ(type, kRegistryString);
    EXPECT_EQ(bytes, "Bolt");
    EXPECT_EQ(registry.Get(kMachine, "software\\tool", "nAME"),
              (FakeRegistry::Value{kRegistryString, "Bolt"}));
    EXPECT_EQ(registry.sets, (std::vector<FakeRegistry::SetCall>{
                                 {"HKEY_LOCAL_MACHINE\\SOFTWARE\\Tool", "Name", {kRegistryString, "Acme"}},
                                 {"HKEY_LOCAL_MACHINE\\SOFTWARE\\Tool", "NAME", {kRegistryString, "Bolt"}}}));
}

TEST(FakeRegistry, RefusesAMaskAsOftenAsItIsAsked) {
    FakeRegistry registry;
    registry.PutNumber(kMachine, "SOFTWARE\\Tool", "Top", 0xFFFFFFC4U);
    registry.RefuseOpen(kKeyAllAccess32, kRegistryAccessDenied);
    std::unique_ptr<IRegistryKey> key;
    EXPECT_EQ(registry.OpenKey(kMachine, "SOFTWARE\\Tool", kKeyAllAccess32, key), kRegistryAccessDenied);
    EXPECT_EQ(key, nullptr);
    ASSERT_EQ(registry.OpenKey(kMachine, "SOFTWARE", kKeyRead, key), kRegistrySuccess);
    ASSERT_EQ(registry.OpenKey(kMachine, "SOFTWARE\\Tool", kKeyRead, key), kRegistrySuccess);
    std::uint32_t type = 0;
    std::string bytes;
    EXPECT_EQ(key->Query("Top", type, bytes), kRegistrySuccess);
    EXPECT_EQ(bytes, "\xC4\xFF\xFF\xFF");
    EXPECT_EQ(registry.OpenKey(kMachine, "SOFTWARE\\Other", kKeyRead, key), kRegistryFileNotFound);
    EXPECT_EQ(registry.opens,
              (std::vector<FakeRegistry::OpenCall>{
                  {"HKEY_LOCAL_MACHINE\\SOFTWARE\\Tool", kKeyAllAccess32, kRegistryAccessDenied},
                  {"HKEY_LOCAL_MACHINE\\SOFTWARE", kKeyRead, kRegistrySuccess},
                  {"HKEY_LOCAL_MACHINE\\SOFTWARE\\Tool", kKeyRead, kRegistrySuccess},
                  {"HKEY_LOCAL_MACHINE\\SOFTWARE\\Other", kKeyRead, kRegistryFileNotFound}}));
}

TEST(FakeRegistry, RefusedWritesStoreNothing) {
    FakeRegistry registry;
    std::unique_ptr<IRegistryKey> key;
    ASSERT_EQ(registry.CreateKey(kMachine, "Tool", key), kRegistrySuccess);
    registry.RefuseWrites(kRegistryAccessDenied);
    EXPECT_EQ(key->Set("Name", kRegistryString, "Acme"), kRegistryAccessDenied);
    EXPECT_EQ(registry.Get(kMachine, "Tool", "Name"), std::nullopt);
    EXPECT_EQ(registry.sets.size(), 1U);
    std::unique_ptr<IRegistryKey> other;
    EXPECT_EQ(registry.CreateKey(kMachine, "Other", other), kRegistryAccessDenied);
    EXPECT_EQ(other, nullptr);
}

/// Counts what reaches it.
struct CountingFiles final : IFiles {
    int reached = 0;
    bool Exists(const std::string&) override { return true; }
    std::optional<std::vector<std::string>> FilesIn(const std::string&) override {
        return ++reached, std::nullopt;
    }
    void RequireReplaceable(const std::string&) override { ++reached; }
    std::string ReadAll(const std::string&) override { return ++reached, "bytes"; }
    void Replace(const std::string&, std::string_view) override { ++reached; }
    void Copy(const std::string&, const std::string&) override { ++reached; }
    void Append(const std::string&, std::string_view) override { ++reached; }
    std::unique_ptr<IFileLock> Lock(const std::string&) override {
        return ++reached, std::make_unique<IFileLock>();
    }
};

TEST(FailingFiles, TheChosenCallFailsAndAllOthersWork) {
    CountingFiles below;
    FailingFiles files(below);
    files.Replace("a", "");
    files.FailAt(FileOperation::Replace, 2, RunTimeError(ErrorNumber::DiskFull));
    EXPECT_EQ(NumberRaisedBy([&] { files.Replace("a", ""); }), 0);
    EXPECT_EQ(NumberRaisedBy([&] { files.Replace("a", ""); }), 61);
    EXPECT_EQ(NumberRaisedBy([&] { files.Replace("a", ""); }), 0);
    EXPECT_EQ(files.Calls(FileOperation::Replace), 4);
    EXPECT_EQ(below.reached, 3);
}

TEST(FailingFiles, EveryOperationCanFail) {
    CountingFiles below;
    FailingFiles files(below);
    const auto fails = [&](FileOperation operation, auto call) {
        files.FailAt(operation, 1, RunTimeError(ErrorNumber::DeviceIoError));
        return NumberRaisedBy(call) == 57 && NumberRaisedBy(call) == 0;
    };
    EXPECT_TRUE(fails(FileOperation::FilesIn, [&] { files.FilesIn("a"); }));
    EXPECT_TRUE(fails(FileOperation::RequireReplaceable, [&] { files.RequireReplaceable("a"); }));
    EXPECT_TRUE(fails(FileOperation::ReadAll, [&] { files.ReadAll("a"); }));
    EXPECT_TRUE(fails(FileOperation::Replace, [&] { files.Replace("a", ""); }));
    EXPECT_TRUE(fails(FileOperation::Copy, [&] { files.Copy("a", "b"); }));
    EXPECT_TRUE(fails(FileOperation::Append, [&] { files.Append("a", ""); }));
    EXPECT_TRUE(fails(FileOperation::Lock, [&] { files.Lock("a"); }));
    EXPECT_EQ(below.reached, 7);
}

TEST(FakeClock, StandsStill) {
    FakeClock clock;
    const LocalTime now = clock.Now();
    EXPECT_EQ(now.year, 2026);
    EXPECT_EQ(now.month, 11);
    EXPECT_EQ(now.day, 16);
    EXPECT_EQ(now.hour, 14);
    EXPECT_EQ(now.minute, 3);
    EXPECT_EQ(now.second, 27);
}

TEST(Fakes, RecordWhatTheyAreGiven) {
    FakeMessageBox box;
    box.Show("text", "title", MessageHelp{"help.hlp", 7});
    ASSERT_EQ(box.messages.size(), 1U);
    EXPECT_EQ(box.messages[0].text, "text");
    EXPECT_EQ(box.messages[0].title, "title");
    ASSERT_TRUE(box.messages[0].help);
    EXPECT_EQ(box.messages[0].help->file, "help.hlp");
    EXPECT_EQ(box.messages[0].help->context, 7);

    FakeEventLog log;
    EXPECT_TRUE(log.Write("a", 1));
    log.refuses = true;
    EXPECT_FALSE(log.Write("b", 4));
    ASSERT_EQ(log.entries.size(), 2U);
    EXPECT_EQ(log.entries[1].text, "b");
    EXPECT_EQ(log.entries[1].type, 4);

    FakeProcess process;
    EXPECT_TRUE(process.Start("/bin/viewer"));
    process.refuses = true;
    EXPECT_FALSE(process.Start("/bin/other"));
    EXPECT_EQ(process.started, (std::vector<std::string>{"/bin/viewer", "/bin/other"}));

    FakeEvents events;
    events.Yield();
    events.Yield();
    EXPECT_EQ(events.yields, 2);
}

}  // namespace
}  // namespace ventlock::test
