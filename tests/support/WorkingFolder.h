#pragma once

#include <filesystem>
#include <string>

#include "support/TempFolder.h"

namespace ventlock::test {

/// The process works in another folder as long as this object lives.
class WorkingFolder {
 public:
    explicit WorkingFolder(const std::string& path) : before_(std::filesystem::current_path()) {
        std::filesystem::current_path(PathOf(path));
    }
    ~WorkingFolder() {
        std::error_code
            gone;  // the folder of before may have been removed; there is nowhere to go back to then
        std::filesystem::current_path(before_, gone);
    }
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;

 private:
    std::filesystem::path before_;
};

}  // namespace ventlock::test
