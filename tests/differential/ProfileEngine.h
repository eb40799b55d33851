#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace ventlock::test {

/// The code page of every file without a mark here; the host's own must be the same.
inline constexpr int kPage = 1252;

/// One value asked for. All texts are UTF-8.
struct ProfileQuery {
    std::string section;
    std::string key;
    std::string fallback;        ///< what is wanted when there is no such key
    std::size_t bufferSize = 0;  ///< bytes with the closing NUL; 0: as many as the value takes
};

struct ProfileWrite {
    std::string section;
    std::string key;
    std::string value;
};

/// Something that reads and edits profile files: the editor, the host's functions, or rules written down.
class ProfileEngine {
 public:
    virtual ~ProfileEngine() = default;

    /// Takes up a file of these bytes, or one that is missing, and lets go of the one before.
    virtual void Load(const std::optional<std::string>& bytes) = 0;

    virtual std::string Read(const ProfileQuery& query) = 0;

    /// Section names in the file's order.
    virtual std::vector<std::string> Sections() = 0;

    /// False when the write was refused; the file is then as it was.
    virtual bool Write(const ProfileWrite& write) = 0;

    /// What the file holds now, nothing while it is missing.
    virtual std::optional<std::string> Bytes() = 0;
};

}  // namespace ventlock::test
