#include "db/clsConnection.h"

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

}  // namespace ventlock
