#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ventlock {

/// A code page by its number, such as 1252 or 932, and the two conversions between its bytes and UTF-8.
/// 65001 is UTF-8. Values of this type are cheap to copy.
class CodePage {
 public:
    /// @throws RunTimeError 5 with the number in the detail when the host does not know the page.
    explicit CodePage(int number);

    /// The page of files that say nothing: the system's ANSI page on Windows, 1252 elsewhere.
    static CodePage SystemDefault();

    [[nodiscard]] int Number() const noexcept { return number_; }

    /// The bytes of a UTF-8 text, or nothing when the page lacks one of its characters. Nothing is ever
    /// substituted.
    [[nodiscard]] std::optional<std::string> Encode(std::string_view utf8) const;

    /// The text of bytes; a byte that stands for nothing in the page becomes the character of the same
    /// number.
    [[nodiscard]] std::string Decode(std::string_view bytes) const;

    bool operator==(const CodePage&) const = default;

 private:
    int number_;
};

}  // namespace ventlock
