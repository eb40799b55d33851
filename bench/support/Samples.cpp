#include "support/Samples.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace ventlock::bench {
namespace {

constexpr std::size_t kPyxDeviceLines = 8;  // with its line in [Devices] and the blank line
constexpr std::size_t kPyxOtherLines = 4;
constexpr std::size_t kDDInstallDeviceLines = 18;
constexpr std::size_t kDDInstallOtherLines = 5;
constexpr std::size_t kManufacturerLines = 5;
constexpr std::size_t kLinesOfManufacturer = 1600;

std::string Hex(std::size_t number, int width) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%0*zX", width, number);
    return text.data();
}

/// Writes lines and counts them.
class Lines {
 public:
    void Add(const std::string& line) { text_ += line + "\r\n"; }
    void Header(const std::string& section) {
        if (!text_.empty()) Add("");
        Add("[" + section + "]");
    }
    void Key(const Upsert& upsert) { Add(upsert.key + "=" + upsert.value); }

    [[nodiscard]] const std::string& Text() const { return text_; }

 private:
    std::string text_;
};

std::string EntryFile(const std::string& manufacturer, const std::string& name, const std::string& type) {
    return "[Flow]\nManID=" + manufacturer + "\nManName=" + name + "\nDevID=" + type +
           "\nDevName=Flow\nDevRev=1\nDDRev=1\nProtRev=05\nDLLName=Dev\nTemplateName=t\nDevHelp=h\n"
           "TAVVersions=5.0, 6.0\n";
}

std::string InGit(std::string key) {
    std::replace_if(
        key.begin(), key.end(), [](char c) { return c == ' ' || c == '_' || c == '.'; }, '-');
    return key.front() >= '0' && key.front() <= '9' ? "k" + key : key;
}

void UseSpelling(std::vector<Upsert>& upserts, Spelling spelling) {
    if (spelling == Spelling::Own) return;
    for (Upsert& upsert : upserts) {
        upsert.key = InGit(upsert.key);
        std::replace(upsert.value.begin(), upsert.value.end(), '\\', '/');
        const bool hasParts = upsert.section.find('.') != std::string::npos;
        if (hasParts) upsert.section = "device \"" + upsert.section + "\"";
        std::erase(upsert.section, ' ');
        if (hasParts) upsert.section.insert(6, " ");
    }
}

/// The keys of a device of "Pyx.ini", as the program writes them.
std::vector<Upsert> PyxDevice(const std::string& manufacturer, const std::string& type,
                              const std::string& name) {
    const std::string key = manufacturer + "." + type + ".01";
    const std::string prefix = manufacturer + "\\" + type + "\\";
    return {{"Devices", key, manufacturer + "/" + type},
            {key, "DeviceHelp", prefix + "h.hlp"},
            {key, "BlockHelp_001", prefix},
            {key, "DeviceDLL", prefix + "Dev.dll"},
            {key, "Description", name},
            {key, "HART Protocol Rev", "5"}};
}

std::vector<Upsert> DDInstallDevice(const std::string& section, const std::string& type,
                                    const std::string& name, const std::string& library) {
    return {{section, "DevType", type},
            {section, "DevTypeDesc", name},
            {section, "DevTypeRevDesc", "Rev 1"},
            {section, "DevTypeRev", "01"},
            {section, "DDRevDesc", "DD Rev 1"},
            {section, "PYX", "1,0101.pyx"},
            {section, "SYM", "1,0101.sym"},
            {section, "MAP", "1,0101.map"},
            {section, "DeviceHelp", "h.hlp"},
            {section, "BlockHelp", ""},
            {section, "OtherHelp", ""},
            {section, "DeviceDLL", "1," + library},
            {section, "OtherDLL", ""},
            {section, "Template", "1,t.mrg"},
            {section, "HART Protocol Rev", "5"},
            {section, "TAVVersionSupport", "5.0, 6.0"}};
}

}  // namespace

