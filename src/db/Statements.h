#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

/// The statement templates. Letter case and runs of blanks belong to them; "?" are filled one by one by
/// FillParam.
namespace ventlock::statements {

inline constexpr std::string_view kVersionRows = "SELECT *   FROM __version  ORDER BY Major, Minor ";
inline constexpr std::string_view kWholeTable = "SELECT *   FROM ? ";     ///< emptiness checks
inline constexpr std::string_view kSearchedTable = "select *   from ? ";  ///< id searches
inline constexpr std::string_view kProtocols = "SELECT *   FROM DeviceProtocols  ORDER BY ProtocolId ";
inline constexpr std::string_view kMajorCategories =
    "SELECT MajorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM MajorDeviceCategories  ORDER BY "
    "MajorDevicecategoryId ";
inline constexpr std::string_view kMinorCategories =
    "SELECT MinorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM MinorDeviceCategories  ORDER BY "
    "MinorDevicecategoryId ";
inline constexpr std::string_view kDeviceCategories =
    "SELECT *   FROM DeviceCategories  ORDER BY DevicecategoryId ";
inline constexpr std::string_view kNewMajorCategory =
    "INSERT INTO MajorDeviceCategories        (MajorDeviceCategoryId, Name, Description) VALUES ('?', '?', "
    "'?') ";
inline constexpr std::string_view kNewMinorCategory =
    "INSERT INTO MinorDeviceCategories        (MinorDeviceCategoryId, Name, Description) VALUES ('?', '?', "
    "'?') ";
inline constexpr std::string_view kNewDeviceCategory =
    "INSERT INTO DeviceCategories        (DeviceCategoryId, MajorDeviceCategoryId, MinorDeviceCategoryId) "
    "VALUES "
    "('?', '?', '?') ";
/// Changes no row. SQLite has one lock for all who write: a transaction that reads first and asks for it
/// later may stand in the way of one that has it and cannot end before the reader goes.
inline constexpr std::string_view kClaimTables = "UPDATE Manufacturers    SET Name = Name  WHERE 1 = 0 ";
inline constexpr std::string_view kNewManufacturer =
    "INSERT INTO ?        (TavMfrNameId, Name, Description) VALUES (?, '?', '?') ";
inline constexpr std::string_view kChangeManufacturer =
    "update ?    set Name = '?',        Description = '?'  where TAVMfrNameID = ? ";
inline constexpr std::string_view kNewManufacturerProtocol =
    "INSERT INTO ?        (MfrProtocolId, TavMfrNameId, ProtocolId, MfrId) VALUES (?, ?, ?, '?') ";
inline constexpr std::string_view kNewDeviceType =
    "INSERT INTO ?        (TavDevTypeId, MfrProtocolId, DeviceType, Name, Description) VALUES (?, ?, '?', "
    "'?', '?') ";
inline constexpr std::string_view kNewDeviceRevision =
    "INSERT INTO ?        (TavDevRevId, TavDevTypeId, DeviceRevision, DeviceCategoryId, Name, Description) "
    "VALUES "
    "(?, ?, '?', ?, '?', '?') ";
inline constexpr std::string_view kChangeDeviceType =
    "UPDATE ?    SET Name = '?',        Description = '?'  WHERE TavDevTypeId = ? ";
inline constexpr std::string_view kChangeDeviceRevision =
    "UPDATE ?    SET DeviceCategoryId = ?,        Name = '?',        Description = '?'  WHERE TavDevRevId = "
    "? ";
inline constexpr std::string_view kDeleteRowOne = "delete   from ?  where ? = 1 ";
inline constexpr std::string_view kDeleteOldManufacturer = "delete   from ?  where DevMfrId = ? ";
inline constexpr std::string_view kDeleteOldDeviceType =
    "delete   from ?  where DevMfrId = ?    and DevType = ? ";
inline constexpr std::string_view kDeleteOldDeviceRevision = "delete   from ?  where UDevRevId = ? ";

/// The statement with its "?" filled in turn, one FillParam a value. A value that holds a "?" takes the next
/// value in its place: the templates are kept as the database's own texts are, without any escaping.
std::string Fill(std::string_view statement, std::initializer_list<std::string_view> values);

}  // namespace ventlock::statements
