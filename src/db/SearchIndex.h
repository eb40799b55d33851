#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

#include "db/RunningMaximum.h"
#include "platform/Recordset.h"

namespace ventlock {

/// What a walk through a table's rows looks for: rows that carry a key, and, when there is none, the largest
/// numbers of some columns.
struct RowSearch {
    struct Part {
        std::string_view column;
        std::variant<double, std::string_view> value;  ///< a number, or a text in any letter case
    };
    std::vector<Part> key;
    std::vector<std::string_view> counted;  ///< columns that the walk gives to a RunningMaximum each
};

/// Knows of a table's rows which ones make a difference to such a walk, so that it need not go through all of
/// them. It holds no rule of the walk: it only leaves rows out, those of other keys in whose counted columns
/// the largest number does not change for good.
class SearchIndex {
 public:
    /// For searches by the same columns as this one.
    explicit SearchIndex(const RowSearch& search);

    /// The rows that the walk of `search` has to see, in their order. All of them when a column is missing,
    /// for the walk to stumble over. Rows may have been added to `table` since the last call.
    std::unique_ptr<Recordset> RowsFor(const RowSearch& search, Recordset& table);

 private:
    /// A counted column: the row that the largest number stands in. A number that is too large ends every
    /// walk at its row.
    struct Largest {
        std::string column;
        RunningMaximum maximum;
        std::size_t row = kNone;
        bool isPastEnd = false;
    };
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    [[nodiscard]] bool FitsColumnsOf(const Recordset& table) const;
    void TakeIn(Recordset& table);
    static void Count(Largest& largest, const Recordset& table, std::size_t row);

    struct KeyColumn {
        std::string name;
        bool isNumber = false;
    };
    std::vector<KeyColumn> key_;
    std::vector<Largest> largest_;
    std::unordered_map<std::string, std::vector<std::size_t>> rows_;  ///< by key
    std::size_t known_ = 0;                                           ///< rows that have been taken in
};

}  // namespace ventlock
