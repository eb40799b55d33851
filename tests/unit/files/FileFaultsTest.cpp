// What every single system call that fails leaves of the files that the program writes, and what is told of
// it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/clsSettings.h"
#include "db/clsDevice.h"
#include "db/clsManufacturer.h"
#include "files/clsDDInstall.h"
#include "files/clsPyxConfig.h"
#include "support/Fakes.h"
#include "support/FaultTrial.h"
#include "support/LoggedApp.h"
#include "support/TempFolder.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The device entry that is written.
struct FlowEntry {
    FlowEntry() {
        manufacturer.ManID = "26";
        manufacturer.Name = "Acme";
        device.ManID = "26";
        device.DevID = "7";
        device.DevName = "Flow";
        device.DevRev = "1";
        device.DDRev = "1";
        device.ProtRev = "05";
    }

    FakeEvents events;
    clsManufacturer manufacturer{events};
    clsDevice device{events};
};

Outcome InsertIntoPyxIni(const std::string& folder) {
    FlowEntry entry;
    LoggedApp app;
    const std::unique_ptr<IFiles> files = ScriptedFiles();
    const ProfileStore profiles(*files, CodePage(1252));
    clsPyxConfig writer(profiles);
    writer.IniPath = folder + "/Pyx.ini";
    writer.DeviceDLL = "Dev.dll";
    writer.DeviceHelp = "h.hlp";
    const bool isDone = writer.Init(app.Objects(), 2) && writer.Insert(entry.manufacturer, entry.device);
    return {isDone, app.Entries()};
}

Outcome WriteDdinstal(const std::string& folder) {
    FlowEntry entry;
    LoggedApp app;
    const std::unique_ptr<IFiles> files = ScriptedFiles();
    const ProfileStore profiles(*files, CodePage(1252));
    clsDDInstall writer(profiles);
    writer.IniPath = folder + "/Ddinstal.ini";
    writer.DeviceDLL = "Dev.dll";
    writer.Template = "t.mrg";
    writer.TAVVersionSupport = "5.0, 6.0";
    writer.DDVersion = 2;
    const bool isDone =
        writer.Init(app.Objects(), 2) && writer.WriteDDInstall(entry.manufacturer, entry.device);
    return {isDone, app.Entries()};
}

Outcome WriteDataSourceName(const std::string& folder) {
    const std::unique_ptr<IFiles> files = ScriptedFiles();
    const ProfileStore profiles(*files, CodePage(1252));
    try {
        profiles.Write(folder + "/Pyx.ini", kDataSourceSection, kDataSourceKey, "Prüfstand");
    } catch (const RunTimeError& error) {
        return {false, {error.what()}};
    }
    return {true, {}};
}

const std::string kOldPyxIni = CrLf(
    "[Devices]\n"
    "000011.0001.01=000011/0001\n"
    "[000011.0001.01]\n"
    "Description=Old\n");
const std::string kUntidyPyxIni = CrLf(
    "[Devices]\n"
    "000011.0001.01=000011/0001\n"
    "000026.0007.01=000026/0007\n"
    "[000011.0001.01]\n"
    "Description=Old\n"
    "[000026.0007.01]\n"
    "DeviceHelp=000026\\0007\\h.hlp\n"
    "BlockHelp_001=000026\\0007\\\n"
    "DeviceDLL=000026\\0007\\Dev.dll\n"
    "Description=Flow\n"
    "HART Protocol Rev=5\n");
const std::string kUntidyNewPyxIni = CrLf(
    "[Devices]\n"
    "000026.0007.01=000026/0007\n"
    "[000026.0007.01]\n"
    "DeviceHelp=000026\\0007\\h.hlp\n"
    "BlockHelp_001=000026\\0007\\\n"
    "DeviceDLL=000026\\0007\\Dev.dll\n"
    "Description=Flow\n"
    "HART Protocol Rev=5\n");
const std::string kOldDdinstal = CrLf(
    "[General]\n"
    "NumOfMfg=1\n"
    "[Mfg1]\n"
    "ID=000011\n"
    "NumOfDev=0\n"
    "Name=Best\n");
const std::string kDdinstalWithDevice = CrLf(
    "[General]\n"
    "NumOfMfg=1\n"
    "[Mfg1]\n"
    "ID=000026\n"
    "NumOfDev=1\n"
    "Name=Old\n"
    "[000026.1]\n"
    "DevType=0007\n"
    "DevTypeRev=01\n");

constexpr std::size_t kStep = 13;  // bytes of room from one trial to the next

