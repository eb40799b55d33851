#include "base/NearWord.h"

#include <gtest/gtest.h>

#include <vector>

namespace ventlock {
namespace {

const std::vector<std::string> kKnown = {"db", "ini", "all", "json", "dryrun", "dryruns", "report"};

/// The known word that is near, "" for none.
std::string Near(const std::string& word) {
    const auto at = NearestWord(word, kKnown);
    return at ? kKnown.at(*at) : "";
}

TEST(NearestWord, IsOneOrTwoSlipsAway) {
    EXPECT_EQ(Near("dryrun"), "dryrun");
    EXPECT_EQ(Near("drrun"), "dryrun");
    EXPECT_EQ(Near("drryrun"), "dryrun");
    EXPECT_EQ(Near("drxrun"), "dryrun");
    EXPECT_EQ(Near("rdyrun"), "dryrun");
    EXPECT_EQ(Near("rdyrnu"), "dryrun");
    EXPECT_EQ(Near("reprot"), "report");
    EXPECT_EQ(Near("repo"), "");  // two slips, and short
    EXPECT_EQ(Near("epors"), "report");
    EXPECT_EQ(Near("eprs"), "");
    EXPECT_EQ(Near("tropre"), "");
}

TEST(NearestWord, IsOneSlipAwayWhenItIsShort) {
    EXPECT_EQ(Near("josn"), "json");
    EXPECT_EQ(Near("jsonn"), "json");
    EXPECT_EQ(Near("jo"), "");
    EXPECT_EQ(Near("al"), "all");
    EXPECT_EQ(Near("bd"), "db");
    EXPECT_EQ(Near("d"), "");
    EXPECT_EQ(Near(""), "");
}

TEST(NearestWord, IsTheNearestOfSeveralAndTheFirstOfEqualOnes) {
    EXPECT_EQ(Near("dryruns"), "dryruns");
    EXPECT_EQ(Near("dryrunss"), "dryruns");
    EXPECT_EQ(Near("dryrunx"), "dryrun");
}

TEST(NearestWord, KeepsCaseAndTakesWordsOfAnyLength) {
    EXPECT_EQ(Near("DB"), "");
    EXPECT_EQ(Near(std::string(1000000, 'd')), "");
    EXPECT_EQ(NearestWord("a", {}), std::nullopt);
}

}  // namespace
}  // namespace ventlock
