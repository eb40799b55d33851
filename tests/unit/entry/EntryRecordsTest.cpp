#include "entry/EntryRecords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "core/clsSettings.h"
#include "db/ConnectDatabase.h"
#include "platform/RelativeFiles.h"
#include "support/DbWorld.h"
#include "support/FakeRegistry.h"
#include "support/LoggedApp.h"
#include "support/TempFolder.h"
#include "support/WorkingFolder.h"

namespace ventlock::test {
namespace {

using testing::IsEmpty;
using testing::Not;

class EntryRecordsTest : public testing::Test {
 protected:
    LoggedApp app_;
    FakeEvents events_;
    ProfileStore profiles_{app_.Files(), CodePage(1252)};
    EntryRecords records_{events_, profiles_};
};

TEST_F(EntryRecordsTest, AreMadeOnFirstUseAndKept) {
    EXPECT_EQ(records_.Facade(), nullptr);
    clsTavDB& facade = records_.TavDB();
    EXPECT_EQ(records_.Facade().get(), &facade);
    EXPECT_EQ(&records_.TavDB(), &facade);
    EXPECT_EQ(&records_.DDInstall(), &records_.DDInstall());
    EXPECT_EQ(&records_.PyxConfig(), &records_.PyxConfig());
}

TEST_F(EntryRecordsTest, LoseTheFacadeOnlyWhenItIsReplaced) {
    records_.TavDB().DBPath = "/db";
    records_.TavDB().LastTAVVersions = "6.0";
    records_.TavDB().Version = 5;
    records_.TavDB().Manufacturer().ManID = "26";
    records_.TavDB().Device().DevID = "7";
    records_.DDInstall().IniPath = "/d";
    records_.PyxConfig().IniPath = "/p";
    records_.ReplaceTavDB();
    EXPECT_EQ(records_.TavDB().DBPath, "");
    EXPECT_EQ(records_.TavDB().LastTAVVersions, "");
    EXPECT_EQ(records_.TavDB().Version, 0);
    EXPECT_EQ(records_.TavDB().Manufacturer().ManID, "");
    EXPECT_EQ(records_.TavDB().Device().DevID, "");
    EXPECT_EQ(records_.DDInstall().IniPath, "/d");
    EXPECT_EQ(records_.PyxConfig().IniPath, "/p");
}

TEST_F(EntryRecordsTest, HaveAFacadeAfterAReplacementOfNone) {
    records_.ReplaceTavDB();
    EXPECT_NE(records_.Facade(), nullptr);
}

/// Records and a device database that the settings name.
class EntryRecordsWithDatabase : public EntryRecordsTest {
 protected:
    EntryRecordsWithDatabase() {
        const auto settings = std::make_shared<clsSettings>(registry_, profiles_, paths_, locale_);
        settings->DSN = world_.Dsn();
        world_.Objects().Add(kSettingsKey, settings);
    }

    bool Connect() { return ConnectDatabase(world_.Objects(), events_, records_.Facade(), schemaVersion_); }

    DbWorld world_;
    FakeRegistry registry_;
    FakePaths paths_;
    FakeLocale locale_;
    std::int16_t schemaVersion_ = 0;
};

TEST_F(EntryRecordsWithDatabase, TakeTheFacadeThatIsMadeWhenConnecting) {
    ASSERT_TRUE(Connect());
    ASSERT_NE(records_.Facade(), nullptr);
    EXPECT_EQ(records_.TavDB().Version, 5);
}

TEST_F(EntryRecordsWithDatabase, KeepTheirEntryWhenConnecting) {
    const clsTavDB* const facade = &records_.TavDB();
    records_.TavDB().Manufacturer().ManID = "26";
    records_.TavDB().Device().DevID = "7";
    ASSERT_TRUE(Connect());
    EXPECT_EQ(&records_.TavDB(), facade);
    EXPECT_EQ(records_.TavDB().Manufacturer().ManID, "26");
    EXPECT_EQ(records_.TavDB().Device().DevID, "7");
}

TEST_F(EntryRecordsWithDatabase, ForgetWhatWasFoundWhenTheFacadeIsReplaced) {
    const auto search = [&] {
        records_.TavDB().Manufacturer().ManID = "26";
        records_.TavDB().Manufacturer().ProtID = "1";
        world_.Statements();
        EXPECT_EQ(records_.TavDB().Manufacturer().MfrProtocolID(), 1);
        return world_.Statements();
    };
    ASSERT_TRUE(Connect());
    const std::vector<std::string> first = search();
    EXPECT_THAT(first, Not(IsEmpty()));
    EXPECT_THAT(search(), IsEmpty()) << "it is kept";

    records_.ReplaceTavDB();
    EXPECT_FALSE(records_.TavDB().Manufacturer().HasMfrProtocolID());
    EXPECT_EQ(records_.TavDB().Manufacturer().TAVMfrNameID, 0);
    ASSERT_TRUE(Connect()) << "the fresh one is set up like the first";
    EXPECT_EQ(search(), first);
    EXPECT_THAT(world_.Entries(), IsEmpty());
}

/// Both writers on files whose relative paths count from `targets_`, while the program works elsewhere.
class EntryRecordsOfRelativePaths : public testing::Test {
 protected:
    EntryRecordsOfRelativePaths() {
        manufacturer_.ManID = "26";
        manufacturer_.Name = "Acme";
        device_.DevID = "7";
        device_.DevName = "Flow";
        device_.DevRev = device_.DDRev = "1";
        device_.ProtRev = "05";
    }

