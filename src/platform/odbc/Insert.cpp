#include "platform/odbc/Insert.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <variant>

#include "OdbcApi.h"
#include "platform/InsertStatement.h"
#include "platform/odbc/Calls.h"

namespace ventlock::odbc {
namespace {

// What the driver reads while the statement runs.
template <class Char>
struct BoundValue {
    std::vector<Char> text;
    double number = 0;
    SQLLEN length = 0;
};

template <class Char>
SQLRETURN Bind(SQLHANDLE statement, SQLUSMALLINT position, const RecordValue& from, BoundValue<Char>& value) {
    if (const double* number = std::get_if<double>(&from)) {
        value.number = *number;
        value.length = sizeof(value.number);
        return SQLBindParameter(statement, position, SQL_PARAM_INPUT, SQL_C_DOUBLE, SQL_DOUBLE, 15, 0,
                                &value.number, sizeof(value.number), &value.length);
    }
    value.text = Calls<Char>::Encode(std::get<std::string>(from));
    const std::size_t units = value.text.size() - 1;
    value.length = static_cast<SQLLEN>(units * sizeof(Char));
    return SQLBindParameter(statement, position, SQL_PARAM_INPUT, Calls<Char>::kBufferType,
                            Calls<Char>::kTextType, std::max<SQLULEN>(units, 1), 0, value.text.data(),
                            static_cast<SQLLEN>(value.text.size() * sizeof(Char)), &value.length);
}

template <class Char>
void BindAndExecute(Statement& statement, std::string_view table, const std::vector<RecordField>& record) {
    std::vector<BoundValue<Char>> values(record.size());
    for (std::size_t i = 0; i < record.size(); ++i) {
        statement.Require(
            Bind(statement.Get(), static_cast<SQLUSMALLINT>(i + 1), record[i].value, values[i]));
    }
    statement.Execute(InsertStatement(table, record));
}

}  // namespace

void InsertRecord(Statement& statement, std::string_view table, const std::vector<RecordField>& record) {
    WithCharacterOf(statement.Form(),
                    [&](auto character) { BindAndExecute<decltype(character)>(statement, table, record); });
}

}  // namespace ventlock::odbc
