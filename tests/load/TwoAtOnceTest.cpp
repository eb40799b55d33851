// Several programs that register devices in the same targets at the same time.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

#include "e2e/WorldDatabase.h"
#include "load/LoadEntry.h"
#include "load/LoadSize.h"
#include "load/WholeFiles.h"

namespace ventlock::test {
namespace {

constexpr int kPrograms = 4;
constexpr int kMostDevices = 250;  // of one program

/// All programs meet at the same new manufacturers, each with devices of its own.
class TwoAtOnce : public testing::Test {
 protected:
    explicit TwoAtOnce(DeviceSchema schema = DeviceSchema::Current, int manufacturers = 10)
        : manufacturers_(manufacturers), database_(world_, schema) {}

    /// The entries of one program.
    [[nodiscard]] std::vector<LoadEntry> EntriesOf(int program) const {
        std::vector<LoadEntry> entries;
        for (int i = 0; i < devices_; ++i) entries.emplace_back(program * kMostDevices + i, manufacturers_);
        return entries;
    }

    /// Runs all programs at once and counts what they started anew.
    void Register() {
        std::vector<std::unique_ptr<RunningProgram>> programs;
        for (int program = 0; program < kPrograms; ++program) {
            const std::string file = "entry" + std::to_string(program) + ".ini";
            std::string text;
            for (const LoadEntry& entry : EntriesOf(program)) {
                text += entry.Text();
                all_.insert(entry.Manufacturer() + "." + entry.DeviceType());
                names_.push_back(entry.DeviceName());
            }
            world_.Write(file, text);
            programs.push_back(std::make_unique<RunningProgram>(
                world_.Call({"register", file, "--all", "--ini-path", "Pyx.ini", "--ddinstall-path",
                             "Ddinstal.ini", "--json"})));
        }
        for (const auto& program : programs) Note(program->Wait());
    }

    /// The query's rows are the names of all devices, in their order.
    void ExpectNames(const std::string& query) {
        std::sort(names_.begin(), names_.end());
        std::string expected;
        for (const std::string& name : names_) expected += name + "\n";
        EXPECT_EQ(database_.Rows(query), expected);
    }

    /// A table has so many rows, each of which has a number of its own.
    void ExpectNumbers(const std::string& number, const std::string& table, std::size_t rows) {
        const std::string count = std::to_string(rows);
        EXPECT_EQ(database_.Rows("SELECT count(*), count(DISTINCT " + number + ") FROM " + table),
                  count + "|" + count + "\n")
            << table;
    }

    void ExpectAllInFiles() {
        EXPECT_EQ(DevicesOfWholePyxIni(world_.Read("Pyx.ini")), all_);
        EXPECT_EQ(DevicesOfWholeDdinstal(world_.Read("Ddinstal.ini")), all_);
    }

    void Print(const char* schema) const {
        std::printf(
            "two at once by %s, %s schema: %d programs of %d devices, in all targets: %zu, entries "
            "started anew: %d\n",
            database_.Driver().c_str(), schema, kPrograms, devices_, all_.size(), restarts_);
    }

    const int devices_ = std::min(static_cast<int>(LoadSize()), kMostDevices);
    const int manufacturers_;
    const World world_;
    const WorldDatabase database_;
    Devices all_;
    int restarts_ = 0;

 private:
    void Note(const ProgramResult& result) {
        EXPECT_EQ(result.exitCode, 0) << result.out;
        EXPECT_EQ(result.err, "");
        const auto document = DocumentOf(result.out);
        EXPECT_EQ(document["entries"].size(), static_cast<std::size_t>(devices_));
        for (const auto& entry : document["entries"]) {
            for (const auto& target : entry["targets"]) EXPECT_EQ(target["status"], "written") << entry;
            restarts_ += entry["targets"]["database"].value("restarts", 0);
        }
    }

    std::vector<std::string> names_;
};

TEST_F(TwoAtOnce, AllDevicesOfFourProgramsAreInAllTargets) {
    Register();
    ExpectNames(
        "SELECT t.Name FROM DeviceRevisions r JOIN DeviceTypes t ON t.TavDevTypeId = r.TavDevTypeId "
        "JOIN MfrProtocols p ON p.MfrProtocolId = t.MfrProtocolId "
        "JOIN Manufacturers m ON m.TavMfrNameId = p.TavMfrNameId ORDER BY t.Name");
    // As many numbers as rows, and each manufacturer once.
    std::set<std::string> manufacturers;
    for (const std::string& device : all_) manufacturers.insert(device.substr(0, device.find('.')));
    ExpectNumbers("TavMfrNameId", "Manufacturers", manufacturers.size());
    ExpectNumbers("MfrProtocolId", "MfrProtocols", manufacturers.size());
    ExpectNumbers("TavDevTypeId", "DeviceTypes", all_.size());
    ExpectNumbers("TavDevRevId", "DeviceRevisions", all_.size());
    ExpectAllInFiles();
    Print("current");
}

/// A manufacturer comes with one device: the old schema takes it once.
class TwoAtOnceInTheOldSchema : public TwoAtOnce {
 protected:
    TwoAtOnceInTheOldSchema() : TwoAtOnce(DeviceSchema::Old, kPrograms * kMostDevices) {}
};

TEST_F(TwoAtOnceInTheOldSchema, AllDevicesOfFourProgramsAreInAllTargets) {
    Register();
    ExpectNames(
        "SELECT d.DevName FROM PDevices d JOIN DevTypes t ON t.DevMfrId = d.DevMfrId AND t.DevType = "
        "d.DevType JOIN MfrIds m ON m.DevMfrId = d.DevMfrId ORDER BY d.DevName");
    ExpectNumbers("DevMfrId", "MfrIds", all_.size());
    ExpectNumbers("DevType", "DevTypes", all_.size());
    ExpectNumbers("UDevRevId", "PDevices", all_.size());
    ExpectAllInFiles();
    Print("old");
}

}  // namespace
}  // namespace ventlock::test
