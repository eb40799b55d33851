#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/RunTimeError.h"
#include "platform/Database.h"
#include "platform/odbc/OdbcEngine.h"
#include "support/Fakes.h"

namespace ventlock::test {

/// Opens connections the way the program does and counts the yields while it waits.
class Engine {
 public:
    explicit Engine(DatabaseTimeLimits limits = {}) : engine_(CreateOdbcEngine(events, limits)) {}

    std::unique_ptr<IConnection> Open(const std::string& connect) {
        return engine_->CreateWorkspace("", "sa", "", WorkspaceType::Odbc)
            ->OpenConnection("", std::nullopt, false, connect);
    }

    FakeEvents events;

 private:
    std::unique_ptr<IDBEngine> engine_;
};

/// The diagnostics of the failed database call that `work` raises; "none" when it raises nothing, the
/// description of any other error.
template <class Work>
std::vector<std::string> DiagnosticsOf(Work work) {
    try {
        work();
    } catch (const RunTimeError& error) {
        if (error.Number() != ErrorNumber::OdbcCallFailed) return {error.Description()};
        return error.Diagnostics();
    }
    return {"none"};
}

/// The rows of a snapshot: "a|b|NULL\n" each.
inline std::string RowsOf(Recordset& rows) {
    std::string text;
    for (; !rows.AtEnd(); rows.MoveNext()) {
        std::string separator;
        for (const std::string& column : rows.Columns()) {
            const Field field = rows.Column(column);
            text += separator + (field.IsNull() ? "NULL" : field.Text());
            separator = "|";
        }
        text += '\n';
    }
    return text;
}

inline std::unique_ptr<Recordset> Snapshot(IConnection& connection, const std::string& query) {
    return connection.OpenRecordset(query, RecordsetType::Snapshot);
}

}  // namespace ventlock::test
