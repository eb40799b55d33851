#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/AppObjects.h"
#include "core/Guarded.h"
#include "db/RowKey.h"
#include "platform/IEvents.h"

namespace ventlock {

/// The device half of a device entry and its writing into the device database.
/// Numbers and found-flags are searched once and kept as long as the object lives, whatever becomes of the
/// fields.
class clsDevice {
 public:
    /// `events` runs once per row read; it must outlive the record.
    explicit clsDevice(IEvents& events) : events_(events) {}

    /// Takes the shared objects and the schema code and touches no field. True for operation 2.
    bool Init(const AppObjects& oAppObjects, std::int16_t iVersion,
              const std::optional<std::int16_t>& vOperation = {});

    /// Writes or refreshes device type and revision. Any schema code but 4 and 5 writes nothing and gives
    /// True. False after a logged error; rows written before it stay. `vNoName` is kept in `NoName` and
    /// changes nothing.
    bool Insert(const std::optional<std::int16_t>& vNoName = {});

    /// Number of the device type and of the revision, found or assigned on the first call; the revision's
    /// search runs the type's first. 0 after a logged error; nothing is kept then.
    std::int16_t TAVDevTypeID();
    std::int16_t TAVDevRevID();

    /// What the rows of this device type and of its revision carry in the current schema; the revision's
    /// once the type's number is known.
    [[nodiscard]] RowKey TypeKey() const;
    [[nodiscard]] RowKey RevisionKey() const;

    /// Deletes: code 5 the rows numbered 1, code 4 the rows of the previous ids. True unless an error was
    /// logged.
    bool Delete();

    /// Forgets the searched numbers; see clsManufacturer.
    void ForgetNumbers() noexcept {
        devTypeID_.reset();
        devRevID_.reset();
    }

    std::string DevID;           ///< device type id as typed, hexadecimal
    std::string ManID;           ///< manufacturer id, hexadecimal
    std::int16_t ManProtID = 0;  ///< the manufacturer's MfrProtocolID
    std::string DevName;
    std::string DevDesc;
    std::string DevRev;  ///< device revision, hexadecimal
    std::string RevName;
    std::string RevDesc;
    std::string DDRev;     ///< DD revision, hexadecimal
    std::string CatID;     ///< device category id, decimal
    std::string MajCatID;  ///< major and minor category id, decimal
    std::string MinCatID;
    std::string ProtRev;  ///< HART protocol revision, hexadecimal
    std::string ODevId;   ///< previously stored ids, hexadecimal; only for Delete of the old schema
    std::string ODevRev;
    std::string OManID;
    std::int16_t NoName = 0;

 private:
    void InsertOld(StepLabel& step);
    bool InsertCurrent(StepLabel& step);
    bool InsertRevision();
    std::int16_t SearchType(StepLabel& step);
    std::int16_t SearchRevision(StepLabel& step);
    static std::string OldRevisionKey(std::string_view manufacturer, std::string_view type,
                                      std::string_view revision);

    IEvents& events_;
    const AppObjects* oAppObjects_ = nullptr;
    std::int16_t iVersion_ = 0;
    bool typeFound_ = false;
    bool revisionFound_ = false;
    std::optional<std::int16_t> devTypeID_;
    std::optional<std::int16_t> devRevID_;
};

}  // namespace ventlock
