#include "entry/VersionList.h"

#include <gtest/gtest.h>

#include <ostream>

#include "support/Fakes.h"
#include "support/RowName.h"

namespace ventlock::test {
namespace {

using Items = std::vector<std::string>;

struct VersionRow {
    std::string_view name;
    std::string_view text;
    Items items;
};

void PrintTo(const VersionRow& row, std::ostream* out) {
    *out << '"' << row.text << '"';
}

class ParseVersionListOf : public testing::TestWithParam<VersionRow> {};

TEST_P(ParseVersionListOf, GivesTheItemsOfTheRow) {
    NoEvents events;
    EXPECT_EQ(ParseVersionList(GetParam().text, events), GetParam().items);
}

INSTANTIATE_TEST_SUITE_P(Rows, ParseVersionListOf,
                         testing::Values(VersionRow{"Comma", "5.0,6.0", {"5.0", "6.0"}},
                                         VersionRow{"CommaAndBlank", "5.0, 6.0", {"5.0", "6.0"}},
                                         VersionRow{"BlanksAround", " 5.0 6.0 ", {"5.0", "6.0"}},
                                         VersionRow{"TwoCommas", "5.0,,6.0", {"5.0", "", "6.0"}},
                                         VersionRow{"CommaAtTheEnd", "5.0,", {"5.0"}},
                                         VersionRow{"Nothing", "", {}}, VersionRow{"BlanksOnly", "   ", {}},
                                         VersionRow{"OneComma", ",", {""}},
                                         VersionRow{"TwoCommasOnly", ",,", {"", ""}},
                                         VersionRow{"BlankBeforeTheComma", "5.0 , 6.0", {"5.0", "", "6.0"}},
                                         VersionRow{"Semicolon", "5.0;6.0", {"5.0;6.0"}},
                                         VersionRow{"Tab", "5.0\t6.0", {"5.0\t6.0"}},
                                         VersionRow{"CommaFirst", " , 5.0", {"", "5.0"}},
                                         VersionRow{"ManyBlanks", "5.0,   6.0,", {"5.0", "6.0"}}),
                         RowName());

TEST(ParseVersionList, LetsEventsRunOncePerCharacterExamined) {
    FakeEvents events;
    EXPECT_EQ(ParseVersionList("5.0,6.0", events), (Items{"5.0", "6.0"}));
    EXPECT_EQ(events.yields, 7);
}

}  // namespace
}  // namespace ventlock::test
