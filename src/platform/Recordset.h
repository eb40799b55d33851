#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace ventlock {

/// One column of the current row. Lives as long as its recordset stands on that row.
class Field {
 public:
    explicit Field(std::optional<std::string_view> text) : text_(text) {}

    [[nodiscard]] bool IsNull() const noexcept { return !text_; }

    /// The column's own text, nothing for NULL.
    [[nodiscard]] const std::optional<std::string_view>& Value() const noexcept { return text_; }

    /// The text, "" for NULL.
    [[nodiscard]] std::string Text() const { return std::string(text_.value_or(std::string_view())); }

    /// The number. @throws RunTimeError 94 for NULL, 13 for a text that is no number.
    [[nodiscard]] double Number() const;

    /// The number in 16 bits. @throws RunTimeError as Number, 6 out of range.
    [[nodiscard]] std::int16_t Integer() const;

 private:
    std::optional<std::string_view> text_;
};

/// A value that goes into a new record: text or number.
using RecordValue = std::variant<std::string, double>;

/// A field of a new record, by column name.
struct RecordField {
    std::string name;
    RecordValue value;
};

/// The texts of one row, one a column; nothing for NULL.
using RowCells = std::vector<std::optional<std::string_view>>;

/// All rows of a query, read to the end and independent of the connection (a snapshot), or a table that takes
/// new records. A snapshot stands on its first row after it was opened; column names ignore case.
class Recordset {
 public:
    /// Stores one new record; raises what the database refuses.
    using Inserter = std::function<void(const std::vector<RecordField>&)>;

    /// A snapshot of the columns, without rows yet.
    explicit Recordset(std::vector<std::string> columns) : columns_(std::move(columns)) {}

    /// A table that takes new records through `insert`; it holds no rows.
    explicit Recordset(Inserter insert) : insert_(std::move(insert)) {}

    /// Adds a row at the end; `cells` has one value a column. For those who make recordsets.
    void AppendRow(const RowCells& cells);

    /// Adds a row cell by cell: it is there as soon as it has one a column.
    void AppendCell(const std::optional<std::string_view>& text) {
        if (text) texts_.append(*text);
        cellEnds_.push_back(text ? texts_.size() : texts_.size() | kNull);
    }

    [[nodiscard]] const std::vector<std::string>& Columns() const noexcept { return columns_; }
    [[nodiscard]] bool HasColumn(std::string_view name) const { return FindColumn(name).has_value(); }
    [[nodiscard]] std::size_t RecordCount() const noexcept {
        return columns_.empty() ? 0 : cellEnds_.size() / columns_.size();
    }

    /// True behind the last row.
    [[nodiscard]] bool AtEnd() const noexcept { return rowBegin_ >= cellEnds_.size(); }
    void MoveNext() noexcept { rowBegin_ += columns_.size(); }

    /// Stands on the row of this number, 0 for the first.
    void MoveTo(std::size_t row) noexcept { rowBegin_ = row * columns_.size(); }

    /// The current row whole. It lives until a row is added. @throws RunTimeError 3021 at the end.
    [[nodiscard]] RowCells Cells() const;

    /// The current row's column. @throws RunTimeError 3021 at the end, 3265 for an unknown name.
    [[nodiscard]] Field Column(std::string_view name) const;

    /// Begins a new record. @throws RunTimeError 3420 on a snapshot.
    void AddNew();

    /// Gives a field of the new record its value. @throws RunTimeError 3021 without AddNew.
    void Set(std::string_view name, RecordValue value);

    /// Stores the new record. @throws RunTimeError 3021 without AddNew, else what the database refuses.
    void Update();

 private:
    /// A column under one of the names that it was asked for by; they differ in letter case.
    struct AskedColumn {
        std::string name;
        std::size_t column = 0;
    };
    static constexpr std::size_t kNull = ~(static_cast<std::size_t>(-1) >> 1);  // no text is that long

    [[nodiscard]] std::optional<std::size_t> FindColumn(std::string_view name) const;
    [[nodiscard]] std::optional<std::size_t> SearchColumn(std::string_view name) const;
    [[nodiscard]] std::optional<std::string_view> CellText(std::size_t column) const;

    std::vector<std::string> columns_;
    mutable std::vector<AskedColumn> askedColumns_;  ///< a walk asks for the same few in every row
    std::string texts_;                              ///< what the cells show, one behind the other
    std::vector<std::size_t> cellEnds_;              ///< row by row, in the texts; with kNull for NULL
    std::size_t rowBegin_ = 0;                       ///< the current row's first cell
    Inserter insert_;
    std::optional<std::vector<RecordField>> newRecord_;
};

}  // namespace ventlock