    TempFolder targets_;
    TempFolder elsewhere_;
    WorkingFolder working_{elsewhere_.Path()};
    LoggedApp app_;
    std::unique_ptr<Host> host_ = CreateHost("ventlock");
    RelativeFiles files_{host_->Files(), host_->Paths(), targets_.Path()};
    ProfileStore profiles_{files_, CodePage(1252)};
    FakeEvents events_;
    EntryRecords records_{events_, profiles_};
    clsManufacturer manufacturer_{events_};
    clsDevice device_{events_};
};

TEST_F(EntryRecordsOfRelativePaths, WriteTheConfigurationFileAndItsBackupIntoTheFolder) {
    WriteBytes(targets_ / "Pyx.ini", "[Devices]\r\n");
    clsPyxConfig& pyxConfig = records_.PyxConfig();
    pyxConfig.IniPath = "Pyx.ini";
    pyxConfig.DeviceDLL = "Dev.dll";
    pyxConfig.DeviceHelp = "h.hlp";
    ASSERT_TRUE(pyxConfig.Init(app_.Objects(), 2));
    EXPECT_TRUE(pyxConfig.Insert(manufacturer_, device_));
    EXPECT_EQ(ReadBytes(targets_ / "Pyx.ini"), CrLf("[Devices]\n"
                                                    "000026.0007.01=000026/0007\n"
                                                    "\n"
                                                    "[000026.0007.01]\n"
                                                    "DeviceHelp=000026\\0007\\h.hlp\n"
                                                    "BlockHelp_001=000026\\0007\\\n"
                                                    "DeviceDLL=000026\\0007\\Dev.dll\n"
                                                    "Description=Flow\n"
                                                    "HART Protocol Rev=5\n"));
    EXPECT_EQ(targets_.Listing(), "Pyx.ini Pyx.ini.bak");
    EXPECT_EQ(elsewhere_.Listing(), "");
    EXPECT_THAT(app_.Entries(), IsEmpty());
}

TEST_F(EntryRecordsOfRelativePaths, WriteTheDDInstallFileAndItsBackupIntoAFolderBelow) {
    std::filesystem::create_directory(targets_ / "below");
    WriteBytes(targets_ / "below/Ddinstal.ini", "[General]\r\nNumOfMfg=0\r\n");
    clsDDInstall& ddInstall = records_.DDInstall();
    ddInstall.IniPath = "below/Ddinstal.ini";
    ddInstall.DeviceDLL = "Dev.dll";
    ddInstall.Template = "t.mrg";
    ddInstall.TAVVersionSupport = "5.0";
    ddInstall.DDVersion = 2;
    ASSERT_TRUE(ddInstall.Init(app_.Objects(), 2));
    EXPECT_TRUE(ddInstall.WriteDDInstall(manufacturer_, device_));
    EXPECT_EQ(profiles_.Read("below/Ddinstal.ini", "Mfg1", "Name", "", 0), "Acme");
    EXPECT_EQ(ReadBytes(targets_ / "below/Ddinstal.ini.bak"), "[General]\r\nNumOfMfg=0\r\n");
    EXPECT_THAT(ReadBytes(targets_ / "below/Ddinstal.ini"), testing::HasSubstr("\r\nDevTypeDesc=Flow\r\n"));
    EXPECT_EQ(elsewhere_.Listing(), "");
    EXPECT_THAT(app_.Entries(), IsEmpty());
}

}  // namespace
}  // namespace ventlock::test
