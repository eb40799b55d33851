#include "db/clsTavDB.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "core/clsLog.h"
#include "core/modLocalization.h"
#include "db/DatabaseOf.h"
#include "db/RunningMaximum.h"
#include "db/SchemaVersion.h"
#include "db/Statements.h"
#include "db/Tables.h"
#include "platform/Casing.h"

namespace ventlock {
namespace {

using statements::Fill;

/// @throws RunTimeError 5 for a kind that is neither major nor minor.
std::string_view CategoryStatement(std::int16_t iOperation, std::string_view major, std::string_view minor) {
    if (iOperation == kMajorCategory) return major;
    if (iOperation == kMinorCategory) return minor;
    throw RunTimeError(ErrorNumber::InvalidProcedureCall);
}

/// The id of a found row, as the column's own text. @throws RunTimeError 94 for NULL.
std::string OwnText(const Field& field) {
    if (field.IsNull()) throw RunTimeError(ErrorNumber::InvalidUseOfNull);
    return std::string(Trim(*field.Value()));
}

}  // namespace

bool clsTavDB::Init(const AppObjects& oAppObjects, const std::optional<std::int16_t>& vOperation) {
    oAppObjects_ = &oAppObjects;
    return Guarded(oAppObjects_, "DBinit", false, [&](StepLabel&) {
        if (vOperation != std::int16_t{2}) return false;
        Version = FindVersion();
        if (Version == kUnsupportedSchema || Version == kUnreadableSchema) {
            oAppObjects_->Get<clsLog>(kLogKey).Log(GetString("IDS_MSG_DB_ERR_VER_NOSUPPORT"));
            return false;
        }
        const bool manufacturerReady = Manufacturer().Init(oAppObjects, Version, 2);
        const bool deviceReady = Device().Init(oAppObjects, Version, 2);
        isInitialized_ = manufacturerReady && deviceReady;
        return isInitialized_;
    });
}

std::unique_ptr<clsTavDB> clsTavDB::CopyFor(const AppObjects& oAppObjects) const {
    auto copy = std::make_unique<clsTavDB>(events_);
    copy->oAppObjects_ = &oAppObjects;
    copy->isInitialized_ = isInitialized_;
    copy->Version = Version;
    copy->DBPath = DBPath;
    copy->LastTAVVersions = LastTAVVersions;
    const auto copyRecord = [&]<class Record>(const std::unique_ptr<Record>& from,
                                              std::unique_ptr<Record>& to) {
        if (!from) return;
        to = std::make_unique<Record>(*from);
        to->Init(oAppObjects, Version, 2);
    };
    copyRecord(manufacturer_, copy->manufacturer_);
    copyRecord(device_, copy->device_);
    return copy;
}

clsManufacturer& clsTavDB::Manufacturer() {
    if (!manufacturer_) manufacturer_ = std::make_unique<clsManufacturer>(events_);
    return *manufacturer_;
}

clsDevice& clsTavDB::Device() {
    if (!device_) device_ = std::make_unique<clsDevice>(events_);
    return *device_;
}

std::int16_t clsTavDB::FindVersion() {
    std::vector<clsDBVersion> versions;
    if (!LoadVersionInfo(versions)) return kUnreadableSchema;
    std::int16_t major = 0;
    std::int16_t minor = 0;
    for (const clsDBVersion& version : versions) {
        if (version.Major >= major) {
            major = version.Major;
            minor = version.Minor;
        }
        events_.Yield();
    }
    Version = kUnsupportedSchema;
    if (major == 0 || (major == 1 && minor < 1)) Version = kOldSchema;
    if (major == 1 && minor >= 1) Version = kCurrentSchema;
    return Version;
}

bool clsTavDB::LoadVersionInfo(std::vector<clsDBVersion>& versions) {
    return Guarded(oAppObjects_, "DBlvi", false, [&](StepLabel&) {
        const auto rows = OpenSnapshot(oAppObjects_, statements::kVersionRows);
        for (; !rows->AtEnd(); rows->MoveNext()) {
            versions.push_back({rows->Column("Major").Integer(), rows->Column("Minor").Integer(),
                                rows->Column("SchemaDate").Text(), rows->Column("schemaNotes").Text()});
            events_.Yield();
        }
        return true;
    });
}

std::optional<bool> clsTavDB::IsEmpty() {
    return Guarded(oAppObjects_, "DBie", std::optional<bool>(), [&](StepLabel&) -> std::optional<bool> {
        if (Version == kOldSchema) return IsEmptyOld();
        if (Version == kCurrentSchema) return IsEmptyCurrent();
        return std::nullopt;
    });
}

bool clsTavDB::IsEmptyOld() {
    return Guarded(oAppObjects_, "DBe0", false,
                   [&](StepLabel& step) { return HaveFewRows(step, tables::kMfrIds, tables::kDevTypes); });
}

bool clsTavDB::IsEmptyCurrent() {
    return Guarded(oAppObjects_, "DBe1", false, [&](StepLabel& step) {
        return HaveFewRows(step, tables::kManufacturers, tables::kDeviceTypes);
    });
}

/// One row still counts as empty, and both tables are always read.
bool clsTavDB::HaveFewRows(StepLabel& step, std::string_view manufacturers, std::string_view deviceTypes) {
    bool few = true;
    step = "01";
    if (OpenSnapshot(oAppObjects_, Fill(statements::kWholeTable, {manufacturers}))->RecordCount() > 1)
        few = false;
    step = "02";
    if (OpenSnapshot(oAppObjects_, Fill(statements::kWholeTable, {deviceTypes}))->RecordCount() > 1)
        few = false;
    return few;
}

bool clsTavDB::LoadCategories(IList& cboCategory, std::int16_t iOperation) {
    return Guarded(oAppObjects_, "DBlc", false, [&](StepLabel&) {
        const std::string_view statement =
            CategoryStatement(iOperation, statements::kMajorCategories, statements::kMinorCategories);
        LoadList(cboCategory, statement, "DevCat", "DevCatName");
        return true;
    });
}

bool clsTavDB::LoadProtocols(IList& cboProtocol) {
    return Guarded(oAppObjects_, "DBlp", false, [&](StepLabel&) {
        LoadList(cboProtocol, statements::kProtocols, "ProtocolId", "Name");
        return true;
    });
}

void clsTavDB::LoadList(IList& list, std::string_view statement, std::string_view idColumn,
                        std::string_view textColumn) {
    const auto rows = OpenSnapshot(oAppObjects_, statement);
    std::vector<ListItem> items;
    try {
        for (; !rows->AtEnd(); rows->MoveNext()) {
            items.push_back({rows->Column(textColumn).Text(), 0});
            items.back().data = ToItemData(rows->Column(idColumn).Number());
            events_.Yield();
        }
    } catch (...) {
        list.Add(items);  // what has been read so far is offered
        throw;
    }
    list.Add(items);
}

std::string clsTavDB::GetCategoryID(const std::string& szCategory, std::int16_t iOperation) {
    return Guarded(oAppObjects_, "DBgci", std::string(), [&](StepLabel& step) -> std::string {
        if (szCategory.empty()) return "0";
        if (!isInitialized_) return "";
        step = "01";
        const std::string_view select =
            CategoryStatement(iOperation, statements::kMajorCategories, statements::kMinorCategories);
        RunningMaximum largest;
        step = "02";
        const auto rows = OpenSearch(oAppObjects_, select, {{{"DevCatName", szCategory}}, {"DevCat"}});
        for (; !rows->AtEnd(); rows->MoveNext()) {
            const Field name = rows->Column("DevCatName");
            if (!name.IsNull() && EqualIgnoringCase(*name.Value(), szCategory)) {
                step = "02.1";
                return OwnText(rows->Column("DevCat"));
            }
            step = "02.2";
            largest.Consider(rows->Column("DevCat"));
            events_.Yield();
        }
        step = "03";
        std::string number = DecimalText(largest.Next());
        const std::string_view insert =
            CategoryStatement(iOperation, statements::kNewMajorCategory, statements::kNewMinorCategory);
        DatabaseOf(oAppObjects_).Execute(Fill(insert, {number, szCategory, ""}));
        return number;
    });
}

std::string clsTavDB::GetDevCatID(const std::string& szMajCat, const std::string& szMinCat) {
    return Guarded(oAppObjects_, "DBgdci", std::string(), [&](StepLabel& step) -> std::string {
        if (szMajCat.empty() || szMinCat.empty()) return "0";
        if (!isInitialized_) return "";
        const double major = NumericValue(szMajCat);
        const double minor = NumericValue(szMinCat);
        RunningMaximum largest;
        step = "01";
        const auto rows = OpenSearch(
            oAppObjects_, statements::kDeviceCategories,
            {{{"MajorDeviceCategoryId", major}, {"MinorDeviceCategoryId", minor}}, {"DeviceCategoryID"}});
        for (; !rows->AtEnd(); rows->MoveNext()) {
            if (SameNumber(rows->Column("MajorDeviceCategoryId").Value(), major) &&
                SameNumber(rows->Column("MinorDeviceCategoryId").Value(), minor)) {
                step = "01.1";
                return OwnText(rows->Column("DeviceCategoryID"));
            }
            step = "01.2";
            largest.Consider(rows->Column("DeviceCategoryID"));
            events_.Yield();
        }
        step = "03";
        std::string number = DecimalText(largest.Next());
        DatabaseOf(oAppObjects_).Execute(Fill(statements::kNewDeviceCategory, {number, szMajCat, szMinCat}));
        return number;
    });
}

bool clsTavDB::Update() {
    return Guarded(oAppObjects_, "DBupd", false, [&](StepLabel& step) {
        step = "03";
        if (!Manufacturer().Insert()) return false;
        step = "04";
        if (Version == kCurrentSchema) {
            const std::int16_t number = Manufacturer().MfrProtocolID();
            if (number == -1 || !Manufacturer().HasMfrProtocolID()) return false;
            Device().ManProtID = number;
        }
        return Device().Insert();
    });
}

}  // namespace ventlock
