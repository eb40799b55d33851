#include "platform/CodePage.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <map>
#include <numeric>

#include "base/RunTimeError.h"
#include "base/Utf.h"

namespace ventlock {
namespace {

constexpr int kUtf8 = 65001;
constexpr int kWestern = 1252;

bool IsAscii(std::string_view text) {
    return std::none_of(text.begin(), text.end(),
                        [](char c) { return (static_cast<unsigned char>(c) & 0x80U) != 0; });
}

std::string NameOf(int number) {
    if (number >= 28591 && number <= 28606) return "ISO-8859-" + std::to_string(number - 28590);
    switch (number) {
        case 10000:
            return "MACINTOSH";
        case 20127:
            return "ASCII";
        case 20866:
            return "KOI8-R";
        case 21866:
            return "KOI8-U";
        case 51932:
            return "EUC-JP";
        case 51949:
            return "EUC-KR";
        case 54936:
            return "GB18030";
        case kUtf8:
            return "UTF-8";
        default:
            return "CP" + std::to_string(number);
    }
}

/// One direction of conversion; the host's descriptor for it, closed at the end.
class Conversion {
 public:
    Conversion(const std::string& to, const std::string& from)
        : descriptor_(iconv_open(to.c_str(), from.c_str())) {
        if (!IsOpen() && errno != EINVAL) throw RunTimeError(ErrorNumber::OutOfMemory);
    }
    ~Conversion() {
        if (IsOpen()) iconv_close(descriptor_);
    }
    Conversion(const Conversion&) = delete;
    Conversion& operator=(const Conversion&) = delete;

    [[nodiscard]] bool IsOpen() const { return descriptor_ != Refused(); }

    /// Appends what `input` gives from `position` on and moves `position` to its end, or to the first place
    /// that has no counterpart: then False.
    bool Run(std::string_view input, std::size_t& position, std::string& output) {
        iconv(descriptor_, nullptr, nullptr, nullptr, nullptr);
        bool converted = true;
        bool more = true;
        while (more && position < input.size()) {
            more = false;
            if (!Step(&input, position, output)) {
                more = errno == E2BIG;
                converted = more;
            }
        }
        // Pages with combining characters hold the last one back until they are told that nothing follows.
        std::size_t none = 0;
        Step(nullptr, none, output);
        return converted;
    }

 private:
    static iconv_t Refused() {
        return reinterpret_cast<iconv_t>(-1);  // NOLINT(performance-no-int-to-ptr): the interface's own sign
    }

    bool Step(const std::string_view* input, std::size_t& position, std::string& output) {
        std::array<char, 4096> buffer{};
        char* out = buffer.data();
        std::size_t outLeft = buffer.size();
        std::size_t result = 0;
        if (input != nullptr) {
            char* in = const_cast<char*>(input->data()) + position;  // the input is only read
            std::size_t inLeft = input->size() - position;
            result = iconv(descriptor_, &in, &inLeft, &out, &outLeft);
            position = input->size() - inLeft;
        } else {
            result = iconv(descriptor_, nullptr, nullptr, &out, &outLeft);
        }
        const int reason = errno;
        output.append(buffer.data(), buffer.size() - outLeft);
        errno = reason;
        return result != static_cast<std::size_t>(-1);
    }

    iconv_t descriptor_;
};

/// Both directions between a page and UTF-8. Not for use by two threads at once.
class Converter {
 public:
    explicit Converter(const std::string& name) : toUtf8_("UTF-8", name), fromUtf8_(name, "UTF-8") {}

    /// Profile files are read byte by byte for "[", "=" and line ends, so a page must leave ASCII alone.
    [[nodiscard]] bool IsUsable() {
        if (!toUtf8_.IsOpen() || !fromUtf8_.IsOpen()) return false;
        std::string ascii(128, '\0');
        std::iota(ascii.begin(), ascii.end(), '\0');
        std::size_t position = 0;
        std::string decoded;
        return toUtf8_.Run(ascii, position, decoded) && decoded == ascii;
    }

    std::string Decode(std::string_view bytes) {
        std::string text;
        for (std::size_t position = 0; !toUtf8_.Run(bytes, position, text);) {
            AppendCharacter(text, static_cast<unsigned char>(bytes[position]));
            ++position;
        }
        return text;
    }

    std::optional<std::string> Encode(std::string_view utf8) {
        std::string bytes;
        for (std::size_t position = 0; !fromUtf8_.Run(utf8, position, bytes);) {
            const char32_t character = NextCharacter(utf8, position);
            // Decode made characters from 80 to 9F out of bytes that mean nothing; they go back to those
            // bytes.
            if (character < 0x80 || character > 0x9F) return std::nullopt;
            bytes += static_cast<char>(static_cast<unsigned char>(character));
        }
        // The host takes some characters for similar ones (the yen sign for the backslash); that is a loss
        // here.
        if (Decode(bytes) != utf8) return std::nullopt;
        return bytes;
    }

 private:
    Conversion toUtf8_;
    Conversion fromUtf8_;
};

Converter& ConverterOf(int number) {
    static thread_local std::map<int, Converter> converters;
    const auto known = converters.find(number);
    if (known != converters.end()) return known->second;
    const auto made = converters.try_emplace(number, NameOf(number)).first;
    if (!made->second.IsUsable()) {
        converters.erase(made);
        throw RunTimeError(ErrorNumber::InvalidProcedureCall, "code page " + std::to_string(number));
    }
    return made->second;
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
    if (number != kUtf8) ConverterOf(number);
}

CodePage CodePage::SystemDefault() {
    return CodePage(kWestern);
}

std::optional<std::string> CodePage::Encode(std::string_view utf8) const {
    if (IsAscii(utf8)) return std::string(utf8);
    if (!IsUtf8(utf8)) return std::nullopt;
    return number_ == kUtf8 ? std::string(utf8) : ConverterOf(number_).Encode(utf8);
}

std::string CodePage::Decode(std::string_view bytes) const {
    if (IsAscii(bytes)) return std::string(bytes);
    return number_ == kUtf8 ? DecodeUtf8(bytes) : ConverterOf(number_).Decode(bytes);
}

}  // namespace ventlock
