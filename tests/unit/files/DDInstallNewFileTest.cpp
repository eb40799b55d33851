// "Ddinstal.ini" made from nothing, and its first entries.

#include "unit/files/FilesWorld.h"

namespace ventlock::test {
namespace {

using testing::IsEmpty;

const std::string kHead =
    "[Version]\n"
    "DD Version=2\n"
    "\n"
    "[General]\n"
    "NumOfMfg=1\n"
    "\n";

TEST_F(DDInstall, NewFileHoldsVersionCountsManufacturerAndDevice) {
    device_.DevDesc = "not written";
    ASSERT_TRUE(Write());
    EXPECT_EQ(ReadBytes(Path()), CrLf("[Version]\n"
                                      "DD Version=2\n"
                                      "\n"
                                      "[General]\n"
                                      "NumOfMfg=1\n"
                                      "\n"
                                      "[Mfg1]\n"
                                      "ID=000026\n"
                                      "NumOfDev=1\n"
                                      "Name=Acme\n"
                                      "\n"
                                      "[000026.1]\n"
                                      "DevType=0007\n"
                                      "DevTypeDesc=Flow\n"
                                      "DevTypeRevDesc=Rev 1\n"
                                      "DevTypeRev=01\n"
                                      "DDRevDesc=DD Rev 1\n"
                                      "PYX=1,0101.pyx\n"
                                      "SYM=1,0101.sym\n"
                                      "MAP=1,0101.map\n"
                                      "DeviceHelp=h.hlp\n"
                                      "BlockHelp=\n"
                                      "OtherHelp=\n"
                                      "DeviceDLL=1,Dev.dll\n"
                                      "OtherDLL=\n"
                                      "Template=1,t.mrg\n"
                                      "HART Protocol Rev=5\n"
                                      "TAVVersionSupport=5.0, 6.0\n"));
    EXPECT_EQ(folder_.Listing(), "Ddinstal.ini") << "there was nothing to be kept as .bak";
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(DDInstall, SameDeviceRevisionTwiceReplacesValuesAndLeavesTheCounts) {
    ASSERT_TRUE(Write());
    const std::string first = ReadBytes(Path());
    ASSERT_TRUE(Write());
    EXPECT_EQ(ReadBytes(Path()), first);

    device_.DevName = "Flow 2";
    device_.ProtRev = "0A";
    writer_.Template = "u.mrg";
    writer_.DeviceHelp = "";
    writer_.BlockHelp = "b.hlp";
    writer_.TAVVersionSupport = "";
    ASSERT_TRUE(Write());
    EXPECT_EQ(ReadBytes(Path()), CrLf(kHead + "[Mfg1]\n"
                                              "ID=000026\n"
                                              "NumOfDev=1\n"
                                              "Name=Acme\n"
                                              "\n"
                                              "[000026.1]\n"
                                              "DevType=0007\n"
                                              "DevTypeDesc=Flow 2\n"
                                              "DevTypeRevDesc=Rev 1\n"
                                              "DevTypeRev=01\n"
                                              "DDRevDesc=DD Rev 1\n"
                                              "PYX=1,0101.pyx\n"
                                              "SYM=1,0101.sym\n"
                                              "MAP=1,0101.map\n"
                                              "DeviceHelp=\n"
                                              "BlockHelp=b.hlp\n"
                                              "OtherHelp=\n"
                                              "DeviceDLL=1,Dev.dll\n"
                                              "OtherDLL=\n"
                                              "Template=1,u.mrg\n"
                                              "HART Protocol Rev=10\n"
                                              "TAVVersionSupport=\n"));
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(DDInstall, NewDDRevisionOfAKnownDeviceRevisionOverwritesItsSection) {
    ASSERT_TRUE(Write());
    device_.DDRev = "2";
    ASSERT_TRUE(Write());
    EXPECT_EQ(ReadBytes(Path()), CrLf(kHead + "[Mfg1]\n"
                                              "ID=000026\n"
                                              "NumOfDev=1\n"
                                              "Name=Acme\n"
                                              "\n"
                                              "[000026.1]\n"
                                              "DevType=0007\n"
                                              "DevTypeDesc=Flow\n"
                                              "DevTypeRevDesc=Rev 1\n"
                                              "DevTypeRev=01\n"
                                              "DDRevDesc=DD Rev 2\n"
                                              "PYX=1,0102.pyx\n"
                                              "SYM=1,0102.sym\n"
                                              "MAP=1,0102.map\n"
                                              "DeviceHelp=h.hlp\n"
                                              "BlockHelp=\n"
                                              "OtherHelp=\n"
                                              "DeviceDLL=1,Dev.dll\n"
                                              "OtherDLL=\n"
                                              "Template=1,t.mrg\n"
                                              "HART Protocol Rev=5\n"
                                              "TAVVersionSupport=5.0, 6.0\n"));
}

TEST_F(DDInstall, NewDeviceRevisionOfAKnownTypeGetsTheNextSection) {
    ASSERT_TRUE(Write());
    device_.DevRev = "0A";
    device_.DDRev = "2";
    ASSERT_TRUE(Write());
    EXPECT_EQ(ReadBytes(Path()), CrLf(kHead +
                                      "[Mfg1]\n"
                                      "ID=000026\n"
                                      "NumOfDev=2\n"
                                      "Name=Acme\n"
                                      "\n"
                                      "[000026.1]\n" +
                                      kFlowKeys +
                                      "\n"
                                      "[000026.2]\n"
                                      "DevType=0007\n"
                                      "DevTypeDesc=Flow\n"
                                      "DevTypeRevDesc=Rev 10\n"
                                      "DevTypeRev=0A\n"
                                      "DDRevDesc=DD Rev 2\n"
                                      "PYX=1,0A02.pyx\n"
                                      "SYM=1,0A02.sym\n"
                                      "MAP=1,0A02.map\n"
                                      "DeviceHelp=h.hlp\n"
                                      "BlockHelp=\n"
                                      "OtherHelp=\n"
                                      "DeviceDLL=1,Dev.dll\n"
                                      "OtherDLL=\n"
                                      "Template=1,t.mrg\n"
                                      "HART Protocol Rev=5\n"
                                      "TAVVersionSupport=5.0, 6.0\n"));
}

TEST_F(DDInstall, NewDeviceTypeGetsTheNextSection) {
    ASSERT_TRUE(Write());
    device_.DevID = "8";
    ASSERT_TRUE(Write());
    EXPECT_EQ(profiles_.Read(Path(), "Mfg1", "NumOfDev", "", 0), "2");
    EXPECT_EQ(profiles_.Read(Path(), "000026.1", "DevType", "", 0), "0007");
    EXPECT_EQ(profiles_.Read(Path(), "000026.2", "DevType", "", 0), "0008");
}

TEST_F(DDInstall, SecondManufacturerGetsItsOwnSections) {
    ASSERT_TRUE(Write());
    manufacturer_.ManID = device_.ManID = "27";
    manufacturer_.Name = "Beta";
    ASSERT_TRUE(Write());
    EXPECT_EQ(ReadBytes(Path()), CrLf("[Version]\n"
                                      "DD Version=2\n"
                                      "\n"
                                      "[General]\n"
                                      "NumOfMfg=2\n"
                                      "\n"
                                      "[Mfg1]\n"
                                      "ID=000026\n"
                                      "NumOfDev=1\n"
                                      "Name=Acme\n"
                                      "\n"
                                      "[000026.1]\n" +
                                      kFlowKeys +
                                      "\n"
                                      "[Mfg2]\n"
                                      "ID=000027\n"
                                      "NumOfDev=1\n"
                                      "Name=Beta\n"
                                      "\n"
                                      "[000027.1]\n" +
                                      kFlowKeys));
}

TEST_F(DDInstall, DeviceSectionIsNamedByTheDevicesManufacturerId) {
    device_.ManID = "99";
    ASSERT_TRUE(Write());
    EXPECT_EQ(ReadBytes(Path()), CrLf(kHead +
                                      "[Mfg1]\n"
                                      "ID=000026\n"
                                      "NumOfDev=1\n"
                                      "Name=Acme\n"
                                      "\n"
                                      "[000099.1]\n" +
                                      kFlowKeys));
}

TEST_F(DDInstall, PaddingCountsCharactersAndNotBytes) {
    manufacturer_.ManID = device_.ManID = "ü";
    device_.DevID = "ä";
    ASSERT_TRUE(Write());
    EXPECT_EQ(profiles_.Read(Path(), "Mfg1", "ID", "", 0), "00000ü");
    EXPECT_EQ(profiles_.Read(Path(), "00000ü.1", "DevType", "", 0), "000ä");
    EXPECT_THAT(ReadBytes(Path()), testing::HasSubstr("\r\n[00000\xFC.1]\r\n"));
    ASSERT_TRUE(Write());
    EXPECT_EQ(profiles_.Read(Path(), "General", "NumOfMfg", "", 0), "1") << "and is found again";
    EXPECT_EQ(profiles_.Read(Path(), "Mfg1", "NumOfDev", "", 0), "1");
}

TEST_F(DDInstall, InitKeepsTheSharedObjectsOnly) {
    EXPECT_TRUE(writer_.Init(app_.Objects(), 2));
    EXPECT_FALSE(writer_.Init(app_.Objects(), 1));
    EXPECT_FALSE(writer_.Init(app_.Objects()));
    EXPECT_EQ(writer_.IniPath, Path());
    EXPECT_EQ(writer_.DeviceDLL, "Dev.dll");
    EXPECT_EQ(writer_.Template, "t.mrg");
    EXPECT_EQ(writer_.DeviceHelp, "h.hlp");
    EXPECT_EQ(writer_.BlockHelp, "");
    EXPECT_EQ(writer_.TAVVersionSupport, "5.0, 6.0");
    EXPECT_EQ(writer_.DDVersion, 2);
    EXPECT_EQ(folder_.Listing(), "");
    EXPECT_TRUE(writer_.WriteDDInstall(manufacturer_, device_));
}

}  // namespace
}  // namespace ventlock::test
