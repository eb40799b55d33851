#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "base/RunTimeError.h"
#include "platform/IFiles.h"

namespace ventlock::test {

enum class FileOperation { FilesIn, RequireReplaceable, ReadAll, Replace, Copy, Append, Lock };

/// Real files of which a chosen operation fails at a chosen call and works at all others. A failing call does
/// not reach the files below.
class FailingFiles final : public IFiles {
 public:
    /// `below` must outlive this object.
    explicit FailingFiles(IFiles& below) : below_(below) {}

    /// The `call`-th call of `operation` from now on (1: the next one) raises `error`. An operation has one
    /// such call at a time: the last one asked for.
    void FailAt(FileOperation operation, int call, const RunTimeError& error);

    /// How often `operation` was called, failed calls included.
    [[nodiscard]] int Calls(FileOperation operation) const;

    bool Exists(const std::string& path) override { return below_.Exists(path); }
    std::optional<std::vector<std::string>> FilesIn(const std::string& folder) override;
    void RequireReplaceable(const std::string& path) override;
    std::string ReadAll(const std::string& path) override;
    void Replace(const std::string& path, std::string_view bytes) override;
    void Copy(const std::string& from, const std::string& to) override;
    void Append(const std::string& path, std::string_view bytes) override;
    std::unique_ptr<IFileLock> Lock(const std::string& path) override;

 private:
    struct Failure {
        int call;
        RunTimeError error;
    };
    void Count(FileOperation operation);

    IFiles& below_;
    std::map<FileOperation, int> calls_;
    std::map<FileOperation, Failure> failures_;
};

}  // namespace ventlock::test
