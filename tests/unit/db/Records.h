#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <variant>
#include <vector>

#include "base/Numbers.h"
#include "db/SchemaVersion.h"
#include "db/clsDevice.h"
#include "db/clsManufacturer.h"
#include "support/DbWorld.h"
#include "support/LogEntry.h"

namespace ventlock::test {

inline constexpr const char* kSearchProtocols = "select *   from MfrProtocols ";
inline constexpr const char* kSearchTypes = "select *   from DeviceTypes ";
inline constexpr const char* kSearchRevisions = "select *   from DeviceRevisions ";

/// Manufacturer 26 "Acme" with protocol 1.
inline void FillManufacturer(clsManufacturer& manufacturer) {
    manufacturer.ManID = "26";
    manufacturer.Name = "Acme";
    manufacturer.Desc = "Acme Inc";
    manufacturer.ProtID = "1";
}

/// Type 0A "Flow" in revision 01 "R1", of manufacturer 26.
inline void FillDevice(clsDevice& device) {
    device.ManID = "26";
    device.DevID = "0A";
    device.DevName = "Flow";
    device.DevDesc = "Flow meter";
    device.DevRev = "01";
    device.RevName = "R1";
    device.RevDesc = "First";
    device.DDRev = "02";
    device.CatID = "1";
    device.ProtRev = "05";
}

/// One device entry in both records, ready to be written into a database of its own.
class RecordWorld : public testing::Test {
 protected:
    explicit RecordWorld(DeviceSchema schema) : world_(schema) {
        FillManufacturer(manufacturer_);
        FillDevice(device_);
        device_.ManProtID = 1;
        Prepare(schema == DeviceSchema::Current ? kCurrentSchema : kOldSchema);
    }

    /// What the facade does once it knows the schema.
    void Prepare(std::int16_t code) {
        EXPECT_TRUE(manufacturer_.Init(world_.Objects(), code, 2));
        EXPECT_TRUE(device_.Init(world_.Objects(), code, 2));
    }

    /// The four tables of the current schema without keys, checks and references, for rows that these refuse.
    void LoosenTables() {
        world_.Loosen({"DeviceRevisions", "DeviceTypes", "MfrProtocols", "Manufacturers"});
    }

    /// Lets a column of these tables hold what is no number.
    void MakeText(const std::string& table, const std::string& column) {
        world_.Database().MakeText(table, column);
    }

    void Execute(std::string_view sql) { world_.Execute(sql); }
    std::vector<std::string> Statements() { return world_.Statements(); }
    std::vector<std::string> Entries() { return world_.Entries(); }

    /// All rows of a table, by their first two columns unless told otherwise.
    std::string Rows(const std::string& table, const std::string& order = "1, 2") {
        return world_.Rows("SELECT * FROM " + table + " ORDER BY " + order);
    }

    /// The bound values of all records added to open tables so far: "name=number" or "name='text'" each.
    std::vector<std::string> BoundValues() {
        std::vector<std::string> values;
        for (const JournalEntry& entry : world_.Journal().Entries()) {
            for (const RecordField& field : entry.values) {
                const auto* const number = std::get_if<double>(&field.value);
                values.push_back(field.name + "=" +
                                 (number != nullptr ? DecimalText(*number)
                                                    : "'" + std::get<std::string>(field.value) + "'"));
            }
        }
        return values;
    }

    DbWorld world_;
    clsManufacturer manufacturer_{world_.Events()};
    clsDevice device_{world_.Events()};
};

class ManufacturerRecord : public RecordWorld {
 protected:
    ManufacturerRecord() : RecordWorld(DeviceSchema::Current) {}
};

class OldManufacturerRecord : public RecordWorld {
 protected:
    OldManufacturerRecord() : RecordWorld(DeviceSchema::Old) {}
};

/// The manufacturer's rows are there: number 1 with the protocols 1 and 2 as numbers 1 and 2.
class DeviceRecord : public RecordWorld {
 protected:
    DeviceRecord() : RecordWorld(DeviceSchema::Current) {
        Execute("INSERT INTO Manufacturers VALUES (1, 'Acme', 'Acme Inc')");
        Execute("INSERT INTO MfrProtocols VALUES (1, 1, 1, '38'), (2, 1, 2, '38')");
    }
};

/// The manufacturer's row is there.
class OldDeviceRecord : public RecordWorld {
 protected:
    OldDeviceRecord() : RecordWorld(DeviceSchema::Old) { Execute("INSERT INTO MfrIds VALUES (38, 'Acme')"); }
};

}  // namespace ventlock::test
