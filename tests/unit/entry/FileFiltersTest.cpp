#include "entry/FileFilters.h"

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string_view>

#include "core/TavDictionary.h"
#include "platform/Host.h"
#include "support/RowName.h"

namespace ventlock::test {
namespace {

constexpr std::string_view kTwoPairs = "INI files|*.ini|All files|*.*";
const FileFilters kAllFiles{"*.*|*.*", 1};

struct FilterRow {
    std::string_view name;
    std::string_view text;
    int preselected;
    FileFilters result;
};

void PrintTo(const FilterRow& row, std::ostream* out) {
    *out << '"' << row.text << "\", " << row.preselected;
}

class UsableFiltersOf : public testing::TestWithParam<FilterRow> {};

TEST_P(UsableFiltersOf, GivesWhatTheDialogCanTake) {
    const FileFilters filters = UsableFilters(GetParam().text, GetParam().preselected);
    EXPECT_EQ(filters.text, GetParam().result.text);
    EXPECT_EQ(filters.preselected, GetParam().result.preselected);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, UsableFiltersOf,
    testing::Values(FilterRow{"First", kTwoPairs, 1, {std::string(kTwoPairs), 1}},
                    FilterRow{"Last", kTwoPairs, 2, {std::string(kTwoPairs), 2}},
                    FilterRow{"BehindTheLast", kTwoPairs, 3, {std::string(kTwoPairs), 2}},
                    FilterRow{"BeforeTheFirst", kTwoPairs, 0, {std::string(kTwoPairs), 1}},
                    FilterRow{"Negative", kTwoPairs, -1, {std::string(kTwoPairs), 1}},
                    FilterRow{"OnePair", "INI files|*.ini", 2, {"INI files|*.ini", 1}},
                    FilterRow{"SeveralPatterns", "Files|*.ini;*.txt", 1, {"Files|*.ini;*.txt", 1}},
                    FilterRow{"NoDescription", "|*.ini", 1, {"|*.ini", 1}},
                    FilterRow{"Empty", "", 2, kAllFiles}, FilterRow{"NoBar", "IDS_FLTR_INI", 3, kAllFiles},
                    FilterRow{"OddCount", "INI files|*.ini|All files", 2, kAllFiles},
                    FilterRow{"BarAtTheEnd", "INI files|*.ini|", 1, kAllFiles},
                    FilterRow{"EmptyPattern", "INI files|", 1, kAllFiles},
                    FilterRow{"EmptyPatternInTheMiddle", "INI files||All files|*.*", 1, kAllFiles},
                    FilterRow{"BlankPattern", "INI files|  ", 1, kAllFiles},
                    FilterRow{"OnlyBars", "|||", 1, kAllFiles}),
    RowName());

TEST(FileFiltersOfTheDictionaries, CanBeUsedAsTheyStandInEveryLanguage) {
    const std::unique_ptr<Host> host = CreateHost("ventlock");
    TavDictionary dictionary(host->Files());
    ASSERT_TRUE(dictionary.Load({VENTLOCK_SOURCE_FOLDER "/data/Ventlock.dct"}));
    for (const char* const language : {"EN", "DE"}) {
        const auto expectUsable = [&](const char* key, int preselected) {
            const std::string text = dictionary.Find(key, language, true);
            EXPECT_EQ(UsableFilters(text, preselected), (FileFilters{text, preselected})) << key << language;
        };
        expectUsable("IDS_FLTR_DB", 2);
        expectUsable("IDS_FLTR_INI", 3);
        expectUsable("IDS_FLTR_DD", 2);
    }
}

}  // namespace
}  // namespace ventlock::test