void ExpectWholePyxIni(const FileWork& work, const std::string& untidy, const Trial& clean,
                       const Trial& trial, const Fault& fault) {
    ExpectNothingBeside(work, clean, trial, fault);
    ExpectOldOrNew(work, clean, trial, "Pyx.ini.bak");
    const std::string cause = CauseOf(NumberOf(fault, trial));
    if (!trial.outcome.isDone) {
        ExpectOldOrNew(work, clean, trial, "Pyx.ini");
        std::vector<std::string> expected{"INIins-01: " + cause};
        // A reason that stays meets the entry after it has met the tidying.
        const bool isMetTwice = fault.reason.stays && trial.outcome.messages.size() > 1;
        if (isMetTwice) expected.insert(expected.begin(), "INIwb-01: " + cause);
        EXPECT_EQ(trial.outcome.messages, expected);
    } else if (!trial.outcome.messages.empty()) {
        EXPECT_EQ(BytesOf(trial.after, "Pyx.ini"), untidy);
        EXPECT_THAT(trial.outcome.messages, ElementsAre("INIwb-01: " + cause));
    } else {
        EXPECT_EQ(BytesOf(trial.after, "Pyx.ini"), clean.after.at("Pyx.ini"));
    }
}

/// Every call fails, the disk is full at any time, and no call does more than it must.
void FailEveryCallAndByte(const char* name, const FileWork& work, std::size_t leastCalls,
                          const CheckTrial& check) {
    FailEveryCall(name, work, leastCalls, check);
    FillTheDisk(work, kStep, check);
    EXPECT_EQ(TryStuttering(work).after, Try(work).after);
}

void FailInsert(const char* name, const FileWork& work, const std::string& untidy, std::size_t leastCalls) {
    FailEveryCallAndByte(name, work, leastCalls,
                         [&](const Trial& clean, const Trial& trial, const Fault& fault) {
                             ExpectWholePyxIni(work, untidy, clean, trial, fault);
                         });
}

TEST(FileFaults, LeaveAnExistingPyxIniWhole) {
    const FileWork work{{{"Pyx.ini", kOldPyxIni}, {"Pyx.ini.bak", "older"}}, InsertIntoPyxIni};
    FailInsert("Pyx.ini, existing", work, kUntidyPyxIni, 45);
}

TEST(FileFaults, LeaveNoPyxIniOrAWholeOne) {
    FailInsert("Pyx.ini, new", {{}, InsertIntoPyxIni}, kUntidyNewPyxIni, 39);
}

void FailWriteDDInstall(const char* name, const FileWork& work, std::size_t leastCalls) {
    FailEveryCallAndByte(
        name, work, leastCalls, [&](const Trial& clean, const Trial& trial, const Fault& fault) {
            ExpectNothingBeside(work, clean, trial, fault);
            ExpectOldOrNew(work, clean, trial, "Ddinstal.ini");
            ExpectOldOrNew(work, clean, trial, "Ddinstal.ini.bak");
            if (trial.outcome.isDone) {
                EXPECT_EQ(BytesOf(trial.after, "Ddinstal.ini"), BytesOf(clean.after, "Ddinstal.ini"));
                EXPECT_THAT(trial.outcome.messages, IsEmpty());
            } else {
                const bool isSaving = fault.call >= LastReplacementBegins(clean);
                EXPECT_THAT(trial.outcome.messages, ElementsAre((isSaving ? "DDwddi-02: " : "DDwddi-01: ") +
                                                                CauseOf(NumberOf(fault, trial))));
            }
        });
}

TEST(FileFaults, LeaveADdinstalThatGetsADeviceWhole) {
    FailWriteDDInstall("Ddinstal.ini, new device",
                       {{{"Ddinstal.ini", kOldDdinstal}, {"Ddinstal.ini.bak", "older"}}, WriteDdinstal}, 47);
}

TEST(FileFaults, LeaveADdinstalWhoseDeviceIsWrittenAnewWhole) {
    FailWriteDDInstall("Ddinstal.ini, known device", {{{"Ddinstal.ini", kDdinstalWithDevice}}, WriteDdinstal},
                       46);
}

TEST(FileFaults, LeaveNoDdinstalOrAWholeOne) {
    FailWriteDDInstall("Ddinstal.ini, new", {{}, WriteDdinstal}, 25);
}

TEST(FileFaults, LeaveThePyxIniThatGetsADataSourceNameWhole) {
    const FileWork work{{{"Pyx.ini", kOldPyxIni}}, WriteDataSourceName};
    FailEveryCallAndByte(
        "DataSourceName", work, 30, [&](const Trial& clean, const Trial& trial, const Fault& fault) {
            ExpectNothingBeside(work, clean, trial, fault);
            ExpectOldOrNew(work, clean, trial, "Pyx.ini");
            if (trial.outcome.isDone) {
                EXPECT_EQ(BytesOf(trial.after, "Pyx.ini"), clean.after.at("Pyx.ini"));
            } else {
                EXPECT_THAT(trial.outcome.messages, ElementsAre(TextOf(fault, trial, "Pyx.ini")));
            }
        });
}

}  // namespace
}  // namespace ventlock::test
