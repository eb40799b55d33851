#include "platform/InsertStatement.h"

namespace ventlock {

std::string InsertStatement(std::string_view table, const std::vector<RecordField>& record) {
    std::string names;
    std::string markers;
    for (const RecordField& field : record) {
        const char* separator = names.empty() ? "" : ", ";
        names.append(separator).append(field.name);
        markers.append(separator).append("?");
    }
    return "INSERT INTO " + std::string(table) + " (" + names + ") VALUES (" + markers + ")";
}

}  // namespace ventlock
