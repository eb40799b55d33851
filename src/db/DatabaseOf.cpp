#include "db/DatabaseOf.h"

#include "base/RunTimeError.h"
#include "db/clsConnection.h"

namespace ventlock {

IConnection& DatabaseOf(const AppObjects* oAppObjects) {
    if (oAppObjects == nullptr) throw RunTimeError(ErrorNumber::ObjectVariableNotSet);
    IConnection* connection = oAppObjects->Get<clsConnection>(kConnectionKey).DB();
    if (connection == nullptr) throw RunTimeError(ErrorNumber::ObjectVariableNotSet);
    return *connection;
}

std::unique_ptr<Recordset> OpenSnapshot(const AppObjects* oAppObjects, std::string_view statement) {
    return DatabaseOf(oAppObjects).OpenRecordset(statement, RecordsetType::Snapshot);
}

}  // namespace ventlock
