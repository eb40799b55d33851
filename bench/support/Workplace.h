#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ventlock::bench {

/// A folder of its own on a disk, removed with all it holds at the end, and an environment in which programs
/// touch nothing outside it.
class Workplace {
 public:
    /// Made in the folder that VENTLOCK_BENCH_FOLDER names, else in that of the build.
    Workplace();
    ~Workplace();
    Workplace(const Workplace&) = delete;
    Workplace& operator=(const Workplace&) = delete;

    [[nodiscard]] const std::string& Folder() const noexcept { return folder_; }
    [[nodiscard]] std::string Path(std::string_view name) const { return folder_ + "/" + std::string(name); }

    /// "NAME=value" each.
    [[nodiscard]] const std::vector<std::string>& Environment() const noexcept { return environment_; }

    /// Where the target files of a round lie.
    [[nodiscard]] std::string Target(std::string_view name) const {
        return folder_ + "/target/" + std::string(name);
    }

    /// Takes away what the round before has left there.
    void EmptyTargets() const;

 private:
    std::string folder_;
    std::vector<std::string> environment_;
};

}  // namespace ventlock::bench
