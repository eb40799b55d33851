// System information by the registry and the programs that a POSIX user really has.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>

#include "core/SystemInformation.h"
#include "platform/Host.h"
#include "platform/posix/StoreFileRegistry.h"
#include "support/TempFolder.h"
#include "support/WorkingFolder.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

class SysInfoOfTheStoreFile : public testing::Test {
 protected:
    bool Start() { return StartSysInfo(store_, host_->Files(), host_->Processes(), host_->Paths()); }

    void PutViewer(std::string_view path) const {
        WriteBytes(folder_ / "registry.ini",
                   "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Shared Tools\\MSINFO]\n"
                   "PATH=text:\"" +
                       std::string(path) + "\"\n");
    }
    void PutFolder(std::string_view folder) const {
        WriteBytes(folder_ / "registry.ini",
                   "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Shared Tools Location]\n"
                   "MSINFO=text:\"" +
                       std::string(folder) + "\"\n");
    }

    /// Makes a program that tells its path when it runs.
    void MakeViewer(std::string_view name) const {
        ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
        WriteBytes(folder_ / name, "#!/bin/sh\necho \"$0\" > '" + folder_ / "pipe" + "'\n");
        fs::permissions(folder_ / name, fs::perms(0700));
    }
    [[nodiscard]] std::string PathOfTheRunningViewer() const {
        std::ifstream pipe(folder_ / "pipe");
        std::string path;
        std::getline(pipe, path);
        return path;
    }

    TempFolder folder_;
    std::unique_ptr<Host> host_ = CreateHost("ventlock");
    StoreFileRegistry store_{host_->Files(), folder_ / "registry.ini"};
};

TEST_F(SysInfoOfTheStoreFile, StartsTheProgramThatTheUserSet) {
    MakeViewer("viewer");
    PutViewer(folder_ / "viewer");
    ASSERT_TRUE(Start());
    EXPECT_EQ(PathOfTheRunningViewer(), folder_ / "viewer");
}

TEST_F(SysInfoOfTheStoreFile, StartsTheViewerInTheFolderThatTheUserSet) {
    MakeViewer("MSINFO32.EXE");
    PutFolder(folder_.Path());
    ASSERT_TRUE(Start());
    EXPECT_EQ(PathOfTheRunningViewer(), folder_ / "MSINFO32.EXE");
}

TEST_F(SysInfoOfTheStoreFile, IsReadFromAStoreThatCannotBeWritten) {
    MakeViewer("viewer");
    PutViewer(folder_ / "viewer");
    fs::permissions(folder_ / "registry.ini", fs::perms(0444));
    ASSERT_TRUE(Start());
    EXPECT_EQ(PathOfTheRunningViewer(), folder_ / "viewer");
}

TEST_F(SysInfoOfTheStoreFile, IsUnavailableWithoutAStore) {
    EXPECT_FALSE(Start());
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(SysInfoOfTheStoreFile, IsUnavailableWhenTheProgramIsMissing) {
    PutViewer(folder_ / "missing");
    EXPECT_FALSE(Start());
}

TEST_F(SysInfoOfTheStoreFile, StartsNothingOfTheWorkingFolderWhenTheFolderIsEmpty) {
    MakeViewer("MSINFO32.EXE");
    const WorkingFolder work(folder_.Path());
    PutFolder("");
    EXPECT_FALSE(Start());
}

}  // namespace
}  // namespace ventlock::test
