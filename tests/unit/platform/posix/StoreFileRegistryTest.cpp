#include "platform/posix/StoreFileRegistry.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/posix/PosixFiles.h"
#include "support/FailingFiles.h"
#include "support/TempFolder.h"
#include "unit/platform/posix/Children.h"
#include "unit/platform/posix/ProcessState.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

constexpr auto kMachine = RegistryRoot::LocalMachine;
constexpr auto kUser = RegistryRoot::CurrentUser;
constexpr std::string_view kTool = "SOFTWARE\\Halvard Systems\\TAVToolkit\\Ventlock\\";

using TypeAndBytes = std::pair<std::uint32_t, std::string>;

class StoreFileRegistryTest : public testing::Test {
 protected:
    RegistryStatus Set(RegistryRoot root, std::string_view path, std::string_view name, std::uint32_t type,
                       std::string_view bytes) {
        std::unique_ptr<IRegistryKey> key;
        const RegistryStatus status = registry_.CreateKey(root, path, key);
        return status == kRegistrySuccess ? key->Set(name, type, bytes) : status;
    }

    RegistryStatus SetText(std::string_view name, std::string_view text) {
        return Set(kMachine, std::string(kTool) + "Settings", name, kRegistryString, text);
    }

    RegistryStatus OpenStatus(RegistryRoot root, std::string_view path, std::uint32_t mask = kKeyRead) {
        std::unique_ptr<IRegistryKey> key;
        const RegistryStatus status = registry_.OpenKey(root, path, mask, key);
        EXPECT_EQ(key != nullptr, status == kRegistrySuccess);
        return status;
    }

    std::optional<TypeAndBytes> Query(RegistryRoot root, std::string_view path, std::string_view name) {
        std::unique_ptr<IRegistryKey> key;
        if (registry_.OpenKey(root, path, kKeyRead, key) != kRegistrySuccess) return std::nullopt;
        TypeAndBytes value{99, "untouched"};
        const RegistryStatus status = key->Query(name, value.first, value.second);
        if (status == kRegistrySuccess) return value;
        EXPECT_EQ(value, TypeAndBytes(99, "untouched"));
        return std::nullopt;
    }

    std::optional<TypeAndBytes> QueryText(std::string_view name) {
        return Query(kMachine, std::string(kTool) + "Settings", name);
    }

    static TypeAndBytes Text(std::string_view text) { return {kRegistryString, std::string(text)}; }

    TempFolder folder_;
    std::string store_ = folder_ / "registry.ini";
    PosixFiles files_;
    StoreFileRegistry registry_{files_, store_};
};

