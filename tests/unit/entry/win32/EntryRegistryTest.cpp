// The entry's round trip on the registry that a Windows user really has.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/win32/Win32Registry.h"
#include "support/win32/RegistryTree.h"
#include "unit/entry/ProgramRun.h"

namespace ventlock::test {
namespace {

using testing::IsEmpty;

const std::string kOwnKey = "SOFTWARE\\Halvard Systems\\TAVToolkit\\Ventlock";

/// The key as a user has it who has registered a device.
const std::string kStored =
    "\n"
    "ErrorLog\\DebugMode=4:00000000\n"
    "ErrorLog\\ErrLogLevel=4:00000003\n"
    "ErrorLog\\ErrLogPath=1:C:\\log\\Ventlock.log\n"
    "Paths\\DBPath=1:C:\\TAV\\DB\\pyxall.mdb\n"
    "Paths\\DDInstallPath=1:A:\\Ddinstal.ini\n"
    "Paths\\INIPath=1:C:\\ini\\Pyx.ini\n"
    "Settings\\BlkHelp=1:b.hlp\n"
    "Settings\\DDRev=1:02\n"
    "Settings\\DLLName=1:Dev.dll\n"
    "Settings\\DevCatID=1:3\n"
    "Settings\\DevDesc=1:Flow meter\n"
    "Settings\\DevHelp=1:h.hlp\n"
    "Settings\\DevID=1:7\n"
    "Settings\\DevMinCatID=1:4\n"
    "Settings\\DevName=1:Flow\n"
    "Settings\\DevRev=1:1F\n"
    "Settings\\DevRevDesc=1:First\n"
    "Settings\\DevRevName=1:R1\n"
    "Settings\\Language=1:DE\n"
    "Settings\\ManDesc=1:\n"
    "Settings\\ManID=1:26\n"
    "Settings\\ManName=1: Müller \"&\" Söhne \n"
    "Settings\\ProtID=1:2\n"
    "Settings\\ProtRev=1:06\n"
    "Settings\\TAVVersions=1:5.0, 6.0\n"
    "Settings\\TemplateName=1:t.mrg\n"
    "Settings\\WindowHeight=4:00001419\n"
    "Settings\\WindowLeft=4:00000096\n"
    "Settings\\WindowState=4:00000002\n"
    "Settings\\WindowTop=4:ffffffc4\n"
    "Settings\\WindowWidth=4:00001770\n";

std::string Replaced(std::string text, std::string_view old, std::string_view fresh) {
    const std::size_t position = text.find(old);
    EXPECT_NE(position, std::string::npos) << old;
    return position == std::string::npos ? text : text.replace(position, old.size(), fresh);
}

class EntryRegistry : public testing::Test {
 protected:
    EntryRegistry() {
        PutNumbers("ErrorLog", {{"ErrLogLevel", 3}, {"DebugMode", 0}});
        PutNumbers("Settings", {{"WindowTop", 0xFFFFFFC4},
                                {"WindowLeft", 0x96},
                                {"WindowHeight", 0x1419},
                                {"WindowWidth", 0x1770},
                                {"WindowState", 2}});
        PutTexts("ErrorLog", {{"ErrLogPath", "C:\\log\\Ventlock.log"}});
        PutTexts("Paths", {{"DBPath", "C:\\TAV\\DB\\pyxall.mdb"},
                           {"DDInstallPath", "A:\\Ddinstal.ini"},
                           {"INIPath", "C:\\ini\\Pyx.ini"}});
        PutTexts("Settings", {{"ManID", "26"},
                              {"ManName", " Müller \"&\" Söhne "},
                              {"ManDesc", ""},
                              {"ProtID", "2"},
                              {"DevID", "7"},
                              {"DevName", "Flow"},
                              {"DevDesc", "Flow meter"},
                              {"DevRev", "1F"},
                              {"DDRev", "02"},
                              {"ProtRev", "06"},
                              {"DevRevName", "R1"},
                              {"DevRevDesc", "First"},
                              {"DevCatID", "3"},
                              {"DevMinCatID", "4"},
                              {"DLLName", "Dev.dll"},
                              {"TemplateName", "t.mrg"},
                              {"DevHelp", "h.hlp"},
                              {"BlkHelp", "b.hlp"},
                              {"TAVVersions", "5.0, 6.0"},
                              {"Language", "DE"}});
        EXPECT_EQ(Stored(), kStored);
    }

