// A device entry written into a DD install file of any bytes, and then once more. The input: manufacturer id
// and name, device type, revision, DD revision, name, HART revision, DLL, template, device help, block help,
// versions, bytes of the file.

#include <algorithm>
#include <string>

#include "base/Numbers.h"
#include "files/EntryNames.h"
#include "files/clsDDInstall.h"
#include "fuzz/Fields.h"
#include "fuzz/PlainProfile.h"
#include "fuzz/Require.h"
#include "fuzz/WriterWorld.h"

namespace ventlock::test {
namespace {

const std::string kPath = "Ddinstal.ini";

bool IsHex(const std::string& text, std::size_t width) {
    return text.size() <= width && text.find_first_not_of("0123456789ABCDEFabcdef") == std::string::npos;
}

struct World : WriterWorld<clsDDInstall> {
    explicit World(Fields& fields) {
        manufacturer.ManID = fields.Next();
        manufacturer.Name = fields.Next();
        device.ManID = manufacturer.ManID;
        device.DevID = fields.Next();
        device.DevRev = fields.Next();
        device.DDRev = fields.Next();
        device.DevName = fields.Next();
        device.ProtRev = fields.Next();
        writer.DeviceDLL = fields.Next();
        writer.Template = fields.Next();
        writer.DeviceHelp = fields.Next();
        writer.BlockHelp = fields.Next();
        writer.TAVVersionSupport = fields.Next();
        writer.DDVersion = 2;
        writer.IniPath = kPath;
        if (!fields.IsAtEnd()) files.Replace(kPath, fields.Rest());
    }

    [[nodiscard]] std::string Bytes() { return files.Exists(kPath) ? files.ReadAll(kPath) : ""; }
    [[nodiscard]] ProfileFile File() { return {Bytes(), profiles.Page()}; }

    /// True when one of the texts, or the file, cannot be taken.
    [[nodiscard]] bool IsRefused() {
        try {
            const ProfileFile file = File();
            file.RequireWritableSection(PaddedManufacturer(manufacturer.ManID) + ".1");
            for (const std::string* text :
                 {&manufacturer.Name, &device.DevID, &device.DevName, &device.DevRev, &device.DDRev,
                  &writer.DeviceDLL, &writer.Template, &writer.DeviceHelp, &writer.BlockHelp,
                  &writer.TAVVersionSupport}) {
                file.RequireWritable(*text);
            }
            return false;
        } catch (const RunTimeError&) {
            return true;
        }
    }

    /// True for ids that the file can find again.
    [[nodiscard]] bool HasUsualIds() const {
        return IsHex(manufacturer.ManID, 6) && IsHex(device.DevID, 4) && IsHex(device.DevRev, 2) &&
               IsHex(device.DDRev, 2);
    }
};

/// True when no count is one that cannot be raised within its three digits.
bool HasUsualCounts(const ProfileFile& file) {
    for (const std::string& section : file.Sections()) {
        for (const char* key : {"NumOfMfg", "NumOfDev"}) {
            const std::string count = file.Read(section, key).value_or("0");
            if (count.size() > 2 || count.find_first_not_of("0123456789") != std::string::npos) return false;
        }
    }
    return true;
}

int Count(const ProfileFile& file, const std::string& section, std::string_view key) {
    return ToInteger(NumericValue(file.Read(section, key).value_or("0")));
}

/// The number of the first section of that many, "<prefix>1" and on, of which `isWanted` holds.
template <class Wanted>
int FirstSection(int count, const std::string& prefix, Wanted isWanted) {
    for (int i = 1; i <= count; ++i) {
        if (isWanted(prefix + std::to_string(i))) return i;
    }
    return 0;
}

bool IsSame(const ProfileFile& file, const std::string& section, std::string_view key, const std::string& id,
            std::size_t width) {
    // A section that is missing counts as one of zeros.
    std::string stored = file.Read(section, key).value_or(std::string(width, '0')).substr(0, width);
    std::string wanted = id;
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    std::transform(stored.begin(), stored.end(), stored.begin(), lower);
    std::transform(wanted.begin(), wanted.end(), wanted.begin(), lower);
    return stored == wanted;
}

/// The entry stands where the counts lead to.
void RequireFound(World& world) {
    const ProfileFile file = world.File();
    const std::string id = PaddedManufacturer(world.manufacturer.ManID);
    const int manufacturer =
        FirstSection(Count(file, "General", "NumOfMfg"), "Mfg",
                     [&](const auto& section) { return IsSame(file, section, "ID", id, 6); });
    Require(manufacturer > 0, "a written manufacturer is found by its count", world.Bytes());
    const std::string section = "Mfg" + std::to_string(manufacturer);
    RequireSame(file.Read(section, "Name").value_or(""), AsRead(world.manufacturer.Name),
                "what is written reads back");
    const int device = FirstSection(Count(file, section, "NumOfDev"), id + ".", [&](const auto& name) {
        return IsSame(file, name, "DevType", PaddedDeviceType(world.device.DevID), 4) &&
               IsSame(file, name, "DevTypeRev", PaddedRevision(world.device.DevRev), 2);
    });
    Require(device > 0, "a written device is found by its count", world.Bytes());
    const std::string name = id + "." + std::to_string(device);
    const auto requireRead = [&](std::string_view key, const std::string& value) {
        RequireSame(file.Read(name, key).value_or("\x1F absent"), AsRead(value),
                    "what is written reads back");
    };
    requireRead("DevTypeDesc", world.device.DevName);
    requireRead("DeviceDLL", "1," + world.writer.DeviceDLL);
    requireRead("Template", "1," + world.writer.Template);
    requireRead("DeviceHelp", world.writer.DeviceHelp);
    requireRead("BlockHelp", world.writer.BlockHelp);
    requireRead("OtherHelp", "");
    requireRead("OtherDLL", "");
    requireRead("HART Protocol Rev", DecimalOfHex(world.device.ProtRev));
    requireRead("TAVVersionSupport", world.writer.TAVVersionSupport);
}

void TryEntry(World& world) {
    const bool existed = world.files.Exists(kPath);
    const std::string before = world.Bytes();
    const bool isRefused = world.IsRefused();
    const bool isUsual = !isRefused && world.HasUsualIds() && HasUsualCounts(world.File());
    const bool isWritten = world.writer.WriteDDInstall(world.manufacturer, world.device);
    if (!isWritten) {
        Require(!isUsual, "an entry is written unless one of its texts cannot be", before);
        RequireSame(world.Bytes(), before, "a refused entry changes nothing");
        return;
    }
    Require(!isRefused, "what cannot be written is refused", before);
    Require(world.files.Exists(kPath + ".bak") == existed, "a file that was there is copied", before);
    if (existed) RequireSame(world.files.ReadAll(kPath + ".bak"), before, "the backup is the file before");
    if (!isUsual) return;
    RequireFound(world);
    const std::string after = world.Bytes();
    Require(world.writer.WriteDDInstall(world.manufacturer, world.device), "an entry can be written twice",
            after);
    RequireSame(world.Bytes(), after, "an entry written twice gives the bytes of one write");
}

}  // namespace
}  // namespace ventlock::test

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ventlock::test::Fields fields(data, size);
    ventlock::test::World world(fields);
    ventlock::test::TryEntry(world);
    return 0;
}
