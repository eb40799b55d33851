// The entry on its way back into the settings, and at the next start.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <new>
#include <string>

#include "entry/GatherEntry.h"
#include "support/DbWorld.h"
#include "support/RowName.h"
#include "unit/entry/EntryTargets.h"
#include "unit/entry/FilledForm.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using StoredValues = std::map<std::string, FakeRegistry::Value>;

/// A run of the program that has read its stored entry.
class EntryToSettingsTest : public testing::Test {
 protected:
    EntryToSettingsTest() {
        Store(Flow(), registry_, machine_);
        EXPECT_TRUE(run_.Load());
    }

    /// What a save stores, by name.
    StoredValues Saved() {
        registry_.sets.clear();
        EXPECT_TRUE(run_.Save());
        EXPECT_EQ(registry_.sets.size(), 30U);
        StoredValues values;
        for (const FakeRegistry::SetCall& set : registry_.sets) values[set.name] = set.value;
        return values;
    }

    [[nodiscard]] std::string StoredText(std::string_view name) const {
        const auto value =
            registry_.Get(RegistryRoot::LocalMachine, std::string(kSettingsRoot) + "Settings", name);
        return value ? value->bytes : "<absent>";
    }

    FakeRegistry registry_;
    Machine machine_{registry_};
    ProgramRun run_{machine_};
};

class SavedTarget : public EntryToSettingsTest, public testing::WithParamInterface<EntryTarget> {};

TEST_P(SavedTarget, IsStoredInItsOwnSettingOrNotAtAll) {
    const StoredValues before = Saved();
    const std::string ownIni = ReadBytes(machine_.OwnIni());
    GetParam().Change(run_);
    StoredValues expected = before;
    if (GetParam().isStoredBack) {
        std::string& bytes = expected.at(GetParam().setting).bytes;
        if (std::holds_alternative<EntryTarget::Number>(GetParam().place)) {
            ++bytes.at(0);
        } else {
            bytes += " changed";
        }
    }
    EXPECT_EQ(Saved(), expected);
    EXPECT_EQ(ReadBytes(machine_.OwnIni()), ownIni);
    EXPECT_EQ(StoredText("Language"), "DE");
}

INSTANTIATE_TEST_SUITE_P(Of, SavedTarget, testing::ValuesIn(EntryTargets()), RowName());

TEST_F(EntryToSettingsTest, StoresNothingOfTheRecordsThatHasNoSetting) {
    const StoredValues before = Saved();
    clsDevice& device = run_.records.TavDB().Device();
    device.CatID = device.ManID = device.ODevId = device.ODevRev = device.OManID = "99";
    run_.records.TavDB().Manufacturer().OManID = "99";
    run_.records.TavDB().Manufacturer().TAVMfrNameID = 99;
    run_.records.TavDB().Version = 4;
    run_.records.DDInstall().TAVVersionSupport = "9.9";
    EXPECT_EQ(Saved(), before);
}

TEST_F(EntryToSettingsTest, LeavesTheSettingsThatAreMaintainedElsewhere) {
    run_.records.DDInstall().DDVersion = 9;
    run_.offeredVersions = "9.9";
    gsLanguage = "FR";
    EXPECT_TRUE(run_.Save());
    EXPECT_EQ(run_.settings->DDInstallVersion, "5");
    EXPECT_EQ(run_.settings->TAVVersions, "5.0, 6.0, 7.0");
    EXPECT_EQ(run_.settings->Language, "DE");
}

TEST_F(EntryToSettingsTest, StoresTheWindowsSizeAndStateAsTheyWereRead) {
    const std::string key = std::string(kSettingsRoot) + "Settings";
    registry_.PutNumber(RegistryRoot::LocalMachine, key, "WindowHeight", 5145);
    registry_.PutNumber(RegistryRoot::LocalMachine, key, "WindowWidth", 6000);
    registry_.PutNumber(RegistryRoot::LocalMachine, key, "Windowstate", 2);
    ASSERT_TRUE(run_.Load());
    const StoredValues saved = Saved();
    EXPECT_EQ(saved.at("WindowHeight").bytes, std::string("\x19\x14\0\0", 4));
    EXPECT_EQ(saved.at("WindowWidth").bytes, std::string("\x70\x17\0\0", 4));
    EXPECT_EQ(saved.at("WindowState").bytes, std::string("\2\0\0\0", 4));
}

