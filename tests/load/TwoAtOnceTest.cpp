// Several programs that register devices in the same targets at the same time.

#include <gtest/gtest.h>

#include <iostream>
#include <map>
#include <memory>
#include <set>
#include <vector>

#include "e2e/World.h"
#include "load/Load.h"

namespace ventlock::test {
namespace {

constexpr int kPrograms = 4;
constexpr int kManufacturers = 25;

struct Device {
    int manufacturer = 0;
    int type = 0;
    bool operator<(const Device& other) const {
        return std::pair(manufacturer, type) < std::pair(other.manufacturer, other.type);
    }
};

std::string Hex(int number, int width) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    for (; width > 0; --width, number /= 16)
        text.insert(0, 1, kDigits[static_cast<std::size_t>(number % 16)]);
    return text;
}

/// All programs meet at the same new manufacturers in the same order, each with devices of its own.
Device DeviceOf(int program, int index) {
    return {0x10 + index % kManufacturers, (program + 1) * 0x1000 + index};
}

std::string EntriesOf(int program, int devices) {
    std::string entries;
    for (int index = 0; index < devices; ++index) {
        const Device device = DeviceOf(program, index);
        entries += "[E" + std::to_string(index) + "]\nManID=" + Hex(device.manufacturer, 6) + "\nManName=M" +
                   std::to_string(device.manufacturer) + "\nDevID=" + Hex(device.type, 4) + "\nDevName=D" +
                   std::to_string(device.type) + "\nDLLName=d\nTemplateName=t\n";
    }
    return entries;
}

/// The sections of a profile file, each with its lines. Every section and every key must be there once.
std::map<std::string, std::map<std::string, std::string>> SectionsOf(const std::string& bytes) {
    std::map<std::string, std::map<std::string, std::string>> sections;
    std::string section;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t end = bytes.find("\r\n", at);
        EXPECT_NE(end, std::string::npos) << "a line without its end: " << bytes.substr(at);
        if (end == std::string::npos) break;
        const std::string line = bytes.substr(at, end - at);
        at = end + 2;
        if (line.empty()) continue;
        if (line.front() == '[') {
            section = line.substr(1, line.size() - 2);
            EXPECT_TRUE(sections.try_emplace(section).second) << "twice: " << line;
            continue;
        }
        const std::size_t sign = line.find('=');
        EXPECT_NE(sign, std::string::npos) << "no key: " << line;
        EXPECT_TRUE(sections[section].emplace(line.substr(0, sign), line.substr(sign + 1)).second)
            << "twice in [" << section << "]: " << line;
    }
    return sections;
}

class TwoAtOnce : public testing::Test {
 protected:
    TwoAtOnce() {
        for (int program = 0; program < kPrograms; ++program)
            for (int index = 0; index < devices_; ++index) all_.insert(DeviceOf(program, index));
    }

    /// Runs all programs at once; counts what they started anew.
    void Register() {
        std::vector<std::unique_ptr<RunningProgram>> programs;
        for (int program = 0; program < kPrograms; ++program) {
            const std::string file = "entry" + std::to_string(program) + ".ini";
            world_.Write(file, EntriesOf(program, devices_));
            programs.push_back(std::make_unique<RunningProgram>(
                world_.Call({"register", file, "--all", "--ini-path", "Pyx.ini", "--ddinstall-path",
                             "Ddinstal.ini", "--json"})));
        }
        for (const auto& program : programs) {
            const ProgramResult result = program->Wait();
            EXPECT_EQ(result.exitCode, 0) << result.out;
            EXPECT_EQ(result.err, "");
            const auto document = DocumentOf(result.out);
            EXPECT_EQ(document["entries"].size(), static_cast<std::size_t>(devices_));
            for (const auto& entry : document["entries"]) {
                for (const auto& target : entry["targets"]) EXPECT_EQ(target["status"], "written") << entry;
                restarts_ += entry["targets"]["database"].value("restarts", 0);
            }
        }
    }

