// A transaction leaves rows out of the walks through its tables. Whatever stands in the tables, what a walk
// finds must stay the same.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "db/NewRow.h"
#include "db/SchemaVersion.h"
#include "db/StatementJournal.h"
#include "db/clsTavDB.h"
#include "support/Fakes.h"
#include "support/LoggedApp.h"

namespace ventlock::test {
namespace {

struct Table {
    std::vector<std::string> columns;
    std::vector<std::vector<std::optional<std::string>>> rows;
};

using Tables = std::map<std::string, Table>;  ///< by upper-cased name

/// An engine whose database is these tables, whatever is written to it.
struct TablesEngine final : IDBEngine {
    struct Connection final : IConnection {
        explicit Connection(const Tables& content) : tables(content) {}
        std::unique_ptr<Recordset> OpenRecordset(std::string_view query, RecordsetType /*type*/) override {
            const Table& table = tables.at(TableOf(query));
            auto rows = std::make_unique<Recordset>(table.columns);
            for (const auto& row : table.rows) rows->AppendRow({row.begin(), row.end()});
            return rows;
        }
        void Execute(std::string_view statement) override { ADD_FAILURE() << statement; }
        void BeginTrans() override {}
        void CommitTrans() override {}
        void Rollback() override {}
        ConnectionFacts Facts() override { return {}; }
        const Tables& tables;
    };
    struct Workspace final : IWorkspace {
        explicit Workspace(const Tables& content) : tables(content) {}
        std::unique_ptr<IConnection> OpenConnection(std::string_view /*name*/, std::optional<int> /*options*/,
                                                    bool /*readOnly*/,
                                                    std::string_view /*connect*/) override {
            return std::make_unique<Connection>(tables);
        }
        const Tables& tables;
    };
    explicit TablesEngine(const Tables& content) : tables(content) {}
    std::unique_ptr<IWorkspace> CreateWorkspace(std::string_view /*name*/, std::string_view /*user*/,
                                                std::string_view /*password*/,
                                                WorkspaceType /*type*/) override {
        return std::make_unique<Workspace>(tables);
    }
    const Tables& tables;
};

/// A program that works on the tables. New rows are kept in memory and seen by the walks that follow.
class Program {
 public:
    explicit Program(const Tables& tables)
        : connection_(std::make_shared<clsConnection>(
              Journaled([&tables] { return std::make_unique<TablesEngine>(tables); }, journal_,
                        StatementMode::DryRun))) {
        app_.Objects().Add(kConnectionKey, connection_);
        EXPECT_TRUE(connection_->Init(app_.Objects(), 2, "tables"));
    }

    void BeginTrans() {
        EXPECT_TRUE(connection_->BeginTrans(kCurrentSchema));
        journal_.Clear();
    }

    /// Writes a manufacturer; everything that can be seen of it afterwards.
    std::string WriteManufacturer(const std::string& id, const std::string& protocol) {
        clsManufacturer manufacturer(events_);
        manufacturer.Init(app_.Objects(), 5, 2);
        manufacturer.ManID = id;
        manufacturer.ProtID = protocol;
        manufacturer.Name = "Acme";
        const bool isWritten = manufacturer.Insert();
        return Seen({isWritten, manufacturer.HasMfrProtocolID(),
                     manufacturer.HasMfrProtocolID() ? manufacturer.MfrProtocolID() : -1,
                     manufacturer.TAVMfrNameID, manufacturer.MfrNameFound, manufacturer.MfrProtocolFound});
    }

    std::string WriteDevice(const std::string& type, const std::string& revision, std::int16_t manufacturer) {
        clsDevice device(events_);
        device.Init(app_.Objects(), 5, 2);
        device.DevID = type;
        device.DevRev = revision;
        device.ManProtID = manufacturer;
        device.DevName = "Flow";
        device.CatID = "0";
        return Seen({device.Insert()});
    }

    std::string Categories(const std::string& name, const std::string& major, const std::string& minor) {
        clsTavDB tavDB(events_);
        EXPECT_TRUE(tavDB.Init(app_.Objects(), 2));
        return tavDB.GetCategoryID(name, kMajorCategory) + " " + tavDB.GetCategoryID(name, kMinorCategory) +
               " " + tavDB.GetDevCatID(major, minor) + Seen({});
    }

    std::vector<std::string> Log() { return app_.Entries(); }

    [[nodiscard]] int Count(JournalEntry::Kind kind) const {
        return static_cast<int>(std::count_if(journal_.Entries().begin(), journal_.Entries().end(),
                                              [&](const JournalEntry& entry) { return entry.kind == kind; }));
    }

 private:
    /// The values, and the statements that have changed something so far.
    [[nodiscard]] std::string Seen(const std::vector<int>& values) const {
        std::string text;
        for (const int value : values) text += " " + std::to_string(value);
        for (const JournalEntry& entry : journal_.Entries()) {
            if (entry.kind == JournalEntry::Kind::Change) text += "\n" + entry.statement;
        }
        return text;
    }

    LoggedApp app_;
    FakeEvents events_;
    StatementJournal journal_;
    std::shared_ptr<clsConnection> connection_;
};

/// Makes tables and what is written to them, by a seed.
class Dice {
 public:
    explicit Dice(unsigned seed) : random_(seed) {
        isOdd_ = Below(2) == 0;
        hasAllColumns_ = Below(10) != 0;
    }

    int Below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random_); }

