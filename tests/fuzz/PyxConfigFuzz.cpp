// A device entry written into a device configuration file of any bytes. The input: manufacturer, device type
// and revision, name, HART revision, DLL, device help, block help, bytes of the file.

#include <string>

#include "files/EntryNames.h"
#include "files/clsPyxConfig.h"
#include "fuzz/Fields.h"
#include "fuzz/PlainProfile.h"
#include "fuzz/Require.h"
#include "fuzz/WriterWorld.h"
#include "platform/ProfileLines.h"

namespace ventlock::test {
namespace {

const std::string kPath = "Pyx.ini";

struct World : WriterWorld<clsPyxConfig> {
    explicit World(Fields& fields) {
        manufacturer.ManID = fields.Next();
        device.DevID = fields.Next();
        device.DevRev = fields.Next();
        device.DevName = fields.Next();
        device.ProtRev = fields.Next();
        writer.DeviceDLL = fields.Next();
        writer.DeviceHelp = fields.Next();
        writer.BlockHelp = fields.Next();
        writer.IniPath = kPath;
        files.Replace(kPath, fields.Rest());
    }

    [[nodiscard]] std::string Key() const {
        return DeviceKey(manufacturer.ManID, device.DevID, device.DevRev);
    }

    [[nodiscard]] std::string Prefix() const { return ResourcePrefix(manufacturer.ManID, device.DevID); }

    /// True when one of the texts, or the file, cannot be taken.
    [[nodiscard]] bool IsRefused() {
        try {
            ProfileFile file(files.ReadAll(kPath), profiles.Page());
            file.Write("Devices", Key(), DeviceDirectory(manufacturer.ManID, device.DevID));
            file.RequireWritableSection(Key());
            for (const std::string& text : {device.DevName, Prefix() + writer.DeviceHelp,
                                            Prefix() + writer.BlockHelp, Prefix() + writer.DeviceDLL}) {
                file.RequireWritable(text);
            }
            return false;
        } catch (const RunTimeError&) {
            return true;
        }
    }
};

void RequireComment(const std::string& before, const std::string& after) {
    const std::vector<Line> now = LinesOf(after);
    auto at = now.begin();
    for (const Line& line : LinesOf(before)) {
        if (KeyName(line.content)) continue;
        while (at != now.end() && at->content != line.content) ++at;
        Require(at != now.end(), "a line that is no key stays, in its place", line.content);
        ++at;
    }
}

void RequireRead(const ProfileFile& file, const std::string& section, std::string_view key,
                 const std::string& value) {
    RequireSame(file.Read(section, key).value_or("\x1F absent"), AsRead(value), "what is written reads back");
}

void TryEntry(World& world) {
    const std::string before = world.files.ReadAll(kPath);
    const bool isRefused = world.IsRefused();
    const bool isWritten = world.writer.Insert(world.manufacturer, world.device);
    Require(isWritten != isRefused, "an entry is written unless one of its texts cannot be", before);
    const std::string after = world.files.ReadAll(kPath);
    if (!isWritten) {
        RequireSame(after, before, "a refused entry changes nothing");
        return;
    }
    const ProfileFile file(after, world.profiles.Page());
    const std::string key = world.Key();
    RequireRead(file, "Devices", key, DeviceDirectory(world.manufacturer.ManID, world.device.DevID));
    RequireRead(file, key, "DeviceHelp", world.Prefix() + world.writer.DeviceHelp);
    RequireRead(file, key, "BlockHelp_001", world.Prefix() + world.writer.BlockHelp);
    RequireRead(file, key, "DeviceDLL", world.Prefix() + world.writer.DeviceDLL);
    RequireRead(file, key, "Description", world.device.DevName);
    RequireRead(file, key, "HART Protocol Rev", DecimalOfHex(world.device.ProtRev));
    if (!before.starts_with("\xFF\xFE")) RequireComment(before, after);

    ProfileFile untidied(world.files.ReadAll(kPath + ".bak"), world.profiles.Page());
    untidied.SeparateSections();
    RequireSame(after, untidied.Bytes(), "the file is its backup with the sections separated");

    Require(world.writer.Insert(world.manufacturer, world.device), "an entry can be written twice", after);
    RequireSame(world.files.ReadAll(kPath), after, "an entry written twice gives the bytes of one write");
}

}  // namespace
}  // namespace ventlock::test

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ventlock::test::Fields fields(data, size);
    ventlock::test::World world(fields);
    ventlock::test::TryEntry(world);
    return 0;
}
