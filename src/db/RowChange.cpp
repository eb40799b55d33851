#include "db/RowChange.h"

#include <algorithm>
#include <utility>

#include "platform/Casing.h"

namespace ventlock {
namespace {

/// Reads a statement word by word.
class Words {
 public:
    explicit Words(std::string_view text) : rest_(text) { SkipBlanks(); }

    [[nodiscard]] bool AtEnd() const { return rest_.empty(); }

    /// Takes what stands before the next blank or sign.
    std::string Take() {
        const std::size_t end = std::min(rest_.find_first_of(" ,=()'"), rest_.size());
        std::string word(rest_.substr(0, end));
        Skip(end);
        return word;
    }

    /// Takes a word, in any letter case, or a sign; False when something else comes.
    bool Take(std::string_view word) {
        if (rest_.size() < word.size() || !EqualIgnoringCase(rest_.substr(0, word.size()), word))
            return false;
        Skip(word.size());
        return true;
    }

    /// Takes a value; a doubled apostrophe in a text is one. False when a text has no end.
    bool TakeValue(ColumnValue& value) {
        value.isText = rest_.starts_with('\'');
        if (!value.isText) {
            value.value = Take();
            return !value.value.empty();
        }
        for (bool isOpen = true; isOpen;) {
            const std::size_t end = rest_.find('\'', 1);
            if (end == std::string_view::npos) return false;
            value.value += rest_.substr(1, end - 1);
            rest_.remove_prefix(end + 1);
            isOpen = rest_.starts_with('\'');
            if (isOpen) value.value += '\'';
        }
        SkipBlanks();
        return true;
    }

    /// Takes "column = value". Nothing when something else comes.
    std::optional<ColumnValue> TakeEquality() {
        ColumnValue equality{Take(), {}, false};
        if (equality.column.empty() || !Take("=") || !TakeValue(equality)) return std::nullopt;
        return equality;
    }

    /// Takes equalities as long as `separator` comes between them. Nothing when something else comes.
    std::optional<std::vector<ColumnValue>> TakeEqualities(std::string_view separator) {
        std::vector<ColumnValue> equalities;
        do {
            std::optional<ColumnValue> equality = TakeEquality();
            if (!equality) return std::nullopt;
            equalities.push_back(std::move(*equality));
        } while (Take(separator));
        return equalities;
    }

 private:
    void SkipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size())); }
    void Skip(std::size_t count) {
        rest_.remove_prefix(count);
        SkipBlanks();
    }

    std::string_view rest_;
};

std::optional<RowChange> UpdateOf(Words words) {
    RowChange change{words.Take(), {}, {}};
    if (!words.Take("SET ")) return std::nullopt;
    auto values = words.TakeEqualities(",");
    if (!values || !words.Take("WHERE ")) return std::nullopt;
    auto key = words.TakeEqualities("AND ");
    if (!key || !words.AtEnd()) return std::nullopt;
    change.values = std::move(*values);
    change.key = std::move(*key);
    return change;
}

std::optional<RowChange> InsertOf(Words words) {
    RowChange change{words.Take(), {}, {}};
    if (!words.Take("(")) return std::nullopt;
    do {
        change.values.push_back({words.Take(), {}, false});
    } while (words.Take(","));
    if (!words.Take(")") || !words.Take("VALUES ")) return std::nullopt;
    bool isOpen = words.Take("(");
    for (ColumnValue& value : change.values) {
        if (!isOpen || !words.TakeValue(value)) return std::nullopt;
        isOpen = words.Take(",");
    }
    if (isOpen || !words.Take(")") || !words.AtEnd()) return std::nullopt;
    return change;
}

}  // namespace

std::optional<RowChange> ChangeOf(std::string_view statement) {
    Words words(statement);
    if (words.Take("UPDATE ")) return UpdateOf(words);
    return words.Take("INSERT INTO ") ? InsertOf(words) : std::nullopt;
}

std::vector<std::string> KeyColumnsOf(std::string_view statement) {
    constexpr std::string_view kWhere = " WHERE ";
    std::vector<std::string> columns;
    const std::size_t at = UpperCase(statement).find(kWhere);
    if (at == std::string::npos) return columns;
    Words words(statement.substr(at + kWhere.size()));
    if (const auto key = words.TakeEqualities("AND ")) {
        for (const ColumnValue& part : *key) columns.push_back(part.column);
    }
    return columns;
}

}  // namespace ventlock
