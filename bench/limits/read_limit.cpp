#include <memory>

#include "limits/Odbc.h"
#include "support/ReadRows.h"

namespace ventlock::bench {
namespace {

/// Blocks of rows in arrays, in the form in which a driver gives text whole, and nothing kept of them.
class ReadLimit {
 public:
    explicit ReadLimit(const std::string& dataSource) : odbc_(dataSource) {}

    template <class Use>
    void Read(const std::string& query, Use& use) {
        if (odbc_.IsWide()) {
            ReadAs<SQLWCHAR>(query, SQL_C_WCHAR, use);
        } else {
            ReadAs<char>(query, SQL_C_CHAR, use);
        }
    }

 private:
    template <class Char, class Use>
    void ReadAs(const std::string& query, SQLSMALLINT type, Use& use) {
        Block<Char> block(odbc_.Run(query), type, {{1, 16}, {2, 16}, {3, 16}, {4, 32}});
        std::string text;
        while (block.Fetch()) {
            for (std::size_t row = 0; row < block.Rows(); ++row) {
                for (std::size_t column = 0; column < 4; ++column) {
                    const Char* const cell = block.At(row, column);
                    text.assign(cell, cell + block.Length(row, column));  // all of them are ASCII
                    use(text);
                }
                use.EndRow();
            }
        }
    }

    Odbc odbc_;
};

}  // namespace
}  // namespace ventlock::bench

/// read_limit <data source> <query> <answer>
int main(int count, char** arguments) {
    using namespace ventlock::bench;
    return ReadRows(count, arguments,
                    [](const std::string& dataSource) { return std::make_unique<ReadLimit>(dataSource); });
}
