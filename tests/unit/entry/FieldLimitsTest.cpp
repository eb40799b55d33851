#include "entry/FieldLimits.h"

#include <gtest/gtest.h>

#include <ostream>
#include <regex>
#include <string>
#include <vector>

#include "support/RowName.h"
#include "support/TempFolder.h"

namespace ventlock::test {
namespace {

struct SchemaFile {
    std::string name;
    std::string path;
    std::size_t names;         ///< how many columns hold names
    std::size_t descriptions;  ///< how many hold descriptions
};

void PrintTo(const SchemaFile& row, std::ostream* out) {
    *out << row.path;
}

/// Lengths that the columns declare whose names match; one a column, in the file's order.
std::vector<std::size_t> DeclaredLengths(const std::string& script, const std::string& column) {
    const std::regex declaration("\\n\\s+" + column + "\\s+VARCHAR\\((\\d+)\\)", std::regex::icase);
    std::vector<std::size_t> lengths;
    for (std::sregex_iterator at(script.begin(), script.end(), declaration), end; at != end; ++at) {
        lengths.push_back(std::stoul((*at)[1]));
    }
    return lengths;
}

class FieldLimits : public testing::TestWithParam<SchemaFile> {
 protected:
    std::string script_ = ReadBytes(VENTLOCK_SOURCE_FOLDER "/data/schema/" + GetParam().path);
};

TEST_P(FieldLimits, OfNamesAreWhatTheSchemaDeclares) {
    const auto lengths = DeclaredLengths(script_, "(?:Name|MfrIdName|DevTypeDesc|DevName)");
    EXPECT_EQ(lengths, std::vector<std::size_t>(GetParam().names, limits::kName));
}

TEST_P(FieldLimits, OfDescriptionsAreWhatTheSchemaDeclares) {
    const auto lengths = DeclaredLengths(script_, "Description");
    EXPECT_EQ(lengths, std::vector<std::size_t>(GetParam().descriptions, limits::kDescription));
}

INSTANTIATE_TEST_SUITE_P(Files, FieldLimits,
                         testing::Values(SchemaFile{"CommonSqlite", "common/sqlite.sql", 3, 3},
                                         SchemaFile{"CommonPostgresql", "common/postgresql.sql", 3, 3},
                                         SchemaFile{"CommonMariadb", "common/mariadb.sql", 3, 3},
                                         SchemaFile{"CurrentSqlite", "current/sqlite.sql", 3, 3},
                                         SchemaFile{"CurrentPostgresql", "current/postgresql.sql", 3, 3},
                                         SchemaFile{"CurrentMariadb", "current/mariadb.sql", 3, 3},
                                         SchemaFile{"OldSqlite", "old/sqlite.sql", 3, 0},
                                         SchemaFile{"OldPostgresql", "old/postgresql.sql", 3, 0},
                                         SchemaFile{"OldMariadb", "old/mariadb.sql", 3, 0}),
                         RowName());

TEST(FieldLimitsOfSqlite, AreChecksThatStateTheSameLengthsAsTheColumns) {
    // The database itself keeps no length, so a column without its check would take any text.
    for (const char* const path : {"common/sqlite.sql", "current/sqlite.sql", "old/sqlite.sql"}) {
        const std::string script = ReadBytes(std::string(VENTLOCK_SOURCE_FOLDER "/data/schema/") + path);
        const std::regex column("\\n\\s+(\\w+)\\s+VARCHAR\\((\\d+)\\)([^\\n]*)");
        std::size_t columns = 0;
        for (std::sregex_iterator at(script.begin(), script.end(), column), end; at != end; ++at, ++columns) {
            const std::string check = "CHECK (length(" + (*at)[1].str() + ") <= " + (*at)[2].str() + ")";
            EXPECT_NE((*at)[3].str().find(check), std::string::npos) << path << ": " << (*at)[1];
        }
        EXPECT_GE(columns, 4U) << path;
    }
}

}  // namespace
}  // namespace ventlock::test
