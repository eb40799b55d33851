#include "platform/Recordset.h"

#include <utility>

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "platform/Casing.h"

namespace ventlock {

double Field::Number() const {
    if (!text_) throw RunTimeError(ErrorNumber::InvalidUseOfNull);
    return RequireNumber(*text_);
}

std::int16_t Field::Integer() const {
    return ToInteger(Number());
}

void Recordset::AppendRow(const RowCells& cells) {
    if (cells.size() != columns_.size()) throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    for (const auto& text : cells) AppendCell(text);
}

Field Recordset::Column(std::string_view name) const {
    const std::optional<std::size_t> column = FindColumn(name);
    if (!column) throw RunTimeError(ErrorNumber::ItemNotFound, name);
    if (AtEnd()) throw RunTimeError(ErrorNumber::NoCurrentRecord);
    return Field(CellText(*column));
}

RowCells Recordset::Cells() const {
    if (AtEnd()) throw RunTimeError(ErrorNumber::NoCurrentRecord);
    RowCells cells;
    cells.reserve(columns_.size());
    for (std::size_t column = 0; column < columns_.size(); ++column) cells.push_back(CellText(column));
    return cells;
}

std::optional<std::string_view> Recordset::CellText(std::size_t column) const {
    const std::size_t cell = rowBegin_ + column;
    const std::size_t end = cellEnds_[cell];
    if ((end & kNull) != 0) return std::nullopt;
    const std::size_t begin = cell == 0 ? 0 : cellEnds_[cell - 1] & ~kNull;
    return std::string_view(texts_.data() + begin, end - begin);
}

std::optional<std::size_t> Recordset::FindColumn(std::string_view name) const {
    for (const AskedColumn& asked : askedColumns_) {
        if (asked.name == name) return asked.column;
    }
    const std::optional<std::size_t> column = SearchColumn(name);
    if (column) askedColumns_.push_back({std::string(name), *column});
    return column;
}

std::optional<std::size_t> Recordset::SearchColumn(std::string_view name) const {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (columns_[i] == name) return i;
    }
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (EqualIgnoringCase(columns_[i], name)) return i;
    }
    return std::nullopt;
}

void Recordset::AddNew() {
    if (!insert_) throw RunTimeError(ErrorNumber::ObjectInvalid);
    newRecord_.emplace();
}

void Recordset::Set(std::string_view name, RecordValue value) {
    if (!newRecord_) throw RunTimeError(ErrorNumber::NoCurrentRecord);
    newRecord_->push_back({std::string(name), std::move(value)});
}

void Recordset::Update() {
    if (!newRecord_) throw RunTimeError(ErrorNumber::NoCurrentRecord);
    const std::vector<RecordField> record = *std::exchange(newRecord_, std::nullopt);
    insert_(record);
}

}  // namespace ventlock
