#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace ventlock::test {

/// The path that UTF-8 text stands for on this host, and the way back.
std::filesystem::path PathOf(std::string_view utf8);
std::string Utf8Of(const std::filesystem::path& path);

/// A folder of its own for a test, removed with all it holds by its destructor.
class TempFolder {
 public:
    /// @param parent  the folder it is made in
    explicit TempFolder(const std::filesystem::path& parent = std::filesystem::temp_directory_path());
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    [[nodiscard]] const std::string& Path() const noexcept { return path_; }

    /// The path of `name` in the folder, joined as this host joins paths.
    [[nodiscard]] std::string operator/(std::string_view name) const {
        return path_ + static_cast<char>(std::filesystem::path::preferred_separator) + std::string(name);
    }

    /// Names of what the folder holds now, sorted.
    [[nodiscard]] std::string Listing() const;

 private:
    std::string path_;
};

/// All bytes of a file; fails the test when it cannot be read.
std::string ReadBytes(const std::string& path);

/// Makes or overwrites a file with exactly these bytes.
void WriteBytes(const std::string& path, std::string_view bytes);

/// The text with every LF made CR LF: for expected files written down as plain lines.
std::string CrLf(std::string_view lines);

}  // namespace ventlock::test
