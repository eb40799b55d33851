#include "platform/posix/PosixLocale.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "unit/platform/posix/ProcessState.h"

namespace ventlock::test {
namespace {

std::string NameFor(const std::optional<std::string>& all, const std::optional<std::string>& messages,
                    const std::optional<std::string>& lang) {
    const EnvironmentVariable first("LC_ALL", all);
    const EnvironmentVariable second("LC_MESSAGES", messages);
    const EnvironmentVariable third("LANG", lang);
    return PosixLocale().LanguageName();
}

TEST(PosixLocale, NamesTheLanguageOfTheFirstVariableThatIsSet) {
    EXPECT_EQ(NameFor("de_DE.UTF-8", "fr_FR", "en_US"), "Deutsch");
    EXPECT_EQ(NameFor(std::nullopt, "de_DE", "en_US"), "Deutsch");
    EXPECT_EQ(NameFor("", "", "de_AT@euro"), "Deutsch");
    EXPECT_EQ(NameFor("C", "de_DE", "de_DE"), "English");
    EXPECT_EQ(NameFor(std::nullopt, std::nullopt, std::nullopt), "English");
}

TEST(PosixLocale, KnowsGermanAndEnglishByNameAndOthersByTheirCode) {
    const std::vector<std::pair<std::string, std::string>> table{
        {"de", "Deutsch"},  {"de_CH.UTF-8", "Deutsch"}, {"DE", "Deutsch"},
        {"deu", "Deutsch"}, {"en", "English"},          {"en_GB.UTF-8", "English"},
        {"C", "English"},   {"C.UTF-8", "English"},     {"POSIX", "English"},
        {"fr", "FR"},       {"fr_CH.UTF-8", "FR"},      {"sr@latin", "SR"},
        {"del", "(DEL)"},   {"den_CA", "(DEN)"},        {"_DE", "English"},
        {"eng", "ENG"},
    };
    for (const auto& [setting, name] : table) {
        EXPECT_EQ(NameFor(setting, std::nullopt, std::nullopt), name) << setting;
    }
}

}  // namespace
}  // namespace ventlock::test
