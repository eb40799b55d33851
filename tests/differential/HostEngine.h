#pragma once

#include "differential/ProfileEngine.h"
#include "support/TempFolder.h"

namespace ventlock::test {

/// The host's own functions, on a real file. Names take turns, so that no cache of the host answers for
/// the file before.
class HostEngine final : public ProfileEngine {
 public:
    void Load(const std::optional<std::string>& bytes) override;

    /// A cut value is read by the narrow function, because its buffer counts bytes; from a UTF-16 file by the
    /// wide one, because the narrow one replaces what the page lacks.
    std::string Read(const ProfileQuery& query) override;
    std::vector<std::string> Sections() override;
    bool Write(const ProfileWrite& write) override;
    std::optional<std::string> Bytes() override;

 private:
    [[nodiscard]] std::string ReadWide(const ProfileQuery& query) const;
    [[nodiscard]] std::string ReadNarrow(const ProfileQuery& query) const;

    TempFolder folder_;
    int count_ = 0;
    std::wstring path_;
    bool isUtf16_ = false;
};

}  // namespace ventlock::test
