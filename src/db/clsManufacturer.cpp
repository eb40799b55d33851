#include "db/clsManufacturer.h"

#include "base/Numbers.h"
#include "core/modCommonTools.h"
#include "db/DatabaseOf.h"
#include "db/RunningMaximum.h"
#include "db/SchemaVersion.h"
#include "db/Statements.h"
#include "db/Tables.h"

namespace ventlock {

using statements::Fill;

bool clsManufacturer::Init(const AppObjects& oAppObjects, std::int16_t iVersion,
                           const std::optional<std::int16_t>& vOperation) {
    oAppObjects_ = &oAppObjects;
    iVersion_ = iVersion;
    return vOperation == std::int16_t{2};
}

bool clsManufacturer::Insert() {
    return Guarded(oAppObjects_, "MANins", false, [&](StepLabel& step) {
        if (iVersion_ == kOldSchema) {
            step = "01";
            InsertOld();
        } else if (iVersion_ == kCurrentSchema) {
            return InsertCurrent(step);
        }
        return true;
    });
}

void clsManufacturer::InsertOld() {
    const auto table = DatabaseOf(oAppObjects_).OpenRecordset(tables::kMfrIds, RecordsetType::Dynaset);
    table->AddNew();
    table->Set("DevMfrId", HexToNumber(ManID));
    table->Set("MfrIdName", Name);
    table->Update();
}

bool clsManufacturer::InsertCurrent(StepLabel& step) {
    step = "02";
    const std::int16_t mfrProtocolID = MfrProtocolID();
    if (mfrProtocolID == -1 || !HasMfrProtocolID()) return false;
    if (MfrProtocolFound != 0) {
        step = "02.3";
        RefreshManufacturer();
        return true;
    }
    if (MfrNameFound == 0) {
        step = "02.1a";
        DatabaseOf(oAppObjects_)
            .Execute(Fill(statements::kNewManufacturer,
                          {tables::kManufacturers, DecimalText(TAVMfrNameID), Name, Desc}));
    } else {
        step = "02.1b";
        RefreshManufacturer();
    }
    step = "02.2";
    DatabaseOf(oAppObjects_)
        .Execute(Fill(statements::kNewManufacturerProtocol,
                      {tables::kMfrProtocols, DecimalText(mfrProtocolID), DecimalText(TAVMfrNameID),
                       DecimalText(NumericValue(ProtID)), DecimalText(HexToNumber(ManID))}));
    return true;
}

void clsManufacturer::RefreshManufacturer() {
    DatabaseOf(oAppObjects_)
        .Execute(Fill(statements::kChangeManufacturer,
                      {tables::kManufacturers, Name, Desc, DecimalText(TAVMfrNameID)}));
}

std::int16_t clsManufacturer::MfrProtocolID() {
    return Guarded(oAppObjects_, "MANmpid", std::int16_t{0}, [&](StepLabel& step) {
        if (!mfrProtocolID_) mfrProtocolID_ = SearchNumber(step);
        return *mfrProtocolID_;
    });
}

std::int16_t clsManufacturer::SearchNumber(StepLabel& step) {
    const RowKey key = MfrProtocolKey();
    const RowSearch::Part& manufacturer = key.parts.front();
    MfrNameFound = 0;
    RunningMaximum largestName;
    RunningMaximum largestProtocol;
    step = "01";
    const auto rows = OpenSearch(oAppObjects_, Fill(statements::kSearchedTable, {key.table}),
                                 {{manufacturer}, {"TAVMfrNameID", "MfrProtocolID"}});
    step = "01.1";
    for (; !rows->AtEnd(); rows->MoveNext()) {
        const bool sameManufacturer = Carries(*rows, manufacturer);
        if (sameManufacturer && Carries(*rows, key.parts.back())) {
            step = "01.1a";
            const std::int16_t number = rows->Column("MfrProtocolID").Integer();
            TAVMfrNameID = rows->Column("TAVMfrNameID").Integer();
            MfrProtocolFound = 1;
            return number;
        }
        step = "01.1b";
        if (sameManufacturer) {
            MfrNameFound = 1;
            TAVMfrNameID = rows->Column("TAVMfrNameID").Integer();
        } else {
            largestName.Consider(rows->Column("TAVMfrNameID"));
        }
        step = "01.1c";
        largestProtocol.Consider(rows->Column("MfrProtocolID"));
        events_.Yield();
    }
    step = "02";
    MfrProtocolFound = 0;
    const std::int16_t number = largestProtocol.Next();
    if (MfrNameFound == 0) TAVMfrNameID = largestName.Next();
    return number;
}

RowKey clsManufacturer::MfrProtocolKey() const {
    return {tables::kMfrProtocols, {{"MfrId", HexToNumber(ManID)}, {"ProtocolId", NumericValue(ProtID)}}};
}

bool clsManufacturer::Delete() {
    // The tag is the device record's: both report their deletes under it.
    return Guarded(oAppObjects_, "DEVdel", false, [&](StepLabel& step) {
        if (iVersion_ == kOldSchema) {
            step = "01";
            DatabaseOf(oAppObjects_)
                .Execute(Fill(statements::kDeleteOldManufacturer,
                              {tables::kMfrIds, DecimalText(HexToNumber(OManID))}));
        } else if (iVersion_ == kCurrentSchema) {
            step = "02";
            DatabaseOf(oAppObjects_)
                .Execute(Fill(statements::kDeleteRowOne, {tables::kMfrProtocols, "MfrProtocolId"}));
            step = "03";
            DatabaseOf(oAppObjects_)
                .Execute(Fill(statements::kDeleteRowOne, {tables::kManufacturers, "TavMfrNameId"}));
        }
        return true;
    });
}

}  // namespace ventlock