    Tables All() {
        return {{"__VERSION", {{"Major", "Minor", "SchemaDate", "schemaNotes"}, {{"1", "1", "", ""}}}},
                {"MFRPROTOCOLS", Random({"MfrProtocolID", "TAVMfrNameID", "ProtocolId", "MfrId"})},
                {"DEVICETYPES", Random({"TAVDevTypeID", "MfrProtocolID", "DeviceType", "Name"})},
                {"DEVICEREVISIONS", Random({"tavdevrevid", "tavdevtypeid", "devicerevision", "name"})},
                {"MAJORDEVICECATEGORIES", Random({"DevCat", "DevCatName"})},
                {"MINORDEVICECATEGORIES", Random({"DevCat", "DevCatName"})},
                {"DEVICECATEGORIES",
                 Random({"DeviceCategoryId", "MajorDeviceCategoryId", "MinorDeviceCategoryId"})}};
    }

    std::string Small() { return std::to_string(Below(5)); }

    std::string Name() {
        static const std::vector<std::string> kNames{"Torque", "TORQUE", "torque ", "Übung", "ÜBUNG", "1"};
        return kNames[static_cast<std::size_t>(Below(static_cast<int>(kNames.size())))];
    }

 private:
    Table Random(std::vector<std::string> columns) {
        Table table{std::move(columns), {}};
        if (!hasAllColumns_)
            table.columns[static_cast<std::size_t>(Below(4)) % table.columns.size()] = "Else";
        const int rows = Below(12);
        for (int row = 0; row < rows; ++row) {
            table.rows.emplace_back();
            for (std::size_t i = 0; i < table.columns.size(); ++i) table.rows.back().push_back(Cell());
        }
        return table;
    }

    std::optional<std::string> Cell() {
        static const std::vector<std::string> kOdd{"",    " ",     "abc", "32767", "32768", "40000", "1e999",
                                                   "2.5", "2.4",   "-1",  "-4e9",  "7x",    "2 x",   "+3",
                                                   ".",   "32766", "2.6", "\t2",   "1e0",   "0x2"};
        static const std::vector<std::string> kSameButWritten{"", " ", "0", "00"};
        if (isOdd_ && Below(8) == 0) return std::nullopt;
        if (isOdd_ && Below(6) == 0)
            return kOdd[static_cast<std::size_t>(Below(static_cast<int>(kOdd.size())))];
        if (Below(6) == 0) return Name();
        return kSameButWritten[static_cast<std::size_t>(Below(4))] + Small() + (Below(4) == 0 ? "  " : "");
    }

    std::minstd_rand random_;
    bool isOdd_ = false;
    bool hasAllColumns_ = true;
};

TEST(SearchIndex, FindsAndNumbersAsTheWalkThroughAllRowsDoes) {
    constexpr unsigned kTables = 2000;
    constexpr int kWrites = 12;
    int written = 0;
    int refused = 0;
    for (unsigned seed = 1; seed <= kTables; ++seed) {
        Dice dice(seed);
        const Tables tables = dice.All();
        Program walking(tables);
        Program searching(tables);
        searching.BeginTrans();
        for (int write = 0; write < kWrites; ++write) {
            std::string expected;
            std::string found;
            const std::string a = dice.Small();
            const std::string b = dice.Small();
            const std::string name = dice.Name();
            switch (dice.Below(3)) {
                case 0:
                    expected = walking.WriteManufacturer(a, b);
                    found = searching.WriteManufacturer(a, b);
                    break;
                case 1:
                    expected = walking.WriteDevice(a, b, static_cast<std::int16_t>(write % 4));
                    found = searching.WriteDevice(a, b, static_cast<std::int16_t>(write % 4));
                    break;
                default:
                    expected = walking.Categories(name, a, b);
                    found = searching.Categories(name, a, b);
            }
            ASSERT_EQ(found, expected) << "seed " << seed << ", write " << write;
        }
        const auto log = walking.Log();
        ASSERT_EQ(searching.Log(), log) << "seed " << seed;
        ASSERT_LE(searching.Count(JournalEntry::Kind::Snapshot), 7) << "every table once, seed " << seed;
        written += walking.Count(JournalEntry::Kind::Change);
        refused += static_cast<int>(log.size());
    }
    // The tables are such that both happens.
    EXPECT_GT(written, 5000);
    EXPECT_GT(refused, 2000);
}

TEST(SearchIndex, OfALongTableGivesAWalkAFewRowsOnly) {
    Recordset table({"Id", "Key"});
    constexpr int kRows = 30000;
    for (int i = 1; i <= kRows; ++i) table.AppendRow({std::to_string(i), std::to_string(i % 1000)});
    RowSearch search{{{"KEY", 7.0}}, {"ID"}};
    SearchIndex index(search);
    EXPECT_EQ(index.RowsFor(search, table)->RecordCount(), 32U) << "30 of the key, the first, the largest";
    search.key[0].value = 5000.0;
    const auto rows = index.RowsFor(search, table);
    EXPECT_EQ(rows->RecordCount(), 2U);
    rows->MoveNext();
    EXPECT_EQ(rows->Column("Id").Integer(), kRows);
}

TEST(SearchIndex, TakesInRowsThatCameLater) {
    Recordset table({"Id", "Key"});
    RowSearch search{{{"Key", std::string_view("a")}}, {"Id"}};
    SearchIndex index(search);
    EXPECT_EQ(index.RowsFor(search, table)->RecordCount(), 0U);
    table.AppendRow({"1", "b"});
    table.AppendRow({"2", "A"});
    table.AppendRow({"1", "c"});
    EXPECT_EQ(index.RowsFor(search, table)->RecordCount(), 2U);
}

}  // namespace
}  // namespace ventlock::test
