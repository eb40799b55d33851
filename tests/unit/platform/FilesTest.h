#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "platform/IFiles.h"
#include "platform/Pause.h"
#include "support/Raised.h"
#include "support/TempFolder.h"

namespace ventlock::test {

/// The files of the host that the tests run on.
/// @param patience  how long another holder of a lock is waited for
std::unique_ptr<IFiles> HostFiles(std::chrono::milliseconds patience = kLockPatience);

/// For what every host's files do, and for what only one's do.
class FilesTest : public testing::Test {
 protected:
    /// Number that each operation on `path` raises, in the interface's order: what can be replaced, read,
    /// replace, copy to, copy from, append, lock.
    std::vector<int> NumbersOf(const std::string& path) {
        const std::string other = elsewhere_ / "other.ini";
        WriteBytes(other, "other");
        return {NumberRaisedBy([&] { files_->RequireReplaceable(path); }),
                NumberRaisedBy([&] { files_->ReadAll(path); }),
                NumberRaisedBy([&] { files_->Replace(path, "new"); }),
                NumberRaisedBy([&] { files_->Copy(other, path); }),
                NumberRaisedBy([&] { files_->Copy(path, elsewhere_ / "copy.ini"); }),
                NumberRaisedBy([&] { files_->Append(path, "new"); }),
                NumberRaisedBy([&] { files_->Lock(path); })};
    }

    TempFolder folder_;
    TempFolder elsewhere_;
    std::unique_ptr<IFiles> files_ = HostFiles();
};

inline const std::vector<int> kAll52(7, 52);
inline const std::vector<int> kAll68(7, 68);
inline const std::vector<int> kAll75(7, 75);
inline const std::vector<int> kAll76(7, 76);

/// For what every host's locks do, and for what only one's do.
class FileLockTest : public testing::Test {
 protected:
    TempFolder folder_;
    std::unique_ptr<IFiles> impatient_ = HostFiles(std::chrono::milliseconds(30));
    std::unique_ptr<IFiles> patient_ = HostFiles(std::chrono::seconds(60));
};

}  // namespace ventlock::test
