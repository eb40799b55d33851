#pragma once

#include <sql.h>
#include <sqlext.h>

#include <cstddef>
#include <string>
#include <vector>

namespace ventlock::bench {

/// A connection to a data source by the plain interface.
class Odbc {
 public:
    /// @throws std::runtime_error
    explicit Odbc(const std::string& dataSource);
    ~Odbc();
    Odbc(const Odbc&) = delete;
    Odbc& operator=(const Odbc&) = delete;

    /// True when the driver has the wide functions, so that the driver manager does not convert text.
    [[nodiscard]] bool IsWide() const noexcept { return isWide_; }

    /// A new statement that has run `text`; to be given back with Free. @throws std::runtime_error
    SQLHSTMT Run(const std::string& text);
    static void Free(SQLHSTMT statement);

    /// Runs a statement that has no rows. @throws std::runtime_error
    void Execute(const std::string& text) { Free(Run(text)); }

    /// Commits nothing by itself from now on, and then all at once. @throws std::runtime_error
    void Begin();
    void Commit();

 private:
    SQLHENV environment_ = nullptr;
    SQLHDBC connection_ = nullptr;
    bool isWide_ = false;
};

/// Raises what went wrong with a handle unless `result` is a success. @throws std::runtime_error
void Require(SQLRETURN result, SQLSMALLINT type, SQLHANDLE handle);

/// The rows of a statement, in blocks in arrays that are bound to some of its columns.
template <class Cell>
class Block {
 public:
    static constexpr std::size_t kRows = 256;

    /// @param units   how many of `Cell` one value takes
    Block(SQLHSTMT statement, SQLSMALLINT type, const std::vector<std::pair<int, std::size_t>>& columns)
        : statement_(statement), columns_(columns.size()) {
        const auto set = [&](SQLINTEGER attribute, void* value) {
            Require(SQLSetStmtAttr(statement_, attribute, value, 0), SQL_HANDLE_STMT, statement_);
        };
        set(SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<void*>(kRows));
        set(SQL_ATTR_ROWS_FETCHED_PTR, &fetched_);
        for (std::size_t i = 0; i < columns.size(); ++i) {
            Column& column = columns_[i];
            column.units = columns[i].second;
            column.cells.resize(kRows * column.units);
            column.lengths.resize(kRows);
            Require(
                SQLBindCol(statement_, static_cast<SQLUSMALLINT>(columns[i].first), type, column.cells.data(),
                           static_cast<SQLLEN>(column.units * sizeof(Cell)), column.lengths.data()),
                SQL_HANDLE_STMT, statement_);
        }
    }
    ~Block() { Odbc::Free(statement_); }
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;

    /// False behind the last block.
    bool Fetch() {
        const SQLRETURN result = SQLFetch(statement_);
        if (result == SQL_NO_DATA) return false;
        Require(result, SQL_HANDLE_STMT, statement_);
        return true;
    }

    [[nodiscard]] std::size_t Rows() const noexcept { return fetched_; }
    [[nodiscard]] const Cell* At(std::size_t row, std::size_t column) const noexcept {
        return columns_[column].cells.data() + row * columns_[column].units;
    }
    [[nodiscard]] std::size_t Length(std::size_t row, std::size_t column) const noexcept {
        return static_cast<std::size_t>(columns_[column].lengths[row]) / sizeof(Cell);
    }

 private:
    struct Column {
        std::size_t units = 0;
        std::vector<Cell> cells;
        std::vector<SQLLEN> lengths;
    };

    SQLHSTMT statement_;
    std::vector<Column> columns_;
    SQLULEN fetched_ = 0;
};

}  // namespace ventlock::bench
