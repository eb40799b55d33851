#include "platform/odbc/OdbcConnection.h"

#include <string>
#include <utility>
#include <vector>

#include "base/RunTimeError.h"
#include "platform/odbc/Insert.h"

namespace ventlock::odbc {
namespace {

std::unique_ptr<Recordset> OpenTable(const std::shared_ptr<Session>& session, std::string_view table) {
    return std::make_unique<Recordset>([weak = std::weak_ptr<Session>(session),
                                        table = std::string(table)](const std::vector<RecordField>& record) {
        const std::shared_ptr<Session> open = weak.lock();
        if (!open) throw RunTimeError(ErrorNumber::ObjectInvalid);
        open->Change([table, record](Statement& statement) { InsertRecord(statement, table, record); });
    });
}

}  // namespace

std::unique_ptr<Recordset> OdbcConnection::OpenRecordset(std::string_view source, RecordsetType type) {
    const std::shared_ptr<Session> session = session_;
    if (type == RecordsetType::Dynaset) return OpenTable(session, source);
    return session->Read(source);
}

void OdbcConnection::Execute(std::string_view statement) {
    const std::shared_ptr<Session> session = session_;
    session->Change([text = std::string(statement)](Statement& onIt) { onIt.Execute(text); });
}

void OdbcConnection::BeginTrans() {
    const std::shared_ptr<Session> session = session_;
    session->BeginTransaction();
}

void OdbcConnection::CommitTrans() {
    const std::shared_ptr<Session> session = session_;
    session->CommitTransaction();
}

void OdbcConnection::Rollback() {
    const std::shared_ptr<Session> session = session_;
    session->RollbackTransaction();
}

ConnectionFacts OdbcConnection::Facts() {
    const std::shared_ptr<Session> session = session_;
    return session->Facts();
}

}  // namespace ventlock::odbc
