#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/IFiles.h"

namespace ventlock::test {

/// Files that are nowhere but here: as quick as the fuzzer needs them, and new with each input.
class MemoryFiles final : public IFiles {
 public:
    bool Exists(const std::string& path) override { return files_.contains(path); }

    /// There are no folders here.
    std::optional<std::vector<std::string>> FilesIn(const std::string& /*folder*/) override { return {}; }
    void RequireReplaceable(const std::string& /*path*/) override {}

    /// @throws RunTimeError 53 for a missing file.
    std::string ReadAll(const std::string& path) override;
    void Replace(const std::string& path, std::string_view bytes) override { files_[path] = bytes; }
    void Copy(const std::string& from, const std::string& to) override { files_[to] = ReadAll(from); }
    void Append(const std::string& path, std::string_view bytes) override { files_[path] += bytes; }
    std::unique_ptr<IFileLock> Lock(const std::string& path) override;

 private:
    std::map<std::string, std::string> files_;
};

}  // namespace ventlock::test
