#include "db/StoredDevices.h"

#include <array>
#include <memory>
#include <optional>
#include <string_view>

#include "base/Numbers.h"
#include "base/Text.h"
#include "core/modCommonTools.h"
#include "db/SchemaVersion.h"
#include "db/Statements.h"

namespace ventlock {
namespace {

// The result columns are named as the settings are; the category pair is looked up behind them.
constexpr std::string_view kCurrentDevices =
    "SELECT P.MfrId AS ManID, M.Name AS ManName, M.Description AS ManDesc, P.ProtocolId AS ProtID, "
    "T.DeviceType AS DevID, T.Name AS DevName, T.Description AS DevDesc, R.DeviceRevision AS DevRev, "
    "R.Name AS DevRevName, R.Description AS DevRevDesc, R.DeviceCategoryId AS CatID "
    "FROM DeviceRevisions R LEFT JOIN DeviceTypes T ON T.TavDevTypeId = R.TavDevTypeId "
    "LEFT JOIN MfrProtocols P ON P.MfrProtocolId = T.MfrProtocolId "
    "LEFT JOIN Manufacturers M ON M.TavMfrNameId = P.TavMfrNameId ORDER BY R.TavDevRevId";
constexpr std::string_view kOldDevices =
    "SELECT P.DevMfrId AS ManID, M.MfrIdName AS ManName, P.DevType AS DevID, P.DevName AS DevName, "
    "P.DevRev AS DevRev, P.DevDDLRev AS DDRev, P.DevProtocolRev AS ProtRev "
    "FROM PDevices P LEFT JOIN MfrIds M ON M.DevMfrId = P.DevMfrId ORDER BY P.UDevRevId";

constexpr auto kNumbers = std::to_array<std::string_view>({"ManID", "DevID", "DevRev", "DDRev", "ProtRev"});
constexpr auto kIds = std::to_array<std::string_view>({"ProtID"});
constexpr auto kTexts =
    std::to_array<std::string_view>({"ManName", "ManDesc", "DevName", "DevDesc", "DevRevName", "DevRevDesc"});

/// A number as an id can be written; nothing for NULL and every other text.
std::optional<double> IdOf(const Field& field) {
    const std::optional<double> number = field.IsNull() ? std::nullopt : WholeNumber(*field.Value());
    constexpr double kLargest = 9007199254740991;  // up to which numbers are exact
    const bool isId = number && *number >= 0 && *number <= kLargest &&
                      *number == static_cast<double>(static_cast<long long>(*number));
    return isId ? number : std::nullopt;
}

void TakeTexts(const Recordset& rows, DeviceTexts& device) {
    for (const std::string_view name : kNumbers) {
        if (!rows.HasColumn(name)) continue;
        if (const auto id = IdOf(rows.Column(name))) device.emplace(name, HexText(*id));
    }
    for (const std::string_view name : kIds) {
        if (!rows.HasColumn(name)) continue;
        if (const auto id = IdOf(rows.Column(name))) device.emplace(name, DecimalText(*id));
    }
    for (const std::string_view name : kTexts) {
        if (!rows.HasColumn(name) || rows.Column(name).IsNull()) continue;
        device.emplace(name, Trim(*rows.Column(name).Value()));
    }
}

void TakeCategories(double category, Recordset& pairs, DeviceTexts& device) {
    for (pairs.MoveTo(0); !pairs.AtEnd(); pairs.MoveNext()) {
        if (!SameNumber(pairs.Column("DeviceCategoryId").Value(), category)) continue;
        const auto major = IdOf(pairs.Column("MajorDeviceCategoryId"));
        const auto minor = IdOf(pairs.Column("MinorDeviceCategoryId"));
        if (!major || !minor) return;
        device.emplace("DevCatID", DecimalText(*major));
        device.emplace("DevMinCatID", DecimalText(*minor));
        return;
    }
}

}  // namespace

std::vector<DeviceTexts> StoredDevices(IConnection& connection, std::int16_t schemaVersion) {
    const bool isCurrent = schemaVersion >= kCurrentSchema;
    std::unique_ptr<Recordset> pairs;
    if (isCurrent) pairs = connection.OpenRecordset(statements::kDeviceCategories, RecordsetType::Snapshot);
    const auto rows =
        connection.OpenRecordset(isCurrent ? kCurrentDevices : kOldDevices, RecordsetType::Snapshot);
    std::vector<DeviceTexts> devices;
    for (; !rows->AtEnd(); rows->MoveNext()) {
        DeviceTexts& device = devices.emplace_back();
        TakeTexts(*rows, device);
        if (!isCurrent) continue;
        if (const auto category = IdOf(rows->Column("CatID"))) TakeCategories(*category, *pairs, device);
    }
    return devices;
}

}  // namespace ventlock
