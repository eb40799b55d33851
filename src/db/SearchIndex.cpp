#include "db/SearchIndex.h"

#include <algorithm>
#include <optional>

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "platform/Casing.h"

namespace ventlock {
namespace {

/// Two texts of which SameNumber says yes to the same number have the same key, and so have two that differ
/// in letter case. Nothing for a text that no walk finds.
std::optional<std::string> KeyOf(const std::optional<std::string_view>& text, bool isNumber) {
    if (!text) return std::nullopt;
    if (!isNumber) return UpperCase(*text);
    const std::optional<double> number = WholeNumber(*text);
    return number ? std::optional(DecimalText(*number)) : std::nullopt;
}

void AddPart(std::string& key, const std::string& part) {
    key.append(part).append("\n");
}

std::string KeyOf(const RowSearch& search) {
    std::string key;
    for (const RowSearch::Part& part : search.key) {
        const auto* number = std::get_if<double>(&part.value);
        AddPart(key,
                number != nullptr ? DecimalText(*number) : UpperCase(std::get<std::string_view>(part.value)));
    }
    return key;
}

std::unique_ptr<Recordset> Copy(const Recordset& table) {
    auto copy = std::make_unique<Recordset>(table);
    copy->MoveTo(0);
    return copy;
}

}  // namespace

SearchIndex::SearchIndex(const RowSearch& search) {
    for (const RowSearch::Part& part : search.key) {
        key_.push_back({std::string(part.column), std::holds_alternative<double>(part.value)});
    }
    for (const std::string_view column : search.counted) largest_.push_back({std::string(column), {}});
}

std::unique_ptr<Recordset> SearchIndex::RowsFor(const RowSearch& search, Recordset& table) {
    if (!FitsColumnsOf(table)) return Copy(table);
    TakeIn(table);
    std::vector<std::size_t> rows;
    const auto found = rows_.find(KeyOf(search));
    if (found != rows_.end()) rows = found->second;
    // Behind its first row a walk is in another step than before it.
    if (known_ > 0) rows.push_back(0);
    for (const Largest& largest : largest_) {
        if (largest.row != kNone) rows.push_back(largest.row);
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());

    auto chosen = std::make_unique<Recordset>(table.Columns());
    for (const std::size_t row : rows) {
        table.MoveTo(row);
        chosen->AppendRow(table.Cells());
    }
    return chosen;
}

bool SearchIndex::FitsColumnsOf(const Recordset& table) const {
    return std::all_of(key_.begin(), key_.end(),
                       [&](const KeyColumn& column) { return table.HasColumn(column.name); }) &&
           std::all_of(largest_.begin(), largest_.end(),
                       [&](const Largest& largest) { return table.HasColumn(largest.column); });
}

void SearchIndex::TakeIn(Recordset& table) {
    for (; known_ < table.RecordCount(); ++known_) {
        table.MoveTo(known_);
        std::optional<std::string> key(std::in_place);
        for (const KeyColumn& column : key_) {
            const auto part = KeyOf(table.Column(column.name).Value(), column.isNumber);
            if (!part) key.reset();
            if (!key) break;
            AddPart(*key, *part);
        }
        if (key) rows_[*key].push_back(known_);
        for (Largest& largest : largest_) Count(largest, table, known_);
    }
}

void SearchIndex::Count(Largest& largest, const Recordset& table, std::size_t row) {
    if (largest.isPastEnd) return;
    try {
        if (largest.maximum.Consider(table.Column(largest.column))) largest.row = row;
    } catch (const RunTimeError&) {
        // Whichever walk comes to this row raises the same and goes no further.
        largest.isPastEnd = true;
        largest.row = row;
    }
}

}  // namespace ventlock
