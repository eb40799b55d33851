#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace ventlock {

/// Something in which a target differs from what an entry's write would leave there.
struct Difference {
    enum class Kind : std::uint8_t {
        Value,     ///< a column or key holds something else; a key may be missing
        Missing,   ///< a whole row or section is not there
        Repeated,  ///< there is more than one of it; the first counts
    };

    Kind kind = Kind::Value;
    std::string place;     ///< table or section; a row that is there with what it is found by
    std::string item;      ///< column or key of a Value, what repeated rows have in common
    std::string expected;  ///< the value; of a missing row all that it would hold; "1" of what is repeated
    std::optional<std::string> found;  ///< nothing for what is missing and for NULL

    bool operator==(const Difference&) const = default;
};

}  // namespace ventlock
