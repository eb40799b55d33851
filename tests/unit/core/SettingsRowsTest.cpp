// One row a stored setting: where it lives, its default, how it is read and written.

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "platform/Casing.h"
#include "support/RowName.h"
#include "unit/core/SettingsWorld.h"

namespace ventlock::test {
namespace {

using S = clsSettings;

const std::vector<StoredSetting>& Numbers() {
    static const std::vector<StoredSetting> kRows{
        {"WindowTop", "Settings", "Settings", "01", "0", &S::WindowTop},
        {"WindowLeft", "Settings", "Settings", "01", "0", &S::WindowLeft},
        {"WindowHeight", "Settings", "Settings", "01", "0", &S::WindowHeight},
        {"WindowWidth", "Settings", "Settings", "01", "0", &S::WindowWidth},
        {"WindowState", "Settings", "Settings", "01", "0", &S::WindowState},
        {"ErrLogLevel", "ErrorLog", "ErrorLog", "02", "3", &S::ErrLogLevel},
        {"DebugMode", "ErrorLog", "ErrorLog", "02", "0", &S::DebugMode},
    };
    return kRows;
}

const std::vector<StoredSetting>& Texts() {
    static const std::vector<StoredSetting> kRows{
        {"ErrLogPath", "ErrorLog", "ErrorLog", "02", "<program>/Ventlock.log", &S::ErrLogPath},
        {"DDInstallPath", "paths", "Paths", "03", "A:\\Ddinstal.ini", &S::DDInstallPath},
        {"INIPath", "paths", "Paths", "03.1", "<windows>/Pyx.ini", &S::INIPath},
        {"DBPath", "Paths", "Paths", "03.2", "C:\\TAV\\DB\\pyxall.mdb", &S::DBPath},
        {"ManID", "Settings", "Settings", "04", "", &S::ManID},
        {"ManName", "Settings", "Settings", "04", "", &S::ManName},
        {"ManDesc", "Settings", "Settings", "04", "", &S::ManDesc},
        {"ProtID", "Settings", "Settings", "04", "0", &S::ProtID},
        {"TemplateName", "Settings", "Settings", "04", "", &S::MRGPath},
        {"DLLName", "Settings", "Settings", "04", "", &S::DLLName},
        {"DevHelp", "Settings", "Settings", "04", "", &S::DevHelp},
        {"BlkHelp", "Settings", "Settings", "04", "", &S::BlkHelp},
        {"DevID", "Settings", "Settings", "04", "", &S::DevID},
        {"DevName", "Settings", "Settings", "04", "", &S::DevName},
        {"DevDesc", "Settings", "Settings", "04", "", &S::DevDesc},
        {"DevRev", "Settings", "Settings", "04", "01", &S::DevRev},
        {"DDRev", "Settings", "Settings", "04", "01", &S::DDRev},
        {"DevRevName", "Settings", "Settings", "04", "", &S::RevName},
        {"DevRevDesc", "Settings", "Settings", "04", "", &S::RevDesc},
        {"ProtRev", "Settings", "Settings", "04", "05", &S::ProtRev},
        {"DevCatID", "Settings", "Settings", "04", "0", &S::DevCatID},
        {"DevMinCatID", "Settings", "Settings", "04", "0", &S::DevMinCatID},
        {"TAVVersions", "Settings", "Settings", "04", "5.0", &S::LastTAVVersions},
    };
    return kRows;
}

std::vector<StoredSetting> All() {
    std::vector<StoredSetting> rows = Numbers();
    rows.insert(rows.end(), Texts().begin(), Texts().end());
    return rows;
}

/// A registry that has no memory left when a certain value is asked for or stored.
class ExhaustedRegistry final : public IRegistry {
 public:
    ExhaustedRegistry(IRegistry& below, std::string name) : below_(below), name_(std::move(name)) {}

    RegistryStatus OpenKey(RegistryRoot root, std::string_view path, std::uint32_t mask,
                           std::unique_ptr<IRegistryKey>& key) override {
        return Wrapped(below_.OpenKey(root, path, mask, key), key);
    }
    RegistryStatus CreateKey(RegistryRoot root, std::string_view path,
                             std::unique_ptr<IRegistryKey>& key) override {
        return Wrapped(below_.CreateKey(root, path, key), key);
    }

