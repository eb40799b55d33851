#include "support/FailingFiles.h"

namespace ventlock::test {

void FailingFiles::FailAt(FileOperation operation, int call, const RunTimeError& error) {
    failures_.insert_or_assign(operation, Failure{calls_[operation] + call, error});
}

int FailingFiles::Calls(FileOperation operation) const {
    const auto found = calls_.find(operation);
    return found == calls_.end() ? 0 : found->second;
}

void FailingFiles::Count(FileOperation operation) {
    const int call = ++calls_[operation];
    const auto failure = failures_.find(operation);
    if (failure != failures_.end() && failure->second.call == call) throw RunTimeError(failure->second.error);
}

std::optional<std::vector<std::string>> FailingFiles::FilesIn(const std::string& folder) {
    Count(FileOperation::FilesIn);
    return below_.FilesIn(folder);
}

void FailingFiles::RequireReplaceable(const std::string& path) {
    Count(FileOperation::RequireReplaceable);
    below_.RequireReplaceable(path);
}

std::string FailingFiles::ReadAll(const std::string& path) {
    Count(FileOperation::ReadAll);
    return below_.ReadAll(path);
}

void FailingFiles::Replace(const std::string& path, std::string_view bytes) {
    Count(FileOperation::Replace);
    below_.Replace(path, bytes);
}

void FailingFiles::Copy(const std::string& from, const std::string& to) {
    Count(FileOperation::Copy);
    below_.Copy(from, to);
}

void FailingFiles::Append(const std::string& path, std::string_view bytes) {
    Count(FileOperation::Append);
    below_.Append(path, bytes);
}

std::unique_ptr<IFileLock> FailingFiles::Lock(const std::string& path) {
    Count(FileOperation::Lock);
    return below_.Lock(path);
}

}  // namespace ventlock::test
