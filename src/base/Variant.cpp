#include "base/Variant.h"

#include "base/Numbers.h"

namespace ventlock {

std::string TextOf(const Variant& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const auto* whole = std::get_if<std::int32_t>(&value)) return std::to_string(*whole);
    return DecimalText(std::get<double>(value));
}

}  // namespace ventlock