    void ExpectAllInDatabase() {
        const OdbcProbe database = world_.Database();
        std::string expected;
        for (const Device& device : all_)
            expected += std::to_string(device.manufacturer) + "|" + std::to_string(device.type) + "|1\n";
        EXPECT_EQ(world_.Rows("SELECT p.MfrId + 0 AS m, t.DeviceType + 0 AS d, r.DeviceRevision + 0 FROM "
                              "DeviceRevisions r "
                              "JOIN DeviceTypes t ON t.TavDevTypeId = r.TavDevTypeId "
                              "JOIN MfrProtocols p ON p.MfrProtocolId = t.MfrProtocolId "
                              "JOIN Manufacturers n ON n.TavMfrNameId = p.TavMfrNameId "
                              "ORDER BY m, d"),
                  expected);
        const std::string manufacturers = std::to_string(kManufacturers);
        const std::string devices = std::to_string(all_.size());
        const auto numbers = [&](const std::string& number, const std::string& table) {
            return world_.Rows("SELECT count(*), count(DISTINCT " + number + ") FROM " + table);
        };
        EXPECT_EQ(numbers("TavMfrNameId", "Manufacturers"), manufacturers + "|" + manufacturers + "\n");
        EXPECT_EQ(numbers("MfrProtocolId", "MfrProtocols"), manufacturers + "|" + manufacturers + "\n");
        EXPECT_EQ(numbers("TavDevTypeId", "DeviceTypes"), devices + "|" + devices + "\n");
        EXPECT_EQ(numbers("TavDevRevId", "DeviceRevisions"), devices + "|" + devices + "\n");
    }

    void ExpectAllInPyxIni() {
        const auto sections = SectionsOf(world_.Read("Pyx.ini"));
        ASSERT_EQ(sections.count("Devices"), 1U);
        EXPECT_EQ(sections.at("Devices").size(), all_.size());
        EXPECT_EQ(sections.size(), all_.size() + 1);
        for (const Device& device : all_) {
            const std::string manufacturer = Hex(device.manufacturer, 6);
            const std::string type = Hex(device.type, 4);
            const std::string name = manufacturer + "." + type + ".01";
            const auto& list = sections.at("Devices");
            ASSERT_EQ(list.count(name), 1U) << name;
            EXPECT_EQ(list.at(name), manufacturer + "/" + type);
            ASSERT_EQ(sections.count(name), 1U) << name;
            EXPECT_EQ(sections.at(name).at("Description"), "D" + std::to_string(device.type));
        }
    }

    void ExpectAllInDdinstal() {
        const auto sections = SectionsOf(world_.Read("Ddinstal.ini"));
        ASSERT_EQ(sections.count("General"), 1U);
        EXPECT_EQ(sections.at("General").at("NumOfMfg"), std::to_string(kManufacturers));
        EXPECT_EQ(sections.size(), 2U + kManufacturers + all_.size());
        std::set<Device> found;
        for (int number = 1; number <= kManufacturers; ++number) {
            const auto& manufacturer = sections.at("Mfg" + std::to_string(number));
            const std::string id = manufacturer.at("ID");
            const int devices = std::stoi(manufacturer.at("NumOfDev"));
            EXPECT_EQ(static_cast<std::size_t>(devices), all_.size() / kManufacturers);
            for (int device = 1; device <= devices; ++device) {
                const auto& section = sections.at(id + "." + std::to_string(device));
                found.insert({std::stoi(id, nullptr, 16), std::stoi(section.at("DevType"), nullptr, 16)});
            }
        }
        EXPECT_EQ(found.size(), all_.size());
        for (const Device& device : all_) EXPECT_TRUE(found.contains(device)) << device.type;
    }

    const int devices_ = LoadSize(25, 250);
    std::set<Device> all_;
    World world_;
    int restarts_ = 0;
};

TEST_F(TwoAtOnce, AllDevicesOfFourProgramsAreInAllTargets) {
    world_.MakeDatabase();
    Register();
    ExpectAllInDatabase();
    ExpectAllInPyxIni();
    ExpectAllInDdinstal();
    std::cout << "two at once: " << kPrograms << " programs x " << devices_ << " devices, " << all_.size()
              << " in the database, Pyx.ini and Ddinstal.ini; " << restarts_ << " entries started anew\n";
}

}  // namespace
}  // namespace ventlock::test
