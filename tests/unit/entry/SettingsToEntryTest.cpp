// The stored entry on its way into the records.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <ostream>
#include <set>
#include <string>
#include <utility>

#include "support/RowName.h"
#include "unit/entry/EntryTargets.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A machine with a stored entry and a run of the program that has not read it yet.
class SettingsToEntryTest : public testing::Test {
 protected:
    SettingsToEntryTest() { Store(Flow(), registry_, machine_); }

    FakeRegistry registry_;
    Machine machine_{registry_};
    ProgramRun run_{machine_};
};

class LoadedTarget : public SettingsToEntryTest, public testing::WithParamInterface<EntryTarget> {};

TEST_P(LoadedTarget, GetsItsValueOfTheSettings) {
    EXPECT_TRUE(run_.Load());
    EXPECT_EQ(GetParam().Of(run_), Flow().at(GetParam().setting));
}

INSTANTIATE_TEST_SUITE_P(Of, LoadedTarget, testing::ValuesIn(EntryTargets()), RowName());

TEST(EntryTargets, AreThirtyOfTwentySevenValuesThatAllDiffer) {
    std::set<std::string> values;
    for (const auto& [name, text] : Flow()) values.insert(text);
    EXPECT_EQ(values.size(), 27U);
    std::set<std::string> settings;
    for (const EntryTarget& target : EntryTargets()) settings.insert(target.setting);
    EXPECT_EQ(settings.size(), 27U);
    EXPECT_EQ(EntryTargets().size(), 30U);
}

TEST_F(SettingsToEntryTest, PutsTheTemplateIntoTheDDInstallFileOnlyAndNoCategoryIntoThePairsId) {
    EXPECT_TRUE(run_.Load());
    EXPECT_EQ(run_.records.DDInstall().Template, "flow.mrg");
    EXPECT_EQ(run_.records.TavDB().Device().CatID, "");
    EXPECT_EQ(run_.records.DDInstall().TAVVersionSupport, "") << "it is gathered, not loaded";
    EXPECT_THAT(run_.app.Entries(), IsEmpty());
}

TEST_F(SettingsToEntryTest, GivesACleanMachinesEntryTheDefaults) {
    FakeRegistry empty;
    Machine machine(empty);
    ProgramRun run(machine);
    EXPECT_TRUE(run.Load());
    EXPECT_EQ(run.records.TavDB().Manufacturer().ProtID, "0");
    EXPECT_EQ(run.records.TavDB().Device().DevRev, "01");
    EXPECT_EQ(run.records.TavDB().Device().ProtRev, "05");
    EXPECT_EQ(run.records.DDInstall().IniPath, "A:\\Ddinstal.ini");
    EXPECT_EQ(run.records.PyxConfig().IniPath, machine.Paths().windowsDirectory + "/Pyx.ini");
    EXPECT_EQ(run.records.DDInstall().DDVersion, 2);
    EXPECT_EQ(run.offeredVersions, "5.0");
    EXPECT_EQ(run.records.TavDB().LastTAVVersions, "5.0");
    EXPECT_EQ(gsLanguage, "EN");
    EXPECT_EQ(run.place.left, 0);
    EXPECT_THAT(run.app.Entries(), IsEmpty());
}

TEST_F(SettingsToEntryTest, ReadsTheSettingsAgainBeforeItCopies) {
    ASSERT_TRUE(run_.Load());
    run_.settings->ManName = "neither stored";
    run_.records.TavDB().Manufacturer().Name = "nor typed";
    Store(Level(), registry_, machine_);
    EXPECT_TRUE(run_.Load());
    for (const EntryTarget& target : EntryTargets())
        EXPECT_EQ(target.Of(run_), Level().at(target.setting)) << target.name;
}

TEST_F(SettingsToEntryTest, MakesTheFacadeOnceAndKeepsIt) {
    EXPECT_EQ(run_.records.Facade(), nullptr);
    EXPECT_TRUE(run_.Load());
    const clsTavDB* const facade = run_.records.Facade().get();
    ASSERT_NE(facade, nullptr);
    EXPECT_TRUE(run_.Load());
    EXPECT_EQ(run_.records.Facade().get(), facade);
}

TEST_F(SettingsToEntryTest, LetsTheNextLookUpUseTheLanguageOfTheSettings) {
    const std::unique_ptr<Host> host = CreateHost("ventlock");
    const auto dictionary = std::make_shared<TavDictionary>(host->Files());
    ASSERT_TRUE(dictionary->Load({VENTLOCK_SOURCE_FOLDER "/data/QorStandard.dct"}));
    UseDictionary(dictionary);
    for (const auto& [language, text] : {std::pair("EN", "Close"), std::pair("DE", "Schließen")}) {
        registry_.PutText(RegistryRoot::LocalMachine, std::string(kSettingsRoot) + "Settings", "Language",
                          language);
        EXPECT_TRUE(run_.Load());
        EXPECT_EQ(GetString("IDS_CMD_CLOSE"), text);
    }
    UseDictionary(nullptr);
}