TEST_F(EntryToSettingsTest, AfterSettingsToEntryLeavesTheStoreAsItWas) {
    const StoredValues saved = Saved();
    for (const auto& [name, text] : Flow()) {
        const SettingRow* const row = FindSetting(name);
        if (row == nullptr || row->IsNumber()) continue;
        EXPECT_EQ(saved.at(name), (FakeRegistry::Value{kRegistryString, text})) << name;
    }
    EXPECT_EQ(saved.at("WindowLeft"), (FakeRegistry::Value{kRegistryDword, std::string("\x96\0\0\0", 4)}));
    EXPECT_EQ(saved.at("WindowTop"), (FakeRegistry::Value{kRegistryDword, "\xC4\xFF\xFF\xFF"}));
    EXPECT_EQ(Saved(), saved);
    EXPECT_THAT(run_.app.Entries(), IsEmpty());
}

TEST_F(EntryToSettingsTest, StoresNothingAfterAnErrorAndLogsIt) {
    registry_.sets.clear();
    run_.records.TavDB().Manufacturer().Name = "Other";
    run_.place.refusal = ErrorNumber::DeviceUnavailable;
    EXPECT_FALSE(run_.Save());
    EXPECT_THAT(registry_.sets, IsEmpty());
    EXPECT_EQ(run_.settings->ManName, "Acme") << "the values behind the failing one are not taken";
    EXPECT_THAT(run_.app.Entries(), ElementsAre("fMets-00: Device unavailable (68)"));
}

TEST_F(EntryToSettingsTest, IsFalseWhenTheSettingsCannotBeSaved) {
    struct ExhaustedRegistry final : IRegistry {
        RegistryStatus OpenKey(RegistryRoot, std::string_view, std::uint32_t mask,
                               std::unique_ptr<IRegistryKey>&) override {
            if (isSaving) throw std::bad_alloc();
            return mask == kKeyRead ? kRegistryFileNotFound : kRegistryAccessDenied;
        }
        RegistryStatus CreateKey(RegistryRoot, std::string_view, std::unique_ptr<IRegistryKey>&) override {
            return kRegistryAccessDenied;
        }
        bool isSaving = false;
    } exhausted;
    Machine machine(exhausted);
    ProgramRun run(machine);
    ASSERT_TRUE(run.Load());
    exhausted.isSaving = true;
    EXPECT_FALSE(run.Save());
    EXPECT_THAT(run.app.Entries(), ElementsAre("Sss-01: Out of memory (7)"));
}

TEST_F(EntryToSettingsTest, WithoutSettingsIsLoggedAndStoresNothing) {
    LoggedApp app;
    registry_.sets.clear();
    EXPECT_FALSE(EntryToSettings(app.Objects(), run_.records, run_.place));
    EXPECT_THAT(registry_.sets, IsEmpty());
    EXPECT_THAT(app.Entries(), ElementsAre("fMets-00: Invalid procedure call or argument (5)"));
}

TEST_F(EntryToSettingsTest, WithAnotherObjectInTheSettingsPlaceIsLogged) {
    LoggedApp app;
    app.Objects().Add(kSettingsKey, std::make_shared<AppObject>());
    EXPECT_FALSE(EntryToSettings(app.Objects(), run_.records, run_.place));
    EXPECT_THAT(app.Entries(), ElementsAre("fMets-00: Object required (424)"));
}

TEST_F(EntryToSettingsTest, WithoutALogFailsQuietly) {
    registry_.sets.clear();
    EXPECT_FALSE(EntryToSettings({}, run_.records, run_.place));
    EXPECT_THAT(registry_.sets, IsEmpty());
}

TEST_F(EntryToSettingsTest, GivesTheNextStartTheSameEntry) {
    for (const EntryTarget& target : EntryTargets()) {
        if (target.isStoredBack) target.Change(run_);
    }
    run_.records.PyxConfig().DeviceDLL = run_.records.DDInstall().DeviceDLL;
    run_.records.PyxConfig().DeviceHelp = run_.records.DDInstall().DeviceHelp;
    run_.records.PyxConfig().BlockHelp = run_.records.DDInstall().BlockHelp;
    ASSERT_TRUE(run_.Save());
    ProgramRun next(machine_);
    EXPECT_TRUE(next.Load());
    for (const EntryTarget& target : EntryTargets())
        EXPECT_EQ(target.Of(next), target.Of(run_)) << target.name;
}

