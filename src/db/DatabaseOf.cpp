#include "db/DatabaseOf.h"

#include "base/RunTimeError.h"
#include "db/clsConnection.h"

namespace ventlock {
namespace {

clsConnection& ConnectionOf(const AppObjects* oAppObjects) {
    if (oAppObjects == nullptr) throw RunTimeError(ErrorNumber::ObjectVariableNotSet);
    return oAppObjects->Get<clsConnection>(kConnectionKey);
}

}  // namespace

IConnection& DatabaseOf(const AppObjects* oAppObjects) {
    IConnection* connection = ConnectionOf(oAppObjects).DB();
    if (connection == nullptr) throw RunTimeError(ErrorNumber::ObjectVariableNotSet);
    return *connection;
}

std::unique_ptr<Recordset> OpenSnapshot(const AppObjects* oAppObjects, std::string_view statement) {
    return DatabaseOf(oAppObjects).OpenRecordset(statement, RecordsetType::Snapshot);
}

std::unique_ptr<Recordset> OpenSearch(const AppObjects* oAppObjects, std::string_view statement,
                                      const RowSearch& search) {
    TransactionConnection* transaction = ConnectionOf(oAppObjects).Transaction();
    if (transaction != nullptr) return transaction->Search(statement, search);
    return OpenSnapshot(oAppObjects, statement);
}

}  // namespace ventlock
