#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/IFiles.h"

namespace ventlock {

/// Files as another object gives them, with every write kept in memory: what was written here is read back
/// here and nothing reaches the disk; only FilesIn does not know of new files. Refusals that can be seen
/// beforehand are the same as there.
class OverlayFiles final : public IFiles {
 public:
    /// `below` must outlive this object.
    explicit OverlayFiles(IFiles& below) : below_(&below) {}

    bool Exists(const std::string& path) override;
    std::optional<std::vector<std::string>> FilesIn(const std::string& folder) override;
    void RequireReplaceable(const std::string& path) override;
    std::string ReadAll(const std::string& path) override;
    void Replace(const std::string& path, std::string_view bytes) override;
    void Copy(const std::string& from, const std::string& to) override;
    void Append(const std::string& path, std::string_view bytes) override;
    std::unique_ptr<IFileLock> Lock(const std::string& path) override;

    /// What was written, by path.
    [[nodiscard]] const std::map<std::string, std::string>& Written() const noexcept { return written_; }

 private:
    IFiles* below_;
    std::map<std::string, std::string> written_;
};

}  // namespace ventlock
