#include <soci/odbc/soci-odbc.h>
#include <soci/soci.h>

#include <algorithm>
#include <cctype>
#include <memory>

#include "support/ReadRows.h"

namespace ventlock::bench {
namespace {

/// A rowset of the library with its ODBC half. Its columns are found by the very letters that the database
/// gives.
class SociReader {
 public:
    explicit SociReader(const std::string& dataSource)
        : session_(*soci::factory_odbc(), "UID=sa;PWD=;DSN=" + dataSource) {}

    template <class Use>
    void Read(const std::string& query, Use& use) {
        const soci::rowset<soci::row> rows = session_.prepare << query;
        std::string names[4];
        for (const soci::row& row : rows) {
            if (names[0].empty()) {
                for (std::size_t i = 0; i < 4; ++i) names[i] = row.get_properties(i).get_name();
            }
            for (std::size_t i = 0; i < 3; ++i) use(row.get<int>(names[i]));
            use(row.get<std::string>(names[3]));
            use.EndRow();
        }
    }

 private:
    soci::session session_;
};

}  // namespace
}  // namespace ventlock::bench

/// soci_read <data source> <query> <answer>
int main(int count, char** arguments) {
    using namespace ventlock::bench;
    return ReadRows(count, arguments,
                    [](const std::string& dataSource) { return std::make_unique<SociReader>(dataSource); });
}