 private:
    class Key final : public IRegistryKey {
     public:
        Key(std::unique_ptr<IRegistryKey> below, std::string name)
            : below_(std::move(below)), name_(std::move(name)) {}
        RegistryStatus Query(std::string_view name, std::uint32_t& type, std::string& bytes) override {
            if (EqualIgnoringCase(name, name_)) throw std::bad_alloc();
            return below_->Query(name, type, bytes);
        }
        RegistryStatus Set(std::string_view name, std::uint32_t type, std::string_view bytes) override {
            if (EqualIgnoringCase(name, name_)) throw std::bad_alloc();
            return below_->Set(name, type, bytes);
        }

     private:
        std::unique_ptr<IRegistryKey> below_;
        std::string name_;
    };

    RegistryStatus Wrapped(RegistryStatus status, std::unique_ptr<IRegistryKey>& key) {
        if (status == kRegistrySuccess) key = std::make_unique<Key>(std::move(key), name_);
        return status;
    }

    IRegistry& below_;
    std::string name_;
};

class SettingsRows : public SettingsWorld, public testing::WithParamInterface<StoredSetting> {
 protected:
    /// The row's default on this machine.
    [[nodiscard]] std::string Default() const {
        const std::string& text = GetParam().defaultText;
        if (text.starts_with("<program>")) return paths_.programFolder + text.substr(9);
        if (text.starts_with("<windows>")) return paths_.windowsDirectory + text.substr(9);
        return text;
    }
};

class AnySetting : public SettingsRows {};

TEST_P(AnySetting, GivesItsDefaultWhenAbsent) {
    EXPECT_EQ(GetParam().Of(*Loaded()), Default());
}

TEST_P(AnySetting, GivesItsDefaultForAValueOfAnotherType) {
    for (const std::uint32_t type : {2U, 3U, 7U, 11U}) {
        registry_.Put(RegistryRoot::LocalMachine, Key(GetParam().section), GetParam().name, type,
                      std::string_view("77\0\0\0\0\0\0", 8));
        EXPECT_EQ(GetParam().Of(*Loaded()), Default()) << "type " << type;
    }
}

TEST_P(AnySetting, IsNotReadFromTheCurrentUser) {
    registry_.PutText(RegistryRoot::CurrentUser, Key(GetParam().section), GetParam().name, "77");
    EXPECT_EQ(GetParam().Of(*Loaded()), Default());
}

TEST_P(AnySetting, LogsAnErrorOfItsReadingWithItsStep) {
    registry_.PutKey(RegistryRoot::LocalMachine, Key(GetParam().section));
    ExhaustedRegistry exhausted(registry_, GetParam().name);
    clsSettings settings(exhausted, profiles_, paths_, locale_);
    EXPECT_FALSE(settings.Init(oAppObjects_, 2));
    EXPECT_EQ(LogText(), Header() + "1-->\r\n     Sgs-" + GetParam().step + ": Out of memory (7)\r\n");
}

TEST_P(AnySetting, LogsAnErrorOfItsSavingWithItsStep) {
    const auto loaded = Loaded();
    ExhaustedRegistry exhausted(registry_, GetParam().name);
    clsSettings settings(exhausted, profiles_, paths_, locale_);
    EXPECT_FALSE(settings.Init(oAppObjects_, 1));
    EXPECT_FALSE(settings.SaveSettings());
    EXPECT_EQ(LogText(), Header() + "1-->\r\n     Sss-" + GetParam().step + ": Out of memory (7)\r\n");
}

INSTANTIATE_TEST_SUITE_P(Settings, AnySetting, testing::ValuesIn(All()), RowName());

class NumberSetting : public SettingsRows {};

TEST_P(NumberSetting, IsReadFromItsPlace) {
    PutNumber(GetParam().section, GetParam().name, 77);
    EXPECT_EQ(GetParam().Of(*Loaded()), "77");
}

TEST_P(NumberSetting, IsSigned) {
    PutNumber(GetParam().section, GetParam().name, 0xFFFFFFC4U);
    EXPECT_EQ(GetParam().Of(*Loaded()), "-60");
}

TEST_P(NumberSetting, ReadsATextThroughItsLeadingNumber) {
    PutText(GetParam().section, GetParam().name, "12abc");
    EXPECT_EQ(GetParam().Of(*Loaded()), "12");
    PutText(GetParam().section, GetParam().name, "abc");
    EXPECT_EQ(GetParam().Of(*Loaded()), "0") << "a value is there, so this is no default";
}

TEST_P(NumberSetting, BeyondSixteenBitsGivesItsDefaultAndReadingGoesOn) {
    PutText("Settings", "ManName", "Acme");
    for (const std::uint32_t number : {32768U, 70000U, 0xFFFF7FFFU}) {
        PutNumber(GetParam().section, GetParam().name, number);
        const auto settings = Loaded();
        EXPECT_EQ(GetParam().Of(*settings), Default()) << number;
        EXPECT_EQ(settings->ManName, "Acme");
    }
    PutText(GetParam().section, GetParam().name, "40000");
    EXPECT_EQ(GetParam().Of(*Loaded()), Default());
    EXPECT_EQ(folder_.Listing(), "program windows") << "nothing is logged";
}

TEST_P(NumberSetting, IsStoredAsFourBytesOfTypeFour) {
    const auto settings = Loaded();
    (*settings).*std::get<1>(GetParam().property) = -60;
    EXPECT_TRUE(settings->SaveSettings());
    const auto stored =
        registry_.Get(RegistryRoot::LocalMachine, Key(GetParam().writtenSection), GetParam().name);
    EXPECT_EQ(stored, (FakeRegistry::Value{4, "\xC4\xFF\xFF\xFF"}));
    EXPECT_EQ(GetParam().Of(*Loaded()), "-60");
}

INSTANTIATE_TEST_SUITE_P(Settings, NumberSetting, testing::ValuesIn(Numbers()), RowName());

class TextSetting : public SettingsRows {};

TEST_P(TextSetting, IsReadFromItsPlace) {
    PutText(GetParam().section, GetParam().name, " stored ü ");
    EXPECT_EQ(GetParam().Of(*Loaded()), " stored ü ");
}

TEST_P(TextSetting, IsEmptyWhenPresentAndEmptyButForThePathOfPyxIni) {
    PutText(GetParam().section, GetParam().name, "");
    EXPECT_EQ(GetParam().Of(*Loaded()), GetParam().name == "INIPath" ? Default() : "");
}

TEST_P(TextSetting, ReadsANumberAsItsDecimalText) {
    PutNumber(GetParam().section, GetParam().name, 70000);
    EXPECT_EQ(GetParam().Of(*Loaded()), "70000");
    PutNumber(GetParam().section, GetParam().name, 0xFFFFFFC4U);
    EXPECT_EQ(GetParam().Of(*Loaded()), "-60");
}

TEST_P(TextSetting, EndsAtANul) {
    PutText(GetParam().section, GetParam().name, std::string_view("ab\0cd", 5));
    EXPECT_EQ(GetParam().Of(*Loaded()), "ab");
}

TEST_P(TextSetting, IsStoredAsTypeOneWithExactlyItsLengthAndReadsBackIdentical) {
    const auto settings = Loaded();
    (*settings).*std::get<0>(GetParam().property) = "Acme";
    EXPECT_TRUE(settings->SaveSettings());
    const auto stored =
        registry_.Get(RegistryRoot::LocalMachine, Key(GetParam().writtenSection), GetParam().name);
    EXPECT_EQ(stored, (FakeRegistry::Value{1, "\x41\x63\x6D\x65"}));
    EXPECT_EQ(GetParam().Of(*Loaded()), "Acme");
}

TEST_P(TextSetting, IsStoredWithLengthZeroWhenEmpty) {
    const auto settings = Loaded();
    (*settings).*std::get<0>(GetParam().property) = "";
    EXPECT_TRUE(settings->SaveSettings());
    const auto stored =
        registry_.Get(RegistryRoot::LocalMachine, Key(GetParam().writtenSection), GetParam().name);
    EXPECT_EQ(stored, (FakeRegistry::Value{1, ""}));
}

INSTANTIATE_TEST_SUITE_P(Settings, TextSetting, testing::ValuesIn(Texts()), RowName());

}  // namespace
}  // namespace ventlock::test
