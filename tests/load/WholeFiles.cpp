#include "load/WholeFiles.h"

#include <gtest/gtest.h>

#include <map>

namespace ventlock::test {
namespace {

using Section = std::map<std::string, std::string>;
using Sections = std::map<std::string, Section>;

/// Only what the program writes by itself: headers, "key=value" and blank lines, each with CR LF.
Sections SectionsOf(const std::string& bytes) {
    Sections sections;
    Section* current = nullptr;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t end = bytes.find("\r\n", at);
        if (end == std::string::npos) {
            ADD_FAILURE() << "cut off: " << bytes.substr(at);
            break;
        }
        const std::string line = bytes.substr(at, end - at);
        at = end + 2;
        if (line.empty()) continue;
        if (line.front() == '[' && line.back() == ']') {
            const auto [place, isNew] = sections.try_emplace(line.substr(1, line.size() - 2));
            EXPECT_TRUE(isNew) << "twice: " << line;
            current = &place->second;
            continue;
        }
        const std::size_t equals = line.find('=');
        if (current == nullptr || equals == std::string::npos) {
            ADD_FAILURE() << "neither header nor key: " << line;
            continue;
        }
        EXPECT_TRUE(current->try_emplace(line.substr(0, equals), line.substr(equals + 1)).second)
            << "twice: " << line;
    }
    return sections;
}

std::string ValueOf(const Sections& sections, const std::string& section, const std::string& key) {
    const auto found = sections.find(section);
    if (found == sections.end()) return "<no section>";
    const auto value = found->second.find(key);
    return value == found->second.end() ? "<no key>" : value->second;
}

int NumberOf(const Sections& sections, const std::string& section, const std::string& key) {
    const std::string text = ValueOf(sections, section, key);
    const bool isNumber = !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
    EXPECT_TRUE(isNumber) << '[' << section << "] " << key << '=' << text;
    return isNumber ? std::stoi(text) : 0;
}

}  // namespace

Devices DevicesOfWholePyxIni(const std::string& bytes) {
    Devices devices;
    const Sections sections = SectionsOf(bytes);
    const auto lines = sections.find("Devices");
    if (lines == sections.end()) return devices;
    EXPECT_EQ(sections.size(), lines->second.size() + 1);
    for (const auto& [key, folder] : lines->second) {
        const std::string device = key.substr(0, 11);  // 000020.0001.01
        EXPECT_EQ(folder, device.substr(0, 6) + "/" + device.substr(7));
        const auto section = sections.find(key);
        EXPECT_TRUE(section != sections.end() && section->second.size() == 5) << key;
        EXPECT_EQ(ValueOf(sections, key, "DeviceDLL"),
                  device.substr(0, 6) + "\\" + device.substr(7) + "\\Dev.dll");
        EXPECT_EQ(ValueOf(sections, key, "HART Protocol Rev"), "5");
        devices.insert(device);
    }
    return devices;
}

Devices DevicesOfWholeDdinstal(const std::string& bytes) {
    Devices devices;
    const Sections sections = SectionsOf(bytes);
    if (sections.empty()) return devices;
    std::size_t known = 2;  // [Version] and [General]
    const int manufacturers = NumberOf(sections, "General", "NumOfMfg");
    for (int i = 1; i <= manufacturers; ++i, ++known) {
        const std::string manufacturer = "Mfg" + std::to_string(i);
        const std::string id = ValueOf(sections, manufacturer, "ID");
        EXPECT_EQ(ValueOf(sections, manufacturer, "Name"), "Acme " + id);
        const int count = NumberOf(sections, manufacturer, "NumOfDev");
        for (int k = 1; k <= count; ++k, ++known) {
            const std::string section = id + "." + std::to_string(k);
            const auto found = sections.find(section);
            EXPECT_TRUE(found != sections.end() && found->second.size() == 16) << section;
            EXPECT_EQ(ValueOf(sections, section, "Template"), "1,t.mrg");
            const std::string device = id + "." + ValueOf(sections, section, "DevType");
            EXPECT_TRUE(devices.insert(device).second) << "twice: " << device;
        }
    }
    EXPECT_EQ(sections.size(), known);
    return devices;
}

}  // namespace ventlock::test
