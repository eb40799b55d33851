#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "db/NewRow.h"
#include "db/SearchIndex.h"
#include "platform/Database.h"

namespace ventlock {

/// A connection as long as a transaction is open on it. Nobody else can change what the transaction has read,
/// so every query is sent once; new rows are added to what it gave, as their statements say them. Changes of
/// rows that were read before are not followed: the statements of a write change texts only, which nothing
/// reads back.
class TransactionConnection final : public IConnection {
 public:
    /// `below` must outlive it.
    explicit TransactionConnection(IConnection& below) : below_(below) {}

    std::unique_ptr<Recordset> OpenRecordset(std::string_view source, RecordsetType type) override;
    void Execute(std::string_view statement) override;
    void BeginTrans() override { below_.BeginTrans(); }
    void CommitTrans() override { below_.CommitTrans(); }
    void Rollback() override { below_.Rollback(); }
    ConnectionFacts Facts() override { return below_.Facts(); }

    /// Those of a query's rows that a walk through them has to see; one query is always searched by the same
    /// columns.
    std::unique_ptr<Recordset> Search(std::string_view query, const RowSearch& search);

 private:
    struct Known {
        std::string table;
        std::unique_ptr<Recordset> rows;
        std::optional<SearchIndex> index;
    };

    Known& Read(std::string_view query);
    void Follow(const NewRow& row);

    IConnection& below_;
    std::map<std::string, Known, std::less<>> known_;  ///< by query
};

}  // namespace ventlock