Sample PyxSample(std::size_t lines, Spelling spelling) {
    Sample sample;
    sample.devices = (lines - kPyxOtherLines) / kPyxDeviceLines;
    std::vector<std::vector<Upsert>> devices;
    for (std::size_t i = 0; i < sample.devices; ++i) {
        devices.push_back(
            PyxDevice(Hex(0x100 + i / 40, 6), Hex(1 + i % 40, 4), "Device " + std::to_string(i)));
        UseSpelling(devices.back(), spelling);
    }
    Lines file;
    file.Header("Server");
    file.Add("DataSourceName=PYX");
    for (std::size_t rest = (lines - kPyxOtherLines) % kPyxDeviceLines; rest > 0; --rest) {
        file.Add("; a note");
    }
    file.Header("Devices");
    for (const auto& device : devices) file.Key(device.front());
    for (const auto& device : devices) {
        file.Header(device[1].section);
        std::for_each(device.begin() + 1, device.end(), [&](const Upsert& key) { file.Key(key); });
    }
    sample.file = file.Text();
    sample.entry = EntryFile("26", "Acme", "7");
    sample.upserts = PyxDevice("000026", "0007", "Flow");
    UseSpelling(sample.upserts, spelling);
    return sample;
}

Sample DDInstallSample(std::size_t lines, bool isKnown, Spelling spelling) {
    Sample sample;
    const std::size_t manufacturers = std::max<std::size_t>(1, lines / kLinesOfManufacturer);
    const std::size_t used = kDDInstallOtherLines + manufacturers * kManufacturerLines;
    sample.devices = (lines - used) / kDDInstallDeviceLines;

    Lines file;
    const auto add = [&](std::vector<Upsert> keys) {
        UseSpelling(keys, spelling);
        file.Header(keys.front().section);
        for (const Upsert& key : keys) file.Key(key);
    };
    add({{"Version", "DD Version", "2"}});
    for (std::size_t rest = (lines - used) % kDDInstallDeviceLines; rest > 0; --rest) file.Add("; a note");
    add({{"General", "NumOfMfg", std::to_string(manufacturers)}});
    std::string id;
    std::size_t count = 0;
    for (std::size_t m = 0; m < manufacturers; ++m) {
        id = Hex(0x21 + m, 6);
        count = sample.devices * (m + 1) / manufacturers - sample.devices * m / manufacturers;
        const std::string section = "Mfg" + std::to_string(m + 1);
        add({{section, "ID", id},
             {section, "NumOfDev", std::to_string(count)},
             {section, "Name", "Maker " + id}});
        for (std::size_t k = 1; k <= count; ++k) {
            add(DDInstallDevice(id + "." + std::to_string(k), Hex(k, 4), "Device " + std::to_string(k),
                                "Old.dll"));
        }
    }
    sample.file = file.Text();

    const std::size_t device = isKnown ? count : count + 1;
    const std::string section = "Mfg" + std::to_string(manufacturers);
    sample.entry = EntryFile(id.substr(4), "Acme", Hex(device, 4));
    if (!isKnown) sample.upserts.push_back({section, "NumOfDev", std::to_string(device)});
    sample.upserts.push_back({section, "Name", "Acme"});
    const auto keys = DDInstallDevice(id + "." + std::to_string(device), Hex(device, 4), "Flow", "Dev.dll");
    sample.upserts.insert(sample.upserts.end(), keys.begin(), keys.end());
    UseSpelling(sample.upserts, spelling);
    return sample;
}

namespace {

/// What stands before and behind the usual lines of an odd file; bytes above 127 are Western.
constexpr const char* kOddBegin =
    "a line before all sections\r\n"
    "; comment with \xFC and \x80\n"
    "\r\n"
    "[Devices of old]\r"
    "no key at all\r\n"
    "  indented = yes  \r\n"
    "Twice=1\n"
    "Twice=2\r\n"
    "\t; indented comment\r\n"
    "Stra\xDF"
    "e=\"quoted \xE9\"\n"
    "[Devices of old]\r\n"
    "Twice=3\r\n"
    "\r\n\r\n\r\n";
constexpr const char* kOddEnd =
    "[ Blank ]\r\n"
    "=no name\r\n"
    "[open\r\n"
    "Last=\xA9 open";

}  // namespace

Sample OddPyxSample(Spelling spelling) {
    Sample sample = PyxSample(kPyxOtherLines + 4 * kPyxDeviceLines, spelling);
    sample.file = kOddBegin + sample.file + kOddEnd;
    return sample;
}

Sample OddDDInstallSample(Spelling spelling) {
    Sample sample = DDInstallSample(kDDInstallOtherLines + kManufacturerLines + 4 * kDDInstallDeviceLines,
                                    true, spelling);
    sample.file = kOddBegin + sample.file + kOddEnd;
    return sample;
}

}  // namespace ventlock::bench
