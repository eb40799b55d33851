#include "platform/IEvents.h"
#include "platform/odbc/OdbcEngine.h"
#include "support/ReadRows.h"

namespace ventlock::bench {
namespace {

/// The programs' own engine.
class RecordsetReader {
 public:
    explicit RecordsetReader(const std::string& dataSource)
        : connection_(workspace_->OpenConnection("", {}, false, "ODBC;UID=sa;PWD=;DSN=" + dataSource)) {}

    template <class Use>
    void Read(const std::string& query, Use& use) {
        const auto rows = connection_->OpenRecordset(query, RecordsetType::Snapshot);
        for (; !rows->AtEnd(); rows->MoveNext()) {
            for (const char* const column : kProtocolColumns) use(*rows->Column(column).Value());
            use.EndRow();
        }
    }

 private:
    NoEvents events_;
    std::unique_ptr<IDBEngine> engine_ = CreateOdbcEngine(events_, {});
    std::unique_ptr<IWorkspace> workspace_ = engine_->CreateWorkspace("", "", "", WorkspaceType::Odbc);
    std::unique_ptr<IConnection> connection_;
};

}  // namespace
}  // namespace ventlock::bench

/// read_recordset <data source> <query> <answer>
int main(int count, char** arguments) {
    using namespace ventlock::bench;
    return ReadRows(count, arguments, [](const std::string& dataSource) {
        return std::make_unique<RecordsetReader>(dataSource);
    });
}
