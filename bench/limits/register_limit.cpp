#include <algorithm>
#include <exception>
#include <iostream>
#include <map>
#include <set>
#include <string_view>
#include <utility>

#include "limits/Odbc.h"
#include "support/Files.h"

namespace ventlock::bench {
namespace {

using Numbers = Block<SQLINTEGER>;

struct Device {
    std::string manufacturer;
    std::string manufacturerName;
    std::string type;
    std::string name;
};

std::vector<Device> DevicesOf(std::string_view lines) {
    std::vector<Device> devices;
    const auto take = [&](char end) {
        const std::size_t at = lines.find(end);
        const std::string text(lines.substr(0, at));
        lines.remove_prefix(at + 1);
        return text;
    };
    while (!lines.empty()) devices.push_back({take('\t'), take('\t'), take('\t'), take('\n')});
    return devices;
}

/// The statements of the command line and nothing that they can do without: columns that a search does not
/// look at are not fetched, numbers come as numbers.
class RegisterLimit {
 public:
    explicit RegisterLimit(const std::string& dataSource) : odbc_(dataSource) {
        ReadVersion();
        ReadVersion();
        Count("SELECT *   FROM Manufacturers ");
        Count("SELECT *   FROM DeviceTypes ");
        Count("SELECT *   FROM DeviceProtocols  ORDER BY ProtocolId ");
        for (const std::string kind : {"Major", "Minor"}) {
            Count("SELECT " + kind + "DeviceCategoryId AS DevCat, Name AS DevCatName   FROM " + kind +
                  "DeviceCategories  ORDER BY " + kind + "DevicecategoryId ");
        }
    }

    /// All tables are searched for each device, and every statement is committed by itself.
    void OneByOne(const std::vector<Device>& devices) {
        bool isFirst = true;
        for (const Device& device : devices) {
            if (!std::exchange(isFirst, false)) ReadVersion();
            Count(kCategories);
            const int manufacturer = std::stoi(device.manufacturer);
            SQLINTEGER protocol = 0;
            SQLINTEGER name = 0;
            Walk("select *   from MfrProtocols ", {1, 2, 3, 4}, [&](const auto& at) {
                RequireOther(at(3) == manufacturer && at(2) == 0);
                protocol = std::max(protocol, at(0));
                name = std::max(name, at(1));
            });
            InsertManufacturer(device, ++protocol, ++name);
            const int typeId = std::stoi(device.type);
            SQLINTEGER type = 0;
            Walk("select *   from DeviceTypes ", {1, 2, 3}, [&](const auto& at) {
                RequireOther(at(2) == typeId && at(1) == protocol);
                type = std::max(type, at(0));
            });
            InsertType(device, ++type, protocol);
            SQLINTEGER revision = 0;
            Walk("select *   from DeviceRevisions ", {1, 2, 3}, [&](const auto& at) {
                RequireOther(at(1) == type && at(2) == 1);
                revision = std::max(revision, at(0));
            });
            InsertRevision(++revision, type);
        }
    }

    /// Each table is read once, and all is committed at the end.
    void AtOnce(const std::vector<Device>& devices) {
        odbc_.Begin();
        odbc_.Execute("UPDATE Manufacturers    SET Name = Name  WHERE 1 = 0 ");
        Count(kCategories);
        SQLINTEGER protocol = 0;
        SQLINTEGER name = 0;
        std::set<std::pair<int, int>> protocols;
        Walk("select *   from MfrProtocols ", {1, 2, 3, 4}, [&](const auto& at) {
            protocols.insert({at(3), at(2)});
            protocol = std::max(protocol, at(0));
            name = std::max(name, at(1));
        });
        SQLINTEGER type = 0;
        std::set<std::pair<int, int>> types;
        Walk("select *   from DeviceTypes ", {1, 2, 3}, [&](const auto& at) {
            types.insert({at(2), at(1)});
            type = std::max(type, at(0));
        });
        SQLINTEGER revision = 0;
        std::set<std::pair<int, int>> revisions;
        Walk("select *   from DeviceRevisions ", {1, 2, 3}, [&](const auto& at) {
            revisions.insert({at(1), at(2)});
            revision = std::max(revision, at(0));
        });
        for (const Device& device : devices) {
            RequireOther(!protocols.insert({std::stoi(device.manufacturer), 0}).second);
            InsertManufacturer(device, ++protocol, ++name);
            RequireOther(!types.insert({std::stoi(device.type), protocol}).second);
            InsertType(device, ++type, protocol);
            RequireOther(!revisions.insert({type, 1}).second);
            InsertRevision(++revision, type);
        }
        odbc_.Commit();
    }

 private:
    static constexpr const char* kCategories = "SELECT *   FROM DeviceCategories  ORDER BY DevicecategoryId ";

    /// All devices of the work are new.
    static void RequireOther(bool isThere) {
        if (isThere) throw std::runtime_error("the device is there already");
    }

    void ReadVersion() { Count("SELECT *   FROM __version  ORDER BY Major, Minor "); }

    void Count(const std::string& query) {
        Walk(query, {}, [](const auto&) {});
    }

    /// Calls `see(at)` for each row, where at(i) is the i-th of the columns.
    template <class See>
    void Walk(const std::string& query, const std::vector<int>& columns, See&& see) {
        std::vector<std::pair<int, std::size_t>> bound;
        for (const int column : columns) bound.push_back({column, 1});
        Numbers block(odbc_.Run(query), SQL_C_SLONG, bound);
        while (block.Fetch()) {
            for (std::size_t row = 0; row < block.Rows(); ++row)
                see([&](std::size_t column) { return *block.At(row, column); });
        }
    }

    void InsertManufacturer(const Device& device, int protocol, int name) {
        odbc_.Execute("INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (" +
                      std::to_string(name) + ", '" + device.manufacturerName + "', '') ");
        odbc_.Execute(
            "INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, ProtocolId, MfrId) VALUES (" +
            std::to_string(protocol) + ", " + std::to_string(name) + ", 0, '" + device.manufacturer + "') ");
    }

    void InsertType(const Device& device, int type, int protocol) {
        odbc_.Execute(
            "INSERT INTO DeviceTypes        (TavDevTypeId, MfrProtocolId, DeviceType, Name, Description) "
            "VALUES (" +
            std::to_string(type) + ", " + std::to_string(protocol) + ", '" + device.type + "', '" +
            device.name + "', '') ");
    }

    void InsertRevision(int revision, int type) {
        odbc_.Execute(
            "INSERT INTO DeviceRevisions        (TavDevRevId, TavDevTypeId, DeviceRevision, "
            "DeviceCategoryId, Name, Description) VALUES (" +
            std::to_string(revision) + ", " + std::to_string(type) + ", '1', 0, '', '') ");
    }

    Odbc odbc_;
};

}  // namespace
}  // namespace ventlock::bench

/// register_limit <data source> <devices as lines> [at-once]
int main(int count, char** arguments) {
    using namespace ventlock::bench;
    if (count < 3) return 2;
    try {
        const std::vector<Device> devices = DevicesOf(ReadBytes(arguments[2]));
        RegisterLimit limit(arguments[1]);
        if (count > 3) {
            limit.AtOnce(devices);
        } else {
            limit.OneByOne(devices);
        }
        return 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
