#include "db/clsDevice.h"

#include "base/Numbers.h"
#include "core/modCommonTools.h"
#include "db/DatabaseOf.h"
#include "db/RunningMaximum.h"
#include "db/SchemaVersion.h"
#include "db/Statements.h"
#include "db/Tables.h"

namespace ventlock {

using statements::Fill;

bool clsDevice::Init(const AppObjects& oAppObjects, std::int16_t iVersion,
                     const std::optional<std::int16_t>& vOperation) {
    oAppObjects_ = &oAppObjects;
    iVersion_ = iVersion;
    return vOperation == std::int16_t{2};
}

bool clsDevice::Insert(const std::optional<std::int16_t>& vNoName) {
    return Guarded(oAppObjects_, "DEVins", false, [&](StepLabel& step) {
        NoName = vNoName.value_or(0);
        if (iVersion_ == kOldSchema) {
            InsertOld(step);
        } else if (iVersion_ == kCurrentSchema) {
            return InsertCurrent(step);
        }
        return true;
    });
}

void clsDevice::InsertOld(StepLabel& step) {
    step = "01";
    const auto types = DatabaseOf(oAppObjects_).OpenRecordset(tables::kDevTypes, RecordsetType::Dynaset);
    types->AddNew();
    types->Set("DevMfrId", HexToNumber(ManID));
    types->Set("DevType", HexToNumber(DevID));
    types->Set("DevTypeDesc", DevName);
    types->Update();

    step = "02";
    const auto revisions = DatabaseOf(oAppObjects_).OpenRecordset(tables::kPDevices, RecordsetType::Dynaset);
    revisions->AddNew();
    revisions->Set("UDevRevId", OldRevisionKey(ManID, DevID, DevRev));
    revisions->Set("DevMfrId", HexToNumber(ManID));
    revisions->Set("DevType", HexToNumber(DevID));
    revisions->Set("DevName", DevName);
    revisions->Set("DevRev", HexToNumber(DevRev));
    revisions->Set("DevDDLRev", HexToNumber(DDRev));
    revisions->Set("DevProtocolRev", HexToNumber(ProtRev));
    revisions->Update();
}

/// The old schema's key: the typed hexadecimal texts, padded and not converted.
std::string clsDevice::OldRevisionKey(std::string_view manufacturer, std::string_view type,
                                      std::string_view revision) {
    return PadString(manufacturer, 8) + PadString(type, 4) + PadString(revision, 4);
}

bool clsDevice::InsertCurrent(StepLabel& step) {
    step = "03";
    const std::int16_t type = TAVDevTypeID();
    if (type == -1 || !devTypeID_) return false;
    if (!typeFound_) {
        step = "03.1";
        DatabaseOf(oAppObjects_)
            .Execute(Fill(statements::kNewDeviceType,
                          {tables::kDeviceTypes, DecimalText(type), DecimalText(ManProtID),
                           DecimalText(HexToNumber(DevID)), DevName, DevDesc}));
        step = "03.2";
        return InsertRevision();
    }
    step = "03.3";
    DatabaseOf(oAppObjects_)
        .Execute(
            Fill(statements::kChangeDeviceType, {tables::kDeviceTypes, DevName, DevDesc, DecimalText(type)}));
    step = "03.4";
    const std::int16_t revision = TAVDevRevID();
    if (revision == -1 || !devRevID_) return false;
    if (!revisionFound_) {
        step = "03.4a";
        return InsertRevision();
    }
    step = "03.4b";
    DatabaseOf(oAppObjects_)
        .Execute(Fill(statements::kChangeDeviceRevision,
                      {tables::kDeviceRevisions, DecimalText(NumericValue(CatID)), RevName, RevDesc,
                       DecimalText(revision)}));
    return true;
}

bool clsDevice::InsertRevision() {
    const std::int16_t revision = TAVDevRevID();
    if (revision == -1 || !devRevID_) return false;
    DatabaseOf(oAppObjects_)
        .Execute(
            Fill(statements::kNewDeviceRevision,
                 {tables::kDeviceRevisions, DecimalText(revision), DecimalText(TAVDevTypeID()),
                  DecimalText(HexToNumber(DevRev)), DecimalText(NumericValue(CatID)), RevName, RevDesc}));
    return true;
}

std::int16_t clsDevice::TAVDevTypeID() {
    return Guarded(oAppObjects_, "DEVadtid", std::int16_t{0}, [&](StepLabel& step) {
        if (!devTypeID_) devTypeID_ = SearchType(step);
        return *devTypeID_;
    });
}

std::int16_t clsDevice::SearchType(StepLabel& step) {
    const RowKey key = TypeKey();
    RunningMaximum largest;
    step = "01";
    const auto rows = OpenSearch(oAppObjects_, Fill(statements::kSearchedTable, {key.table}),
                                 {key.parts, {"TAVDevTypeID"}});
    for (; !rows->AtEnd(); rows->MoveNext()) {
        if (Carries(*rows, key)) {
            step = "01.1";
            const std::int16_t number = rows->Column("TAVDevTypeID").Integer();
            typeFound_ = true;
            return number;
        }
        step = "01.2";
        largest.Consider(rows->Column("TAVDevTypeID"));
        events_.Yield();
    }
    step = "02";
    typeFound_ = false;
    return largest.Next();
}

std::int16_t clsDevice::TAVDevRevID() {
    return Guarded(oAppObjects_, "DEVadrid", std::int16_t{0}, [&](StepLabel& step) {
        if (devRevID_) return *devRevID_;
        TAVDevTypeID();
        // Without the type's number there is nothing to search by; its own search has reported why.
        if (!devTypeID_) return std::int16_t{0};
        devRevID_ = SearchRevision(step);
        return *devRevID_;
    });
}

std::int16_t clsDevice::SearchRevision(StepLabel& step) {
    const RowKey key = RevisionKey();
    RunningMaximum largest;
    step = "01";
    const auto rows =
        OpenSearch(oAppObjects_, Fill(statements::kSearchedTable, {key.table}), {key.parts, {"TAVDevRevID"}});
    for (; !rows->AtEnd(); rows->MoveNext()) {
        if (Carries(*rows, key)) {
            step = "01.1";
            const std::int16_t number = rows->Column("TAVDevRevID").Integer();
            revisionFound_ = true;
            return number;
        }
        step = "01.2";
        largest.Consider(rows->Column("TAVDevRevID"));
        events_.Yield();
    }
    step = "02";
    revisionFound_ = false;
    return largest.Next();
}

RowKey clsDevice::TypeKey() const {
    return {tables::kDeviceTypes,
            {{"DeviceType", HexToNumber(DevID)}, {"MfrProtocolID", static_cast<double>(ManProtID)}}};
}

RowKey clsDevice::RevisionKey() const {
    return {tables::kDeviceRevisions,
            {{"TAVDevTypeID", static_cast<double>(devTypeID_.value_or(0))},
             {"DeviceRevision", HexToNumber(DevRev)}}};
}

bool clsDevice::Delete() {
    return Guarded(oAppObjects_, "DEVdel", false, [&](StepLabel& step) {
        if (iVersion_ == kOldSchema) {
            step = "01";
            const std::string key = "\"" + OldRevisionKey(OManID, ODevId, ODevRev) + "\"";
            DatabaseOf(oAppObjects_)
                .Execute(Fill(statements::kDeleteOldDeviceRevision, {tables::kPDevices, key}));
            step = "02";
            DatabaseOf(oAppObjects_)
                .Execute(Fill(
                    statements::kDeleteOldDeviceType,
                    {tables::kDevTypes, DecimalText(HexToNumber(OManID)), DecimalText(HexToNumber(ODevId))}));
        } else if (iVersion_ == kCurrentSchema) {
            step = "03";
            DatabaseOf(oAppObjects_)
                .Execute(Fill(statements::kDeleteRowOne, {tables::kDeviceRevisions, "TavDevRevId"}));
            step = "04";
            DatabaseOf(oAppObjects_)
                .Execute(Fill(statements::kDeleteRowOne, {tables::kDeviceTypes, "TavDevTypeId"}));
        }
        return true;
    });
}

}  // namespace ventlock
