// The entry's round trip on the registry that a POSIX user really has.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "platform/posix/StoreFileRegistry.h"
#include "unit/entry/ProgramRun.h"

namespace ventlock::test {
namespace {

using testing::IsEmpty;

/// A store as a user has it who has edited it by hand.
const std::string kStore =
    "; the plant's settings\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvard Systems\\TAVToolkit\\Ventlock\\Settings]\n"
    "WindowTop=dword:ffffffc4\n"
    "WindowLeft=dword:00000096\n"
    "WindowHeight=dword:00001419\n"
    "WindowWidth=dword:00001770\n"
    "WindowState=dword:00000002\n"
    "ManID=text:\"26\"\n"
    "ManName=text:\" Müller \\\"&\\\" Söhne \"\n"
    "ManDesc=text:\"\"\n"
    "ProtID=text:\"2\"\n"
    "DevID=text:\"7\"\n"
    "DevName=text:\"Flow\"\n"
    "DevDesc=text:\"Flow meter\"\n"
    "DevRev=text:\"1F\"\n"
    "DDRev=text:\"02\"\n"
    "ProtRev=text:\"06\"\n"
    "DevRevName=text:\"R1\"\n"
    "DevRevDesc=text:\"First\"\n"
    "DevCatID=text:\"3\"\n"
    "DevMinCatID=text:\"4\"\n"
    "DLLName=text:\"Dev.dll\"\n"
    "TemplateName=text:\"t.mrg\"\n"
    "DevHelp=text:\"h.hlp\"\n"
    "BlkHelp=text:\"b.hlp\"\n"
    "TAVVersions=text:\"5.0, 6.0\"\n"
    "Language=text:\"DE\"\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvard Systems\\TAVToolkit\\Ventlock\\ErrorLog]\n"
    "ErrLogPath=text:\"/log/Ventlock.log\"\n"
    "ErrLogLevel=dword:00000003\n"
    "DebugMode=dword:00000000\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvard Systems\\TAVToolkit\\Ventlock\\Paths]\n"
    "DBPath=text:\"C:\\\\TAV\\\\DB\\\\pyxall.mdb\"\n"
    "DDInstallPath=text:\"A:\\\\Ddinstal.ini\"\n"
    "INIPath=text:\"/ini/Pyx.ini\"\n";

std::string Replaced(std::string text, std::string_view old, std::string_view fresh) {
    const std::size_t position = text.find(old);
    EXPECT_NE(position, std::string::npos) << old;
    return position == std::string::npos ? text : text.replace(position, old.size(), fresh);
}

class EntryStoreFile : public testing::Test {
 protected:
    EntryStoreFile() { WriteBytes(Path(), CrLf(kStore)); }

    [[nodiscard]] std::string Path() const { return folder_ / "registry.ini"; }

    TempFolder folder_;
    std::unique_ptr<Host> host_ = CreateHost("ventlock");
    StoreFileRegistry registry_{host_->Files(), Path()};
    Machine machine_{registry_};
    ProgramRun run_{machine_};
};

TEST_F(EntryStoreFile, IsAsItWasAfterARoundTrip) {
    ASSERT_TRUE(run_.Load());
    EXPECT_EQ(run_.records.TavDB().Manufacturer().Name, " Müller \"&\" Söhne ");
    EXPECT_EQ(run_.place.top, -60);
    EXPECT_EQ(gsLanguage, "DE");
    EXPECT_TRUE(run_.Save());
    EXPECT_EQ(ReadBytes(Path()), CrLf(kStore));
    EXPECT_THAT(run_.app.Entries(), IsEmpty());
}

TEST_F(EntryStoreFile, TakesWhatHasChangedAndNothingElse) {
    ASSERT_TRUE(run_.Load());
    run_.place.left = -150;
    run_.records.TavDB().Manufacturer().Name = "Grün";
    run_.records.TavDB().LastTAVVersions = "6.0";
    run_.records.PyxConfig().IniPath = "Pyx.ini";
    run_.records.DDInstall().DDVersion = 9;
    run_.offeredVersions = "9.9";
    gsLanguage = "FR";
    EXPECT_TRUE(run_.Save());
    std::string expected = Replaced(kStore, "WindowLeft=dword:00000096", "WindowLeft=dword:ffffff6a");
    expected = Replaced(expected, "\" Müller \\\"&\\\" Söhne \"", "\"Grün\"");
    expected = Replaced(expected, "\"5.0, 6.0\"", "\"6.0\"");
    expected = Replaced(expected, "\"/ini/Pyx.ini\"", "\"Pyx.ini\"");
    EXPECT_EQ(ReadBytes(Path()), CrLf(expected));
}

TEST_F(EntryStoreFile, StaysAsItIsWhenTheEntryCannotBeTaken) {
    ASSERT_TRUE(run_.Load());
    run_.records.TavDB().Manufacturer().Name = "Other";
    run_.place.refusal = ErrorNumber::DeviceUnavailable;
    EXPECT_FALSE(run_.Save());
    EXPECT_EQ(ReadBytes(Path()), CrLf(kStore));
}

}  // namespace
}  // namespace ventlock::test
