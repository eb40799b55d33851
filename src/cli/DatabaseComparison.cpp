#include "cli/DatabaseComparison.h"

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "db/RowChange.h"
#include "db/SchemaVersion.h"
#include "db/Statements.h"
#include "db/Tables.h"
#include "platform/Casing.h"

namespace ventlock {
namespace {

/// By what the rows of the old schema's tables are known; there is one place that says it.
constexpr std::array<std::pair<std::string_view, std::string_view>, 3> kOldKeys = {
    {{tables::kMfrIds, statements::kDeleteOldManufacturer},
     {tables::kDevTypes, statements::kDeleteOldDeviceType},
     {tables::kPDevices, statements::kDeleteOldDeviceRevision}}};

/// Without regard to letter case where `ignoresCase`, as some databases find texts.
bool Holds(const Field& field, const ColumnValue& value, bool ignoresCase) {
    if (!value.isText) return SameNumber(field.Value(), NumericValue(value.value));
    if (field.IsNull()) return false;
    const std::string_view found = Trim(*field.Value());
    return ignoresCase ? EqualIgnoringCase(found, value.value) : found == value.value;
}

std::string Joined(const std::vector<ColumnValue>& values) {
    std::string text;
    for (const ColumnValue& value : values) {
        text.append(text.empty() ? "" : ", ").append(value.column).append("=").append(value.value);
    }
    return text;
}

std::vector<ColumnValue> ValuesOf(const std::vector<RecordField>& record) {
    std::vector<ColumnValue> values;
    for (const RecordField& field : record) {
        const auto* text = std::get_if<std::string>(&field.value);
        values.push_back({field.name, text != nullptr ? *text : DecimalText(std::get<double>(field.value)),
                          text != nullptr});
    }
    return values;
}

std::vector<ColumnValue> ValuesOf(const RowKey& key) {
    std::vector<ColumnValue> values;
    for (const RowSearch::Part& part : key.parts) {
        values.push_back({std::string(part.column), DecimalText(std::get<double>(part.value)), false});
    }
    return values;
}

class Comparison {
 public:
    explicit Comparison(IConnection& connection) : connection_(connection) {}

    void Compare(const JournalEntry& entry) {
        if (entry.kind == JournalEntry::Kind::NewRecord) CompareRecord(entry);
        if (entry.kind != JournalEntry::Kind::Change) return;
        const std::optional<RowChange> change = ChangeOf(entry.statement);
        if (!change) throw RunTimeError(ErrorNumber::InternalError, entry.statement);
        if (change->key.empty()) {
            AddMissing(change->table, change->values);
        } else {
            CompareRow(change->table, change->key, change->values);
        }
    }

    void TellRepeated(const RowKey& key) { TellRepeated(key.table, ValuesOf(key)); }

    std::vector<Difference> Take() { return std::move(differences_); }

 private:
    /// A record of the old schema, where every write adds rows.
    void CompareRecord(const JournalEntry& entry) {
        const std::vector<ColumnValue> values = ValuesOf(entry.values);
        for (const auto& [table, statement] : kOldKeys) {
            if (!entry.statement.starts_with("INSERT INTO " + std::string(table) + " ")) continue;
            const std::vector<std::string> columns = KeyColumnsOf(statement);
            std::vector<ColumnValue> key;
            for (const ColumnValue& value : values) {
                if (std::find(columns.begin(), columns.end(), value.column) != columns.end())
                    key.push_back(value);
            }
            TellRepeated(table, key);
            return CompareRow(table, key, values);
        }
        throw RunTimeError(ErrorNumber::InternalError, entry.statement);
    }

    void CompareRow(std::string_view table, const std::vector<ColumnValue>& key,
                    const std::vector<ColumnValue>& values) {
        Recordset& rows = Table(table);
        if (!Find(rows, key)) return AddMissing(table, values);
        for (const ColumnValue& value : values) {
            const Field field = rows.Column(value.column);
            if (Holds(field, value, false)) continue;
            std::optional<std::string> found;
            if (!field.IsNull()) found = field.Text();
            differences_.push_back({Difference::Kind::Value, std::string(table) + " " + Joined(key),
                                    value.column, value.value, std::move(found)});
        }
    }

    void TellRepeated(std::string_view table, const std::vector<ColumnValue>& key) {
        std::size_t count = 0;
        Recordset& rows = Table(table);
        for (bool isFound = Find(rows, key); isFound; isFound = FindFromHere(rows, key)) {
            ++count;
            rows.MoveNext();
        }
        if (count < 2) return;
        differences_.push_back(
            {Difference::Kind::Repeated, std::string(table), Joined(key), "1", std::to_string(count)});
    }

    void AddMissing(std::string_view table, const std::vector<ColumnValue>& values) {
        differences_.push_back({Difference::Kind::Missing, std::string(table), {}, Joined(values), {}});
    }

    static bool Find(Recordset& rows, const std::vector<ColumnValue>& key) {
        rows.MoveTo(0);
        return FindFromHere(rows, key);
    }

    /// Goes on to the next row with this key; False when there is none.
    static bool FindFromHere(Recordset& rows, const std::vector<ColumnValue>& key) {
        for (; !rows.AtEnd(); rows.MoveNext()) {
            if (std::all_of(key.begin(), key.end(), [&](const ColumnValue& part) {
                    return Holds(rows.Column(part.column), part, true);
                }))
                return true;
        }
        return false;
    }

    Recordset& Table(std::string_view name) {
        auto& rows = tables_[std::string(name)];
        if (!rows) {
            rows = connection_.OpenRecordset(statements::Fill(statements::kSearchedTable, {name}),
                                             RecordsetType::Snapshot);
        }
        return *rows;
    }

    IConnection& connection_;
    std::map<std::string, std::unique_ptr<Recordset>> tables_;
    std::vector<Difference> differences_;
};

}  // namespace

std::vector<Difference> CompareRows(IConnection& connection, const std::vector<JournalEntry>& statements,
                                    clsTavDB& facade, std::int16_t schemaVersion) {
    Comparison comparison(connection);
    if (schemaVersion >= kCurrentSchema) {
        comparison.TellRepeated(facade.Manufacturer().MfrProtocolKey());
        comparison.TellRepeated(facade.Device().TypeKey());
        comparison.TellRepeated(facade.Device().RevisionKey());
    }
    for (const JournalEntry& statement : statements) comparison.Compare(statement);
    return comparison.Take();
}

}  // namespace ventlock
