#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/AppObjects.h"
#include "core/Guarded.h"
#include "db/RowKey.h"
#include "platform/IEvents.h"

namespace ventlock {

/// The manufacturer half of a device entry and its writing into the device database.
/// Numbers and found-flags are searched once and kept as long as the object lives, whatever becomes of the
/// fields.
class clsManufacturer {
 public:
    /// `events` runs once per row read; it must outlive the record.
    explicit clsManufacturer(IEvents& events) : events_(events) {}

    /// Takes the shared objects and the schema code and touches no field. True for operation 2.
    bool Init(const AppObjects& oAppObjects, std::int16_t iVersion,
              const std::optional<std::int16_t>& vOperation = {});

    /// Writes or refreshes the manufacturer and its protocol row. Any schema code but 4 and 5 writes nothing
    /// and gives True. False after a logged error; rows written before it stay.
    bool Insert();

    /// The manufacturer-protocol number, found or assigned on the first call, which also sets `TAVMfrNameID`
    /// and both found-flags. 0 after a logged error; nothing is kept then.
    std::int16_t MfrProtocolID();

    /// True once MfrProtocolID has found or assigned its number.
    [[nodiscard]] bool HasMfrProtocolID() const noexcept { return mfrProtocolID_.has_value(); }

    /// What the row of this manufacturer and protocol carries in the current schema.
    [[nodiscard]] RowKey MfrProtocolKey() const;

    /// Deletes: code 5 the rows numbered 1, code 4 the row of `OManID`. True unless an error was logged.
    bool Delete();

    /// Forgets the searched number, so that the next call searches again. Nobody calls it today: a second
    /// write in one run reuses the numbers on purpose.
    void ForgetNumbers() noexcept { mfrProtocolID_.reset(); }

    std::string ManID;  ///< manufacturer id as typed, hexadecimal
    std::string Name;
    std::string Desc;
    std::string ProtID;             ///< decimal id of "DeviceProtocols"
    std::int16_t TAVMfrNameID = 0;  ///< number in "Manufacturers"
    std::string OManID;             ///< previously stored id, hexadecimal; only for Delete of the old schema
    std::int16_t MfrNameFound = 0;  ///< 1: another row carries this manufacturer id
    std::int16_t MfrProtocolFound = 0;  ///< 1: a row for this manufacturer and protocol exists

 private:
    void InsertOld();
    bool InsertCurrent(StepLabel& step);
    std::int16_t SearchNumber(StepLabel& step);
    void RefreshManufacturer();

    IEvents& events_;
    const AppObjects* oAppObjects_ = nullptr;
    std::int16_t iVersion_ = 0;
    std::optional<std::int16_t> mfrProtocolID_;
};

}  // namespace ventlock