    static std::string Stored() { return TreeText(RegistryRoot::LocalMachine, kOwnKey); }

    using Texts = std::vector<std::pair<std::string_view, std::string_view>>;
    using Numbers = std::vector<std::pair<std::string_view, std::uint32_t>>;

    void PutTexts(const std::string& section, const Texts& texts) {
        for (const auto& [name, text] : texts) Put(section, name, kRegistryString, text);
    }
    void PutNumbers(const std::string& section, const Numbers& numbers) {
        for (const auto& [name, number] : numbers) {
            std::string bytes;
            for (unsigned shift = 0; shift < 32; shift += 8)
                bytes += static_cast<char>((number >> shift) & 0xFFU);
            Put(section, name, kRegistryDword, bytes);
        }
    }
    void Put(const std::string& section, std::string_view name, std::uint32_t type, std::string_view bytes) {
        std::unique_ptr<IRegistryKey> key;
        ASSERT_EQ(registry_.CreateKey(RegistryRoot::LocalMachine, kOwnKey + "\\" + section, key),
                  kRegistrySuccess);
        ASSERT_EQ(key->Set(name, type, bytes), kRegistrySuccess);
    }

    EmptiedKey own_{kOwnKey};
    Win32Registry registry_;
    Machine machine_{registry_};
    ProgramRun run_{machine_};
};

TEST_F(EntryRegistry, IsAsItWasAfterARoundTrip) {
    ASSERT_TRUE(run_.Load());
    EXPECT_EQ(run_.records.TavDB().Manufacturer().Name, " Müller \"&\" Söhne ");
    EXPECT_EQ(run_.place.top, -60);
    EXPECT_EQ(gsLanguage, "DE");
    EXPECT_TRUE(run_.Save());
    EXPECT_EQ(Stored(), kStored);
    EXPECT_THAT(run_.app.Entries(), IsEmpty());
}

TEST_F(EntryRegistry, TakesWhatHasChangedAndNothingElse) {
    ASSERT_TRUE(run_.Load());
    run_.place.left = -150;
    run_.records.TavDB().Manufacturer().Name = "Grün";
    run_.records.TavDB().LastTAVVersions = "6.0";
    run_.records.PyxConfig().IniPath = "Pyx.ini";
    run_.records.DDInstall().DDVersion = 9;
    run_.offeredVersions = "9.9";
    gsLanguage = "FR";
    EXPECT_TRUE(run_.Save());
    std::string expected = Replaced(kStored, "WindowLeft=4:00000096", "WindowLeft=4:ffffff6a");
    expected = Replaced(expected, "1: Müller \"&\" Söhne \n", "1:Grün\n");
    expected = Replaced(expected, "1:5.0, 6.0", "1:6.0");
    expected = Replaced(expected, "1:C:\\ini\\Pyx.ini", "1:Pyx.ini");
    EXPECT_EQ(Stored(), expected);
}

TEST_F(EntryRegistry, StaysAsItIsWhenTheEntryCannotBeTaken) {
    ASSERT_TRUE(run_.Load());
    run_.records.TavDB().Manufacturer().Name = "Other";
    run_.place.refusal = ErrorNumber::DeviceUnavailable;
    EXPECT_FALSE(run_.Save());
    EXPECT_EQ(Stored(), kStored);
}

}  // namespace
}  // namespace ventlock::test