TEST_F(EntryToSettingsTest, GivesTheNextStartTheTypedEntryOnTheCurrentSchema) {
    DbWorld world(DeviceSchema::Current);
    ASSERT_TRUE(run_.records.TavDB().Init(world.Objects(), 2));
    EntryForm form = FilledForm();
    form.txtMain[kManufacturerIdBox] = "26 ";
    form.cboDevRev = "1F";
    form.cboDeviceProtocol = {2, 2, "Conventional", 3};
    form.cboDeviceCategory = {3, 3, "Flow", 10};
    form.cboMinorCategory = {1, 1, "Gauge", 10};
    form.lstTAVVersionSupport = {{"5.0", false}, {"6.0", true}, {"7.0", true}};
    ASSERT_TRUE(GatherEntry(form, 5, &world.Objects(), run_.records.TavDB(), run_.records.DDInstall(),
                            run_.records.PyxConfig()));
    ASSERT_TRUE(run_.Save());

    ProgramRun next(machine_);
    EXPECT_TRUE(next.Load());
    const clsManufacturer& manufacturer = next.records.TavDB().Manufacturer();
    EXPECT_EQ(manufacturer.ManID, "26");
    EXPECT_EQ(manufacturer.Name, "Acme");
    EXPECT_EQ(manufacturer.Desc, "Acme Inc");
    EXPECT_EQ(manufacturer.ProtID, "2");
    const clsDevice& device = next.records.TavDB().Device();
    EXPECT_EQ(device.DevID, "7");
    EXPECT_EQ(device.DevName, "Flow");
    EXPECT_EQ(device.DevDesc, "Flow meter");
    EXPECT_EQ(device.DevRev, "1F");
    EXPECT_EQ(device.RevName, "R1");
    EXPECT_EQ(device.RevDesc, "First");
    EXPECT_EQ(device.MajCatID, "3");
    EXPECT_EQ(device.MinCatID, "1");
    EXPECT_EQ(device.CatID, "") << "the pair is found anew when it is gathered";
    EXPECT_EQ(next.records.DDInstall().DeviceDLL, "Dev.dll");
    EXPECT_EQ(next.records.PyxConfig().DeviceDLL, "Dev.dll");
    EXPECT_EQ(next.records.DDInstall().Template, "t.mrg");
    EXPECT_EQ(next.records.PyxConfig().DeviceHelp, "h.hlp");
    EXPECT_EQ(next.records.DDInstall().BlockHelp, "b.hlp");
    EXPECT_EQ(next.records.DDInstall().IniPath, "/targets/Ddinstal.ini");
    EXPECT_EQ(next.records.PyxConfig().IniPath, "/targets/Pyx.ini");
    EXPECT_EQ(next.records.TavDB().LastTAVVersions, "6.0, 7.0");
    EXPECT_EQ(next.offeredVersions, "5.0, 6.0, 7.0");
    EXPECT_THAT(world.Entries(), IsEmpty());
}

TEST_F(EntryToSettingsTest, KeepsWhatTheOldSchemaDoesNotShow) {
    EntryForm form = FilledForm();
    for (const std::size_t box :
         {kManufacturerDescriptionBox, kDeviceDescriptionBox, kRevisionNameBox, kRevisionDescriptionBox}) {
        form.txtMain[box].clear();
    }
    ASSERT_TRUE(GatherEntry(form, 4, &run_.app.Objects(), run_.records.TavDB(), run_.records.DDInstall(),
                            run_.records.PyxConfig()));
    const StoredValues saved = Saved();
    EXPECT_EQ(saved.at("DLLName").bytes, "Dev.dll") << "what is shown was gathered";
    for (const char* const name :
         {"ManDesc", "DevDesc", "DevRevName", "DevRevDesc", "ProtID", "DevCatID", "DevMinCatID"}) {
        EXPECT_EQ(saved.at(name).bytes, Flow().at(name)) << name;
    }
}

}  // namespace
}  // namespace ventlock::test
