#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace ventlock {

/// An argument that may be a number or a text.
using Variant = std::variant<std::int32_t, double, std::string>;

/// The argument as text; a number in decimal.
std::string TextOf(const Variant& value);

}  // namespace ventlock
