#include "platform/HostCodePage.h"

#include <iconv.h>

#include <array>
#include <cerrno>

#include "base/RunTimeError.h"

namespace ventlock {
namespace {

constexpr int kWestern = 1252;

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

class IconvCodePage final : public HostCodePage {
 public:
    explicit IconvCodePage(const std::string& name) : toUtf8_("UTF-8", name), fromUtf8_(name, "UTF-8") {}

    [[nodiscard]] bool IsKnown() const { return toUtf8_.IsOpen() && fromUtf8_.IsOpen(); }

    bool ToUtf8(std::string_view bytes, std::size_t& position, std::string& text) override {
        return toUtf8_.Run(bytes, position, text);
    }

    bool FromUtf8(std::string_view utf8, std::size_t& position, std::string& bytes) override {
        return fromUtf8_.Run(utf8, position, bytes);
    }

 private:
    Conversion toUtf8_;
    Conversion fromUtf8_;
};

}  // namespace

std::unique_ptr<HostCodePage> OpenHostCodePage(int number) {
    auto page = std::make_unique<IconvCodePage>(NameOf(number));
    if (!page->IsKnown()) page.reset();
    return page;
}

int DefaultCodePage() {
    return kWestern;
}

}  // namespace ventlock
