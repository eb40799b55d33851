#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "db/NewRow.h"
#include "platform/Database.h"

namespace ventlock {

/// A connection that reads and never changes. New rows are kept in memory and seen by the snapshots that
/// follow, so that a whole batch gives the statements that its real run would; the database's own refusals (a
/// key that is taken, a text that is too long) do not show.
class DryRunConnection final : public IConnection {
 public:
    /// @param showsNewRows  False: new rows are forgotten, every snapshot is of what the database holds
    explicit DryRunConnection(std::unique_ptr<IConnection> inner, bool showsNewRows = true)
        : inner_(std::move(inner)), showsNewRows_(showsNewRows) {}

    std::unique_ptr<Recordset> OpenRecordset(std::string_view source, RecordsetType type) override;
    void Execute(std::string_view statement) override;
    void BeginTrans() override {}  // there is nothing to commit or to take back
    void CommitTrans() override {}
    void Rollback() override {}
    ConnectionFacts Facts() override { return inner_->Facts(); }

 private:
    std::unique_ptr<IConnection> inner_;
    bool showsNewRows_;
    std::map<std::string, std::vector<NewRow>> newRows_;  ///< by table
};

}  // namespace ventlock
