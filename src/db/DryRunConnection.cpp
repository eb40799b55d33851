#include "db/DryRunConnection.h"

#include <optional>

namespace ventlock {

void DryRunConnection::Execute(std::string_view statement) {
    if (!showsNewRows_ || !IsInsert(statement)) return;
    std::optional<NewRow> row = RowOf(statement);
    if (!row) return;  // the real run's database will refuse it
    newRows_[row->table].push_back(*row);
}

std::unique_ptr<Recordset> DryRunConnection::OpenRecordset(std::string_view source, RecordsetType type) {
    // Nothing reads the tables that take new records, so those need not be remembered.
    if (type == RecordsetType::Dynaset)
        return std::make_unique<Recordset>([](const std::vector<RecordField>&) {});

    auto rows = inner_->OpenRecordset(source, type);
    const auto found = newRows_.find(TableOf(source));
    if (found == newRows_.end()) return rows;
    for (const NewRow& row : found->second) AppendTo(*rows, source, row);
    return rows;
}

}  // namespace ventlock
