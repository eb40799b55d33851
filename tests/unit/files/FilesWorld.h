#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "db/clsDevice.h"
#include "db/clsManufacturer.h"
#include "files/clsDDInstall.h"
#include "files/clsPyxConfig.h"
#include "support/FailingFiles.h"
#include "support/LogEntry.h"
#include "support/LoggedApp.h"
#include "support/TempFolder.h"

namespace ventlock::test {

/// One device entry and real files in a folder of its own, in the Western code page.
class FilesWorld : public testing::Test {
 protected:
    FilesWorld() {
        manufacturer_.ManID = "26";
        manufacturer_.Name = "Acme";
        manufacturer_.Desc = "Acme Inc";
        device_.ManID = "26";
        device_.DevID = "7";
        device_.DevName = "Flow";
        device_.DevDesc = "Flow meter";
        device_.DevRev = "1";
        device_.DDRev = "1";
        device_.ProtRev = "05";
    }

    std::vector<std::string> Entries() { return app_.Entries(); }

    LoggedApp app_;
    TempFolder folder_;
    FailingFiles files_{app_.Files()};
    ProfileStore profiles_{files_, CodePage(1252)};
    FakeEvents events_;
    clsManufacturer manufacturer_{events_};
    clsDevice device_{events_};
};

/// The entry and a writer of "Pyx.ini".
class PyxConfig : public FilesWorld {
 protected:
    PyxConfig() { Prepare(writer_); }

    void Prepare(clsPyxConfig& writer) const {
        writer.IniPath = Path();
        writer.DeviceDLL = "Dev.dll";
        writer.DeviceHelp = "h.hlp";
    }

    /// What the command does with a gathered entry.
    bool Insert() { return writer_.Init(app_.Objects(), 2) && writer_.Insert(manufacturer_, device_); }

    /// The file that the entry makes of a file of these bytes.
    std::string AfterInsert(std::string_view bytes) {
        WriteBytes(Path(), bytes);
        EXPECT_TRUE(Insert());
        return ReadBytes(Path());
    }

    [[nodiscard]] std::string Path() const { return folder_ / "Pyx.ini"; }
    [[nodiscard]] std::string Bak() const { return folder_ / "Pyx.ini.bak"; }

    clsPyxConfig writer_{profiles_};
};

/// The entry and a writer of "Ddinstal.ini"; `Writer` is clsDDInstall or a class derived from it.
template <class Writer>
class DDInstallWorld : public FilesWorld {
 protected:
    DDInstallWorld() {
        writer_.IniPath = Path();
        writer_.DeviceDLL = "Dev.dll";
        writer_.Template = "t.mrg";
        writer_.DeviceHelp = "h.hlp";
        writer_.TAVVersionSupport = "5.0, 6.0";
        writer_.DDVersion = 2;
    }

    /// What the command does with a gathered entry.
    bool Write() { return writer_.Init(app_.Objects(), 2) && writer_.WriteDDInstall(manufacturer_, device_); }

    /// The file that the entry makes of a file of these bytes.
    std::string AfterWrite(std::string_view bytes) {
        WriteBytes(Path(), bytes);
        EXPECT_TRUE(Write());
        return ReadBytes(Path());
    }

    [[nodiscard]] std::string Path() const { return folder_ / "Ddinstal.ini"; }
    [[nodiscard]] std::string Bak() const { return folder_ / "Ddinstal.ini.bak"; }

    Writer writer_{profiles_};
};

using DDInstall = DDInstallWorld<clsDDInstall>;

/// The device section of the entry, from its first to its last key, as plain lines.
inline const std::string kFlowKeys =
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
    "TAVVersionSupport=5.0, 6.0\n";

}  // namespace ventlock::test
