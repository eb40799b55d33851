#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/AppObjects.h"
#include "core/Guarded.h"
#include "core/IList.h"
#include "db/clsDevice.h"
#include "db/clsManufacturer.h"
#include "platform/IEvents.h"
#include "platform/Recordset.h"

namespace ventlock {

/// One row of the version table.
struct clsDBVersion {
    std::int16_t Major = 0;
    std::int16_t Minor = 0;
    std::string SchemaDate;
    std::string schemaNotes;
};

/// Kinds of categories, as iOperation.
inline constexpr std::int16_t kMajorCategory = 8;
inline constexpr std::int16_t kMinorCategory = 9;

/// The facade of the device database: its schema check, its reference lists, and the writing of one whole
/// entry.
class clsTavDB {
 public:
    /// `events` runs once per row read; it must outlive the facade.
    explicit clsTavDB(IEvents& events) : events_(events) {}

    /// With operation 2: finds the schema, refuses one it does not know (logged), and sets both records up.
    /// False in every other case. Records that are there keep their fields.
    bool Init(const AppObjects& oAppObjects, const std::optional<std::int16_t>& vOperation = {});

    /// The schema code of the connected database, kept in `Version`; an unreadable version table gives 7,
    /// which is not kept.
    std::int16_t FindVersion();

    /// Whether the database holds at most one manufacturer and one device type; nothing for other codes than
    /// 4 and 5.
    std::optional<bool> IsEmpty();

    /// Adds the major or minor categories, in id order, to a list, which is not cleared; item data is the id.
    bool LoadCategories(IList& cboCategory, std::int16_t iOperation);

    /// Adds the protocols, likewise.
    bool LoadProtocols(IList& cboProtocol);

    /// The id of a category, found without regard to case, or created one above the largest. "0" for an
    /// empty name, "" after a logged error or when the facade is not initialised.
    std::string GetCategoryID(const std::string& szCategory, std::int16_t iOperation);

    /// The id of the pair of category ids, found or created one above the largest. "0" when either is empty,
    /// "" after a logged error or when the facade is not initialised.
    std::string GetDevCatID(const std::string& szMajCat, const std::string& szMinCat);

    /// Writes the manufacturer, then the device. True when both were written; nothing is rolled back.
    bool Update();

    /// The same facade for other shared objects: what its records hold and have found goes with it, and
    /// neither knows of the other. `oAppObjects` must outlive the copy.
    [[nodiscard]] std::unique_ptr<clsTavDB> CopyFor(const AppObjects& oAppObjects) const;

    /// The records, created on first use and owned by the facade.
    clsManufacturer& Manufacturer();
    clsDevice& Device();

    std::int16_t Version = 0;     ///< schema code
    std::string DBPath;           ///< path of the database; kept for the settings
    std::string LastTAVVersions;  ///< versions selected last; kept for the settings

 private:
    bool LoadVersionInfo(std::vector<clsDBVersion>& versions);
    bool IsEmptyCurrent();
    bool IsEmptyOld();
    bool HaveFewRows(StepLabel& step, std::string_view manufacturers, std::string_view deviceTypes);
    void LoadList(IList& list, std::string_view statement, std::string_view idColumn,
                  std::string_view textColumn);

    IEvents& events_;
    const AppObjects* oAppObjects_ = nullptr;
    bool isInitialized_ = false;
    std::unique_ptr<clsManufacturer> manufacturer_;
    std::unique_ptr<clsDevice> device_;
};

}  // namespace ventlock
