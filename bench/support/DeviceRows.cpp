#include "support/DeviceRows.h"

#include <array>
#include <cstdio>

namespace ventlock::bench {
namespace {

std::size_t ManufacturerId(std::size_t device) {
    return device + 32;
}

std::string Name(const char* kind, std::size_t device) {
    return kind + (" " + std::to_string(device));
}

std::string Hexadecimal(std::size_t number) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%04zX", number);
    return text.data();
}

}  // namespace

const std::vector<std::string>& DeviceQueries() {
    static const std::vector<std::string> queries{
        "SELECT TavMfrNameId, Name, Description FROM Manufacturers ORDER BY TavMfrNameId",
        "SELECT MfrProtocolId, TavMfrNameId, ProtocolId, MfrId FROM MfrProtocols ORDER BY MfrProtocolId",
        "SELECT TavDevTypeId, MfrProtocolId, DeviceType, Name, Description FROM DeviceTypes ORDER BY "
        "TavDevTypeId",
        "SELECT TavDevRevId, TavDevTypeId, DeviceRevision, DeviceCategoryId, Name, Description FROM "
        "DeviceRevisions ORDER BY TavDevRevId"};
    return queries;
}

std::vector<std::string> DeviceInserts(std::size_t count) {
    if (count == 0) return {};
    const std::string numbers = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
                                std::to_string(count) + ") ";
    const auto text = [](const std::string& value) { return "CAST(" + value + " AS VARCHAR(16))"; };
    return {"INSERT INTO Manufacturers " + numbers + "SELECT i, 'Acme ' || i, '' FROM n",
            "INSERT INTO MfrProtocols " + numbers + "SELECT i, i, 0, " + text("i + 32") + " FROM n",
            "INSERT INTO DeviceTypes " + numbers + "SELECT i, i, " + text("i") + ", 'Flow ' || i, '' FROM n",
            "INSERT INTO DeviceRevisions " + numbers + "SELECT i, i, '1', 0, '', '' FROM n"};
}

std::vector<std::string> ExpectedRows(std::size_t first, std::size_t last) {
    std::vector<std::string> tables(4);
    for (std::size_t i = first; i <= last; ++i) {
        const std::string n = std::to_string(i);
        tables[0] += n + "|" + Name("Acme", i) + "|\n";
        tables[1] += n + "|" + n + "|0|" + std::to_string(ManufacturerId(i)) + "\n";
        tables[2] += n + "|" + n + "|" + n + "|" + Name("Flow", i) + "|\n";
        tables[3] += n + "|" + n + "|1|0||\n";
    }
    return tables;
}

std::string EntriesOf(std::size_t first, std::size_t last) {
    std::string entries;
    for (std::size_t i = first; i <= last; ++i) {
        entries += "[" + Name("Device", i) + "]\nManID=" + Hexadecimal(ManufacturerId(i)) +
                   "\nManName=" + Name("Acme", i) + "\nDevID=" + Hexadecimal(i) +
                   "\nDevName=" + Name("Flow", i) + "\nDevRev=1\nDDRev=1\nDLLName=Dev\nTemplateName=t\n";
    }
    return entries;
}

std::string LinesOf(std::size_t first, std::size_t last) {
    std::string lines;
    for (std::size_t i = first; i <= last; ++i) {
        lines += std::to_string(ManufacturerId(i)) + '\t' + Name("Acme", i) + '\t' + std::to_string(i) +
                 '\t' + Name("Flow", i) + '\n';
    }
    return lines;
}

}  // namespace ventlock::bench
