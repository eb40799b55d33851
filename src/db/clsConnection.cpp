#include "db/clsConnection.h"

#include "base/RunTimeError.h"
#include "db/SchemaVersion.h"
#include "db/Statements.h"

namespace ventlock {

bool clsConnection::Init(const AppObjects& oAppObjects, const std::optional<std::int16_t>& vOperation,
                         const std::optional<std::string>& vDatabase,
                         const std::optional<std::string>& /*vAppID*/) {
    oAppObjects_ = &oAppObjects;
    return Guarded(oAppObjects_, "CONNinit", false, [&](StepLabel&) {
        dataSource_ = vDatabase.value_or("PYX");
        if (vOperation != std::int16_t{2} || !Connect()) return false;
        isConnected_ = true;
        return true;
    });
}

bool clsConnection::Connect() {
    return Guarded(oAppObjects_, "CONNconn", false, [&](StepLabel& step) {
        transaction_.reset();
        connection_.reset();
        workspace_.reset();
        diagnostics_.clear();
        step = "01";
        engine_ = createEngine_();
        step = "01.1";
        workspace_ = engine_->CreateWorkspace("", "sa", "", WorkspaceType::Odbc);
        step = "02";
        try {
            connection_ =
                workspace_->OpenConnection("", std::nullopt, false, "ODBC;UID=sa;PWD=;DSN=" + dataSource_);
        } catch (const RunTimeError& error) {
            diagnostics_ = error.Diagnostics();
            throw;
        }
        return true;
    });
}

IConnection* clsConnection::DB() const noexcept {
    if (transaction_) return transaction_.get();
    return connection_.get();
}

IConnection& clsConnection::RequireOpen() {
    if (!connection_) throw RunTimeError(ErrorNumber::ObjectVariableNotSet);
    return *connection_;
}

bool clsConnection::BeginTrans(std::int16_t schemaVersion) {
    return Guarded(oAppObjects_, "CONNbeg", false, [&](StepLabel& step) {
        IConnection& connection = RequireOpen();
        step = "01";
        connection.BeginTrans();
        transaction_ = std::make_unique<TransactionConnection>(connection);
        if (schemaVersion < kCurrentSchema) return true;
        step = "02";
        connection.Execute(statements::kClaimTables);
        return true;
    });
}

bool clsConnection::CommitTrans() {
    return Guarded(oAppObjects_, "CONNcom", false, [&](StepLabel&) {
        RequireOpen().CommitTrans();
        transaction_.reset();
        return true;
    });
}

bool clsConnection::Rollback() {
    return Guarded(oAppObjects_, "CONNrol", false, [&](StepLabel&) {
        transaction_.reset();
        RequireOpen().Rollback();
        return true;
    });
}

}  // namespace ventlock
