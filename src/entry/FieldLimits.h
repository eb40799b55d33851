#pragma once

#include <array>
#include <cstddef>
#include <string_view>

/// What the fields of an entry may hold; an entry's check and the guides go by it.
namespace ventlock::limits {

/// Longest texts, in characters, that the device database takes; its schema declares the same.
inline constexpr std::size_t kName = 64;
inline constexpr std::size_t kDescription = 255;

/// A field of hexadecimal digits.
struct HexField {
    std::string_view key;
    std::size_t width;  ///< digits that the DD install file can find again; 0: any number
};

inline constexpr auto kHexFields =
    std::to_array<HexField>({{"ManID", 6}, {"DevID", 4}, {"DevRev", 2}, {"DDRev", 2}, {"ProtRev", 0}});

/// Fields of decimal digits.
inline constexpr std::array<std::string_view, 3> kIdFields = {"ProtID", "DevCatID", "DevMinCatID"};

/// A text that goes into statements of the database, quoted as it is.
struct StatementField {
    std::string_view key;
    std::size_t limit;
    bool isInOldSchema;
};

inline constexpr auto kStatementFields = std::to_array<StatementField>({
    {"ManName", kName, true},
    {"ManDesc", kDescription, false},
    {"DevName", kName, true},
    {"DevDesc", kDescription, false},
    {"DevRevName", kName, false},
    {"DevRevDesc", kDescription, false},
    {"MajorCategory", kName, false},
    {"MinorCategory", kName, false},
});

}  // namespace ventlock::limits
