#pragma once

#include <memory>
#include <string_view>

#include "platform/Database.h"
#include "platform/odbc/Session.h"

namespace ventlock::odbc {

/// A connection of the engine. Tables opened for new records take none after it is gone (3420).
class OdbcConnection final : public IConnection {
 public:
    explicit OdbcConnection(std::shared_ptr<Session> session) : session_(std::move(session)) {}

    std::unique_ptr<Recordset> OpenRecordset(std::string_view source, RecordsetType type) override;
    void Execute(std::string_view statement) override;
    void BeginTrans() override;
    void CommitTrans() override;
    void Rollback() override;
    ConnectionFacts Facts() override;

 private:
    std::shared_ptr<Session> session_;
};

}  // namespace ventlock::odbc
