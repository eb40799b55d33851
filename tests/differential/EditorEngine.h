#pragma once

#include "differential/ProfileEngine.h"
#include "platform/ProfileFile.h"

namespace ventlock::test {

/// The editor itself, on a file in memory.
class EditorEngine final : public ProfileEngine {
 public:
    void Load(const std::optional<std::string>& bytes) override;
    std::string Read(const ProfileQuery& query) override;
    std::vector<std::string> Sections() override;
    bool Write(const ProfileWrite& write) override;
    std::optional<std::string> Bytes() override;

 private:
    bool exists_ = false;
    ProfileFile file_{"", CodePage(kPage)};
};

}  // namespace ventlock::test
