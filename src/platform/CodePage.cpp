#include "platform/CodePage.h"

#include <map>
#include <memory>
#include <numeric>
#include <utility>

#include "base/RunTimeError.h"
#include "base/Utf.h"
#include "platform/HostCodePage.h"

namespace ventlock {
namespace {

constexpr int kUtf8 = 65001;

std::string Decode(HostCodePage& page, std::string_view bytes) {
    std::string text;
    for (std::size_t position = 0; !page.ToUtf8(bytes, position, text);) {
        AppendCharacter(text, static_cast<unsigned char>(bytes[position]));
        ++position;
    }
    return text;
}

std::optional<std::string> Encode(HostCodePage& page, std::string_view utf8) {
    std::string bytes;
    for (std::size_t position = 0; !page.FromUtf8(utf8, position, bytes);) {
        const char32_t character = NextCharacter(utf8, position);
        // Decode made characters from 80 to 9F out of bytes that mean nothing; they go back to those bytes.
        if (character < 0x80 || character > 0x9F) return std::nullopt;
        bytes += static_cast<char>(static_cast<unsigned char>(character));
    }
    // The host takes some characters for similar ones (the yen sign for the backslash); that is a loss here.
    if (Decode(page, bytes) != utf8) return std::nullopt;
    return bytes;
}

/// Profile files are read byte by byte for "[", "=" and line ends, so a page must leave ASCII alone.
bool LeavesAsciiAlone(HostCodePage& page) {
    std::string ascii(128, '\0');
    std::iota(ascii.begin(), ascii.end(), '\0');
    std::size_t position = 0;
    std::string decoded;
    return page.ToUtf8(ascii, position, decoded) && decoded == ascii;
}

HostCodePage& PageOf(int number) {
    static thread_local std::map<int, std::unique_ptr<HostCodePage>> pages;
    const auto known = pages.find(number);
    if (known != pages.end()) return *known->second;
    std::unique_ptr<HostCodePage> page = OpenHostCodePage(number);
    if (!page || !LeavesAsciiAlone(*page))
        throw RunTimeError(ErrorNumber::InvalidProcedureCall, "code page " + std::to_string(number));
    return *pages.try_emplace(number, std::move(page)).first->second;
}

std::string DecodeUtf8(std::string_view bytes) {
    if (IsUtf8(bytes)) return std::string(bytes);
    std::string text;
    for (std::size_t at = 0; at < bytes.size();) {
        std::size_t next = at;
        NextCharacter(bytes, next);
        const std::string_view piece = bytes.substr(at, next - at);
        if (IsUtf8(piece)) {
            text += piece;
        } else {
            for (const char byte : piece) AppendCharacter(text, static_cast<unsigned char>(byte));
        }
        at = next;
    }
    return text;
}

}  // namespace

CodePage::CodePage(int number) : number_(number) {
    if (number != kUtf8) PageOf(number);
}

CodePage CodePage::SystemDefault() {
    return CodePage(DefaultCodePage());
}

std::optional<std::string> CodePage::Encode(std::string_view utf8) const {
    if (IsAscii(utf8)) return std::string(utf8);
    if (!IsUtf8(utf8)) return std::nullopt;
    return number_ == kUtf8 ? std::string(utf8) : ventlock::Encode(PageOf(number_), utf8);
}

std::string CodePage::Decode(std::string_view bytes) const {
    if (IsAscii(bytes)) return std::string(bytes);
    return number_ == kUtf8 ? DecodeUtf8(bytes) : ventlock::Decode(PageOf(number_), bytes);
}

}  // namespace ventlock
