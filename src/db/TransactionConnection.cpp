#include "db/TransactionConnection.h"

#include <algorithm>
#include <utility>

namespace ventlock {
namespace {

/// False for a text that some databases store otherwise than it stands in the statement.
bool IsStoredAsItStands(const NewRow& row) {
    return std::none_of(row.values.begin(), row.values.end(),
                        [](const auto& value) { return value.second.find('\\') != std::string::npos; });
}

}  // namespace

std::unique_ptr<Recordset> TransactionConnection::OpenRecordset(std::string_view source, RecordsetType type) {
    // Nothing reads the tables that take new records.
    if (type == RecordsetType::Dynaset) return below_.OpenRecordset(source, type);
    return std::make_unique<Recordset>(*Read(source).rows);
}

std::unique_ptr<Recordset> TransactionConnection::Search(std::string_view query, const RowSearch& search) {
    Known& known = Read(query);
    if (!known.index) known.index.emplace(search);
    return known.index->RowsFor(search, *known.rows);
}

void TransactionConnection::Execute(std::string_view statement) {
    below_.Execute(statement);
    if (!IsInsert(statement)) return;
    if (const std::optional<NewRow> row = RowOf(statement)) {
        Follow(*row);
    } else {
        known_.clear();
    }
}

TransactionConnection::Known& TransactionConnection::Read(std::string_view query) {
    auto found = known_.find(query);
    if (found == known_.end()) {
        Known known{TableOf(query), below_.OpenRecordset(query, RecordsetType::Snapshot), std::nullopt};
        found = known_.emplace(query, std::move(known)).first;
    }
    found->second.rows->MoveTo(0);
    return found->second;
}

void TransactionConnection::Follow(const NewRow& row) {
    std::erase_if(known_, [&](const auto& known) {
        return known.second.table == row.table && !IsStoredAsItStands(row);
    });
    for (auto& [query, known] : known_) {
        if (known.table == row.table) AppendTo(*known.rows, query, row);
    }
}

}  // namespace ventlock
