#include "fuzz/MemoryFiles.h"

#include "base/RunTimeError.h"

namespace ventlock::test {

std::string MemoryFiles::ReadAll(const std::string& path) {
    const auto found = files_.find(path);
    if (found == files_.end()) throw RunTimeError(ErrorNumber::FileNotFound);
    return found->second;
}

std::unique_ptr<IFileLock> MemoryFiles::Lock(const std::string& /*path*/) {
    return std::make_unique<IFileLock>();
}

}  // namespace ventlock::test
