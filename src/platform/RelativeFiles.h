#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/IFiles.h"
#include "platform/IPaths.h"

namespace ventlock {

/// Files as another object gives them, with relative paths counted from a folder instead of the working
/// folder. A blank path stays as it is and is refused below.
class RelativeFiles final : public IFiles {
 public:
    /// `below` and `paths` must outlive this object.
    RelativeFiles(IFiles& below, IPaths& paths, std::string folder);

    bool Exists(const std::string& path) override;
    std::optional<std::vector<std::string>> FilesIn(const std::string& folder) override;
    void RequireReplaceable(const std::string& path) override;
    std::string ReadAll(const std::string& path) override;
    std::optional<std::string> ReadIfThere(const std::string& path) override;
    std::string ReadBeginning(const std::string& path, std::size_t most) override;
    void Replace(const std::string& path, std::string_view bytes) override;
    void Copy(const std::string& from, const std::string& to) override;
    void Append(const std::string& path, std::string_view bytes) override;
    std::unique_ptr<IFileLock> Lock(const std::string& path) override;

 private:
    [[nodiscard]] std::string Absolute(const std::string& path) const;

    IFiles& below_;
    IPaths& paths_;
    std::string folder_;
};

}  // namespace ventlock