TEST_F(StoreFileRegistryTest, AMissingFileIsAnEmptyTree) {
    EXPECT_EQ(OpenStatus(kMachine, kTool), kRegistryFileNotFound);
    EXPECT_EQ(OpenStatus(kMachine, kTool, kKeyAllAccess32), kRegistryFileNotFound);
    EXPECT_EQ(OpenStatus(kMachine, ""), kRegistrySuccess);
    EXPECT_EQ(OpenStatus(kUser, ""), kRegistrySuccess);
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(StoreFileRegistryTest, ValuesStandInOneReadableFile) {
    const std::string settings = std::string(kTool) + "Settings";
    EXPECT_EQ(Set(kMachine, settings, "WindowTop", kRegistryDword, "\xC4\xFF\xFF\xFF"), kRegistrySuccess);
    EXPECT_EQ(Set(kMachine, settings, "ManName", kRegistryString, "Acme \"Ω\""), kRegistrySuccess);
    EXPECT_EQ(
        Set(kMachine, std::string(kTool) + "paths", "DDInstallPath", kRegistryString, "A:\\Ddinstal.ini"),
        kRegistrySuccess);
    EXPECT_EQ(Set(kUser, "SOFTWARE\\ODBC\\odbc.ini\\PYX", "DBQ", kRegistryString, "x.mdb"), kRegistrySuccess);
    EXPECT_EQ(Set(kMachine, settings, "ManID", kRegistryString, ""), kRegistrySuccess);
    EXPECT_EQ(ReadBytes(store_),
              CrLf("[HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvard Systems\\TAVToolkit\\Ventlock\\Settings]\n"
                   "WindowTop=dword:ffffffc4\n"
                   "ManName=text:\"Acme \\\"Ω\\\"\"\n"
                   "ManID=text:\"\"\n"
                   "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvard Systems\\TAVToolkit\\Ventlock\\paths]\n"
                   "DDInstallPath=text:\"A:\\\\Ddinstal.ini\"\n"
                   "[HKEY_CURRENT_USER\\SOFTWARE\\ODBC\\odbc.ini\\PYX]\n"
                   "DBQ=text:\"x.mdb\"\n"));
    EXPECT_EQ(folder_.Listing(), "registry.ini");
}

TEST_F(StoreFileRegistryTest, ASavedStringReadsBackIdenticalThoughStoredWithoutNul) {
    for (const std::string& text :
         {std::string("Acme"), std::string(), std::string("ab\0cd", 5), std::string("a\0", 2),
          std::string("  a  "), std::string("\"a\""), std::string("a\r\nb"), std::string("Ω\xFF\\"),
          std::string(100000, 'x')}) {
        EXPECT_EQ(SetText("ManName", text), kRegistrySuccess);
        EXPECT_EQ(QueryText("ManName"), Text(text));
    }
}

TEST_F(StoreFileRegistryTest, NumbersAreFourBytesAndOtherTypesKeepTheirs) {
    const std::string settings = std::string(kTool) + "Settings";
    Set(kMachine, settings, "Top", kRegistryDword, "\xC4\xFF\xFF\xFF");
    Set(kMachine, settings, "Binary", 3, std::string_view("\0\xFF", 2));
    EXPECT_EQ(QueryText("Top"), TypeAndBytes(kRegistryDword, "\xC4\xFF\xFF\xFF"));
    EXPECT_EQ(QueryText("Binary"), TypeAndBytes(3, std::string("\0\xFF", 2)));
}

TEST_F(StoreFileRegistryTest, NamesIgnoreCaseAndKeepIt) {
    SetText("WindowState", "1");
    EXPECT_EQ(Query(kMachine, "software\\HALVARD systems\\tavtoolkit\\ventlock\\SETTINGS", "Windowstate"),
              Text("1"));
    EXPECT_EQ(Set(kMachine, "software\\halvard systems\\tavtoolkit\\ventlock\\settings", "WINDOWSTATE",
                  kRegistryString, "2"),
              kRegistrySuccess);
    EXPECT_EQ(ReadBytes(store_),
              CrLf("[HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvard Systems\\TAVToolkit\\Ventlock\\Settings]\n"
                   "WindowState=text:\"2\"\n"));
}

TEST_F(StoreFileRegistryTest, ASeparatorAtTheEndOfAPathMeansNothing) {
    Set(kMachine, "Tool\\Sub\\", "Name", kRegistryString, "a");
    EXPECT_EQ(Query(kMachine, "Tool\\Sub", "Name"), Text("a"));
    EXPECT_EQ(Query(kMachine, "Tool\\Sub\\", "Name"), Text("a"));
    EXPECT_EQ(ReadBytes(store_), CrLf("[HKEY_LOCAL_MACHINE\\Tool\\Sub]\nName=text:\"a\"\n"));
}

TEST_F(StoreFileRegistryTest, AKeyIsThereWhenAKeyBelowItIs) {
    Set(kMachine, "SOFTWARE\\Tool\\Sub", "Name", kRegistryString, "a");
    EXPECT_EQ(OpenStatus(kMachine, "software"), kRegistrySuccess);
    EXPECT_EQ(OpenStatus(kMachine, "SOFTWARE\\tool"), kRegistrySuccess);
    EXPECT_EQ(OpenStatus(kMachine, "SOFTWARE\\Tool\\Sub"), kRegistrySuccess);
    EXPECT_EQ(OpenStatus(kMachine, "SOFTWARE\\Too"), kRegistryFileNotFound);
    EXPECT_EQ(OpenStatus(kMachine, "SOFTWARE\\Tool\\Sub\\Name"), kRegistryFileNotFound);
    EXPECT_EQ(OpenStatus(kUser, "SOFTWARE\\Tool"), kRegistryFileNotFound);
    EXPECT_EQ(Query(kMachine, "SOFTWARE\\Tool", "Name"), std::nullopt);
}

TEST_F(StoreFileRegistryTest, CreateKeyMakesTheKeyOnceAndKeepsWhatItHolds) {
    std::unique_ptr<IRegistryKey> key;
    EXPECT_EQ(registry_.CreateKey(kMachine, "SOFTWARE\\Tool", key), kRegistrySuccess);
    EXPECT_EQ(ReadBytes(store_), CrLf("[HKEY_LOCAL_MACHINE\\SOFTWARE\\Tool]\n"));
    EXPECT_EQ(OpenStatus(kMachine, "SOFTWARE\\Tool"), kRegistrySuccess);
    EXPECT_EQ(key->Set("Name", kRegistryString, "a"), kRegistrySuccess);
    EXPECT_EQ(registry_.CreateKey(kMachine, "Software\\TOOL\\", key), kRegistrySuccess);
    EXPECT_EQ(ReadBytes(store_), CrLf("[HKEY_LOCAL_MACHINE\\SOFTWARE\\Tool]\nName=text:\"a\"\n"));
}

TEST_F(StoreFileRegistryTest, AnEditedFileKeepsItsCommentsAndItsOrder) {
    WriteBytes(store_,
               "; my settings\n"
               "[HKEY_LOCAL_MACHINE\\Tool]\n"
               "; the maker\n"
               "  manname  =  text:\"Acme\"  \n"
               "a stray line\n"
               "\n"
               "[hkey_local_machine\\other]\n"
               "x=dword:1\n");
    EXPECT_EQ(Query(kMachine, "Tool", "ManName"), Text("Acme"));
    EXPECT_EQ(Query(kMachine, "Other", "X"), TypeAndBytes(kRegistryDword, std::string("\x01\0\0\0", 4)));
    EXPECT_EQ(Set(kMachine, "Tool", "ManName", kRegistryString, "Bolt"), kRegistrySuccess);
    EXPECT_EQ(ReadBytes(store_),
              "; my settings\n"
              "[HKEY_LOCAL_MACHINE\\Tool]\n"
              "; the maker\n"
              "  manname  =  text:\"Bolt\"\n"
              "a stray line\n"
              "\n"
              "[hkey_local_machine\\other]\n"
              "x=dword:1\n");
}

TEST_F(StoreFileRegistryTest, AFileWithAMarkOfItsEncodingIsRead) {
    WriteBytes(store_, "\xEF\xBB\xBF[HKEY_LOCAL_MACHINE\\Tool]\nName=text:\"ü\"\n");
    EXPECT_EQ(Query(kMachine, "Tool", "Name"), Text("ü"));
    EXPECT_EQ(Set(kMachine, "Tool", "Name", kRegistryString, "Ω"), kRegistrySuccess);
    EXPECT_EQ(ReadBytes(store_), "[HKEY_LOCAL_MACHINE\\Tool]\nName=text:\"Ω\"\n");
}

TEST_F(StoreFileRegistryTest, AFileWithSeveralMarksReadsTheSameBeforeAndAfterAWrite) {
    WriteBytes(store_, "\xEF\xBB\xBF\xEF\xBB\xBF[HKEY_LOCAL_MACHINE\\Tool]\nName=text:\"ü\"\n");
    EXPECT_EQ(Query(kMachine, "Tool", "Name"), Text("ü"));
    EXPECT_EQ(Set(kMachine, "Tool", "Other", kRegistryString, "Ω"), kRegistrySuccess);
    EXPECT_EQ(Query(kMachine, "Tool", "Name"), Text("ü"));
}

TEST_F(StoreFileRegistryTest, AMalformedLineReadsAsAbsentAndCanBeSet) {
    WriteBytes(store_,
               "[HKEY_LOCAL_MACHINE\\Tool]\nA=plain\nB=\"quoted\"\nC=text:\"open\nD=dword:xyz\nE=hex(3):1,"
               "\nF=\nG\n");
    for (const char* const name : {"A", "B", "C", "D", "E", "F", "G"}) {
        EXPECT_EQ(Query(kMachine, "Tool", name), std::nullopt) << name;
    }
    Set(kMachine, "Tool", "A", kRegistryString, "plain");
    EXPECT_EQ(Query(kMachine, "Tool", "A"), Text("plain"));
}

TEST_F(StoreFileRegistryTest, NamesThatTheFileCannotHoldAreRefused) {
    for (const std::string_view name :
         {std::string_view("a=b"), std::string_view(";a"), std::string_view("[a"), std::string_view("a\r"),
          std::string_view("a\nb"), std::string_view("a\0b", 3), std::string_view(" a"),
          std::string_view("a\t"), std::string_view("\xFF")}) {
        EXPECT_EQ(SetText(name, "x"), kRegistryInvalidName) << name;
        EXPECT_EQ(QueryText(name), std::nullopt) << name;
    }
    EXPECT_EQ(SetText("", "the key's own value"), kRegistrySuccess);
    EXPECT_EQ(QueryText(""), Text("the key's own value"));
    EXPECT_EQ(SetText("a]b;c[d", "x"), kRegistrySuccess);
    EXPECT_EQ(QueryText("A]B;C[D"), Text("x"));
    std::unique_ptr<IRegistryKey> key;
    for (const std::string_view path : {"a]b", "a\nb", "a\\\\b", "a ", "\xFF"}) {
        EXPECT_EQ(registry_.CreateKey(kMachine, path, key), kRegistryInvalidName) << path;
        EXPECT_EQ(OpenStatus(kMachine, path), kRegistryFileNotFound) << path;
    }
    EXPECT_EQ(key, nullptr);
}

TEST_F(StoreFileRegistryTest, AKeyDoesWhatItsMaskAsksForAndNoMore) {
    SetText("ManName", "Acme");
    const std::string path = std::string(kTool) + "Settings";
    std::unique_ptr<IRegistryKey> key;
    std::uint32_t type = 0;
    std::string bytes;
    ASSERT_EQ(registry_.OpenKey(kMachine, path, kKeyRead, key), kRegistrySuccess);
    EXPECT_EQ(key->Query("ManName", type, bytes), kRegistrySuccess);
    EXPECT_EQ(key->Set("ManName", kRegistryString, "Bolt"), kRegistryAccessDenied);
    ASSERT_EQ(registry_.OpenKey(kMachine, path, 0x2, key), kRegistrySuccess);
    EXPECT_EQ(key->Query("ManName", type, bytes), kRegistryAccessDenied);
    EXPECT_EQ(key->Set("ManName", kRegistryString, "Bolt"), kRegistrySuccess);
    for (const std::uint32_t mask : {kKeyAllAccess32, kKeyFullAccess}) {
        ASSERT_EQ(registry_.OpenKey(kMachine, path, mask, key), kRegistrySuccess);
        EXPECT_EQ(key->Query("ManName", type, bytes), kRegistrySuccess);
        EXPECT_EQ(bytes, "Bolt");
        EXPECT_EQ(key->Set("ManName", kRegistryString, "Bolt"), kRegistrySuccess);
    }
}

TEST_F(StoreFileRegistryTest, AReadOnlyStoreRefusesWriteMasksAndStillReads) {
    SetText("ManName", "Acme");
    const std::string before = ReadBytes(store_);
    fs::permissions(store_, fs::perms(0444));
    const std::string path = std::string(kTool) + "Settings";
    EXPECT_EQ(OpenStatus(kMachine, path, kKeyAllAccess32), kRegistryAccessDenied);
    EXPECT_EQ(OpenStatus(kMachine, path, kKeyFullAccess), kRegistryAccessDenied);
    EXPECT_EQ(OpenStatus(kMachine, path, kKeyRead), kRegistrySuccess);
    EXPECT_EQ(QueryText("ManName"), Text("Acme"));
    EXPECT_EQ(SetText("ManName", "Bolt"), kRegistryAccessDenied);
    std::unique_ptr<IRegistryKey> key;
    EXPECT_EQ(registry_.CreateKey(kMachine, path, key), kRegistryAccessDenied) << "though it is there";
    EXPECT_EQ(ReadBytes(store_), before);
}

TEST_F(StoreFileRegistryTest, AStoreThatTheUserMayNotReadIsDenied) {
    SetText("ManName", "Acme");
    fs::permissions(store_, fs::perms(0600));
    fs::permissions(folder_.Path(), fs::perms(0777));
    if (geteuid() != 0) fs::permissions(store_, fs::perms(0000));
    EXPECT_EQ(ExitCodeAsOrdinaryUser([&] {
                  std::unique_ptr<IRegistryKey> key;
                  return registry_.OpenKey(kMachine, kTool, kKeyRead, key) == kRegistryAccessDenied &&
                                 registry_.CreateKey(kMachine, kTool, key) == kRegistryAccessDenied &&
                                 key == nullptr
                             ? 0
                             : 1;
              }),
              0);
}

TEST_F(StoreFileRegistryTest, AFolderInPlaceOfTheStoreIsDenied) {
    fs::create_directory(store_);
    EXPECT_EQ(OpenStatus(kMachine, kTool), kRegistryAccessDenied);
    EXPECT_EQ(SetText("ManName", "Acme"), kRegistryAccessDenied);
}

TEST_F(StoreFileRegistryTest, TheFirstWriteMakesTheFolderForTheUserAlone) {
    const FileModeMask mask(022);
    StoreFileRegistry registry(files_, folder_ / "config/ventlock/registry.ini");
    std::unique_ptr<IRegistryKey> key;
    EXPECT_EQ(registry.OpenKey(kMachine, "Tool", kKeyRead, key), kRegistryFileNotFound);
    EXPECT_EQ(folder_.Listing(), "");
    ASSERT_EQ(registry.CreateKey(kMachine, "Tool", key), kRegistrySuccess);
    EXPECT_EQ(key->Set("Name", kRegistryString, "a"), kRegistrySuccess);
    EXPECT_EQ(ReadBytes(folder_ / "config/ventlock/registry.ini"),
              CrLf("[HKEY_LOCAL_MACHINE\\Tool]\nName=text:\"a\"\n"));
    EXPECT_EQ(ModeOf(folder_ / "config"), 0700);
    EXPECT_EQ(ModeOf(folder_ / "config/ventlock"), 0700);
}

TEST_F(StoreFileRegistryTest, AFolderThatCannotBeMadeIsDenied) {
    WriteBytes(folder_ / "config", "");
    StoreFileRegistry registry(files_, folder_ / "config/ventlock/registry.ini");
    std::unique_ptr<IRegistryKey> key;
    EXPECT_EQ(registry.CreateKey(kMachine, "Tool", key), kRegistryAccessDenied);
    EXPECT_EQ(key, nullptr);
}

TEST_F(StoreFileRegistryTest, AFailedWriteGivesItsReasonAndLeavesTheStoreWhole) {
    SetText("ManName", "Acme");
    const std::string before = ReadBytes(store_);
    FailingFiles failing(files_);
    StoreFileRegistry registry(failing, store_);
    std::unique_ptr<IRegistryKey> key;
    ASSERT_EQ(registry.CreateKey(kMachine, std::string(kTool) + "Settings", key), kRegistrySuccess);
    const auto statusOf = [&](FileOperation operation, ErrorNumber number) {
        failing.FailAt(operation, 1, RunTimeError(number));
        return key->Set("ManName", kRegistryString, "Bolt");
    };
    EXPECT_EQ(statusOf(FileOperation::Replace, ErrorNumber::DiskFull), kRegistryDiskFull);
    EXPECT_EQ(statusOf(FileOperation::Replace, ErrorNumber::DeviceIoError), kRegistryDeviceError);
    EXPECT_EQ(statusOf(FileOperation::Lock, ErrorNumber::PermissionDenied), kRegistryInUse);
    EXPECT_EQ(statusOf(FileOperation::ReadAll, ErrorNumber::DeviceIoError), kRegistryDeviceError);
    EXPECT_EQ(ReadBytes(store_), before);
    EXPECT_EQ(folder_.Listing(), "registry.ini");
}

TEST_F(StoreFileRegistryTest, AStoreInUseIsWaitedForWithinABound) {
    PosixFiles impatient(std::chrono::milliseconds(30));
    StoreFileRegistry registry(impatient, store_);
    std::unique_ptr<IRegistryKey> key;
    ASSERT_EQ(registry.CreateKey(kMachine, "Tool", key), kRegistrySuccess);
    const auto lock = files_.Lock(store_);
    EXPECT_EQ(key->Set("Name", kRegistryString, "a"), kRegistryInUse);
    EXPECT_EQ(Query(kMachine, "Tool", "Name"), std::nullopt);
}

TEST_F(StoreFileRegistryTest, TwoProgramsAtOnceLoseNothing) {
    constexpr std::uint32_t kTimes = 40;
    const auto countUp = [&](const std::string& name) {
        PosixFiles files(std::chrono::seconds(100));
        StoreFileRegistry registry(files, store_);
        std::unique_ptr<IRegistryKey> key;
        if (registry.CreateKey(kMachine, "Counters", key) != kRegistrySuccess) return 1;
        for (std::uint32_t i = 1; i <= kTimes; ++i) {
            std::uint32_t type = 0;
            std::string bytes(4, '\0');
            const RegistryStatus status = key->Query(name, type, bytes);
            if (status != (i == 1 ? kRegistryFileNotFound : kRegistrySuccess)) return 2;
            ++bytes[0];
            if (key->Set(name, kRegistryDword, bytes) != kRegistrySuccess) return 3;
            if (key->Set(name + std::to_string(i), kRegistryString, "here") != kRegistrySuccess) return 4;
        }
        return 0;
    };
    Child first([&] { return countUp("A"); });
    Child second([&] { return countUp("B"); });
    EXPECT_EQ(first.ExitCode(), 0);
    EXPECT_EQ(second.ExitCode(), 0);
    for (const std::string name : {"A", "B"}) {
        EXPECT_EQ(Query(kMachine, "Counters", name),
                  TypeAndBytes(kRegistryDword, std::string("\x28\0\0\0", 4)));
        for (std::uint32_t i = 1; i <= kTimes; ++i) {
            EXPECT_EQ(Query(kMachine, "Counters", name + std::to_string(i)), Text("here")) << name << i;
        }
    }
    EXPECT_EQ(folder_.Listing(), "registry.ini");
}

TEST_F(StoreFileRegistryTest, TheStoresPlaceFollowsTheEnvironment) {
    const EnvironmentVariable home("HOME", "/home/ada/");
    {
        const EnvironmentVariable chosen("VENTLOCK_REGISTRY", "/tmp/x.ini");
        EXPECT_EQ(StoreFileRegistry::StorePath(), "/tmp/x.ini");
    }
    const EnvironmentVariable chosen("VENTLOCK_REGISTRY", "");
    for (const auto& [value, path] : std::vector<std::pair<std::optional<std::string>, std::string>>{
             {"/etc/ada", "/etc/ada/ventlock/registry.ini"},
             {"/etc/ada/", "/etc/ada/ventlock/registry.ini"},
             {"relative", "/home/ada/.config/ventlock/registry.ini"},
             {"", "/home/ada/.config/ventlock/registry.ini"},
             {std::nullopt, "/home/ada/.config/ventlock/registry.ini"}}) {
        const EnvironmentVariable config("XDG_CONFIG_HOME", value);
        EXPECT_EQ(StoreFileRegistry::StorePath(), path);
    }
}

}  // namespace
}  // namespace ventlock::test
