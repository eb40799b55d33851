#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace ventlock {

/// Which of the known words a misspelt one was meant to be: the nearest that at most two slips lead to, one
/// in words of up to four letters. A slip is a letter too many, too few, wrong, or changed with the next one.
/// The first of equally near ones; nothing when none is near. Letters are bytes and keep their case.
std::optional<std::size_t> NearestWord(std::string_view word, std::span<const std::string> known);

}  // namespace ventlock