TEST_F(SettingsToEntryTest, StopsAtAFailingValueWithThoseBeforeItDone) {
    ASSERT_TRUE(run_.Load());
    Store(Level(), registry_, machine_);
    run_.place.refusal = ErrorNumber::DeviceUnavailable;
    EXPECT_FALSE(run_.Load());
    for (const EntryTarget& target : EntryTargets()) {
        const StoredEntry expected = target.setting == "DBPath" ? Level() : Flow();
        EXPECT_EQ(target.Of(run_), expected.at(target.setting)) << target.name;
    }
    EXPECT_THAT(run_.app.Entries(), ElementsAre("fMste-00: Device unavailable (68)"));
}

TEST_F(SettingsToEntryTest, CopiesWhatCouldBeReadButIsNotFinishedAfterAnErrorOfTheSettings) {
    struct BrokenLocale final : ILocale {
        std::string LanguageName() override { throw RunTimeError(ErrorNumber::InvalidProcedureCall); }
    } broken;
    LoggedApp app;
    FakeRegistry registry;
    registry.PutText(RegistryRoot::LocalMachine, std::string(kSettingsRoot) + "Settings", "ManName", "Acme");
    app.Objects().Add(kSettingsKey,
                      std::make_shared<clsSettings>(registry, machine_.Profiles(), machine_.Paths(), broken));
    EXPECT_FALSE(SettingsToEntry(app.Objects(), run_.records, run_.place, run_.offeredVersions));
    EXPECT_EQ(run_.records.TavDB().Manufacturer().Name, "Acme");
    EXPECT_THAT(app.Entries(), ElementsAre("Sgs-04: Invalid procedure call or argument (5)"));
}

TEST_F(SettingsToEntryTest, WithoutSettingsIsLoggedAndTouchesNothing) {
    LoggedApp app;
    run_.offeredVersions = "6.0";
    EXPECT_FALSE(SettingsToEntry(app.Objects(), run_.records, run_.place, run_.offeredVersions));
    EXPECT_EQ(run_.records.Facade(), nullptr);
    EXPECT_EQ(run_.offeredVersions, "6.0");
    EXPECT_EQ(gsLanguage, "");
    EXPECT_THAT(app.Entries(), ElementsAre("fMste-00: Invalid procedure call or argument (5)"));
}

TEST_F(SettingsToEntryTest, WithAnotherObjectInTheSettingsPlaceIsLogged) {
    LoggedApp app;
    app.Objects().Add(kSettingsKey, std::make_shared<AppObject>());
    EXPECT_FALSE(SettingsToEntry(app.Objects(), run_.records, run_.place, run_.offeredVersions));
    EXPECT_THAT(app.Entries(), ElementsAre("fMste-00: Object required (424)"));
}

TEST_F(SettingsToEntryTest, WithoutALogFailsQuietly) {
    EXPECT_FALSE(SettingsToEntry({}, run_.records, run_.place, run_.offeredVersions));
    EXPECT_EQ(run_.records.Facade(), nullptr);
}

struct FormVersion {
    std::string name;
    std::string stored;
    std::int16_t version;
};

void PrintTo(const FormVersion& row, std::ostream* out) {
    *out << row.stored;
}

class DDVersion : public SettingsToEntryTest, public testing::WithParamInterface<FormVersion> {};

TEST_P(DDVersion, IsTheRoundedNumberAndTheCopyGoesOn) {
    StoredEntry entry = Flow();
    entry["DDVersion"] = GetParam().stored;
    Store(entry, registry_, machine_);
    EXPECT_TRUE(run_.Load());
    EXPECT_EQ(run_.records.DDInstall().DDVersion, GetParam().version);
    EXPECT_EQ(run_.settings->DDInstallVersion, GetParam().stored) << "the text stays";
    EXPECT_EQ(run_.offeredVersions, "5.0, 6.0, 7.0");
    EXPECT_EQ(gsLanguage, "DE");
    EXPECT_THAT(run_.app.Entries(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Of, DDVersion,
                         testing::Values(FormVersion{"HalfToTheEvenBelow", "2.5", 2},
                                         FormVersion{"HalfToTheEvenAbove", "3.5", 4},
                                         FormVersion{"BeyondSixteenBits", "70000", 2},
                                         FormVersion{"LargestOfSixteenBits", "32767", 32767},
                                         FormVersion{"RoundedBeyondSixteenBits", "32767.5", 2}),
                         RowName());

}  // namespace
}  // namespace ventlock::test
