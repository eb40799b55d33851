#include "fuzz/Fields.h"

#include <algorithm>

namespace ventlock::test {

Fields::Fields(const std::uint8_t* data, std::size_t size) {
    if (size > 0) rest_ = {reinterpret_cast<const char*>(data), size};
}

std::string Fields::Next() {
    const std::size_t end = std::min(rest_.find('\x1F'), rest_.size());
    std::string field(rest_.substr(0, end));
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    return field;
}

}  // namespace ventlock::test
