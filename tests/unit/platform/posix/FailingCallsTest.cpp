#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <memory>
#include <string>
#include <string_view>

#include "platform/posix/PosixFiles.h"
#include "platform/posix/ReplacementFile.h"
#include "platform/posix/StoreFileRegistry.h"
#include "support/FailingFiles.h"
#include "support/Raised.h"
#include "support/TempFolder.h"

namespace ventlock::test {
namespace {

TEST(FailingCalls, AWriteThatTakesNothingIsAFailureOfTheDevice) {
    FileCalls calls = SystemFileCalls();
    calls.write = [](int /*descriptor*/, const void* /*buffer*/, std::size_t /*size*/) -> ssize_t {
        return 0;
    };
    errno = 0;
    EXPECT_FALSE(WriteAll(calls, -1, "text"));
    EXPECT_EQ(errno, EIO);
    EXPECT_TRUE(WriteAll(calls, -1, ""));
}

TEST(FailingCalls, ALockFileThatCannotBeLookedAtIsReported) {
    TempFolder folder;
    FileCalls calls = SystemFileCalls();
    calls.lstat = [](const char* path, struct stat* facts) {
        if (!std::string_view(path).ends_with(".lock")) return SystemFileCalls().lstat(path, facts);
        errno = EIO;
        return -1;
    };
    PosixFiles files(std::chrono::milliseconds(30), calls);
    EXPECT_EQ(NumberRaisedBy([&] { files.Lock(folder / "a.ini"); }), 57);
}

TEST(FailingCalls, AGroupThatCannotBeKeptForAnotherReasonThanRightsIsReported) {
    TempFolder folder;
    WriteBytes(folder / "a.ini", "old");
    FileCalls calls = SystemFileCalls();
    calls.fchown = [](int /*descriptor*/, uid_t user, gid_t /*group*/) {
        errno = user == static_cast<uid_t>(-1) ? EIO : EPERM;
        return -1;
    };
    PosixFiles files(std::chrono::milliseconds(30), calls);
    EXPECT_EQ(NumberRaisedBy([&] { files.Replace(folder / "a.ini", "new"); }), 57);
    EXPECT_EQ(ReadBytes(folder / "a.ini"), "old");
    EXPECT_EQ(folder.Listing(), "a.ini");
}

TEST(FailingCalls, AStoreThatVanishesWhileItIsOpenedIsNotFound) {
    TempFolder folder;
    PosixFiles files;
    const std::string store = folder / "registry.ini";
    WriteBytes(store, "[HKEY_CURRENT_USER\\Tool]\r\n");
    FailingFiles failing(files);
    StoreFileRegistry registry(failing, store);
    failing.FailAt(FileOperation::RequireReplaceable, 1, RunTimeError(ErrorNumber::FileNotFound));
    std::unique_ptr<IRegistryKey> key;
    EXPECT_EQ(registry.OpenKey(RegistryRoot::CurrentUser, "Tool", kKeyAllAccess32, key),
              kRegistryFileNotFound);
    EXPECT_EQ(key, nullptr);
}

}  // namespace
}  // namespace ventlock::test
