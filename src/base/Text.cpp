#include "base/Text.h"

#include <algorithm>

namespace ventlock {

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::size_t CharacterCount(std::string_view utf8) {
    const auto isLead = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; };
    return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), isLead));
}

std::string Counted(std::size_t count, std::string_view noun) {
    return std::to_string(count).append(" ").append(noun).append(count == 1 ? "" : "s");
}

std::string Joined(std::span<const std::string> texts, std::string_view separator) {
    std::string joined;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (i > 0) joined += separator;
        joined += texts[i];
    }
    return joined;
}

}  // namespace ventlock
