#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <string>
#include <vector>

#include "core/Guarded.h"
#include "core/modLocalization.h"
#include "support/Fakes.h"

namespace ventlock::test {
namespace {

/// Answers every look-up with its arguments and notes the option's state at that time.
struct EchoDictionary final : IDictionary {
    bool option = false;
    bool raises = false;
    std::vector<bool> optionAtFind;

    bool Load(const std::vector<std::string>&) override { return true; }
    std::string Find(const std::string& key, const std::string& language, bool flag) override {
        optionAtFind.push_back(option);
        if (raises) throw std::bad_alloc();
        return key + "|" + language + "|" + (flag ? "True" : "False");
    }
    bool& Option3() override { return option; }
};

class GetStringTest : public testing::Test {
 protected:
    void SetUp() override {
        UseDictionary(dictionary_);
        UseModuleMessageBox(&messages_);
        gsLanguage = "DE";
    }
    void TearDown() override {
        UseDictionary(nullptr);
        UseModuleMessageBox(nullptr);
        gsLanguage.clear();
    }

    std::shared_ptr<EchoDictionary> dictionary_ = std::make_shared<EchoDictionary>();
    FakeMessageBox messages_;
};

TEST_F(GetStringTest, UsesTheGlobalLanguageAndAFlagOfTrueWhenOmitted) {
    EXPECT_EQ(GetString("IDS_TITLE"), "IDS_TITLE|DE|True");
    gsLanguage = "EN";
    EXPECT_EQ(GetString("IDS_TITLE"), "IDS_TITLE|EN|True");
}

TEST_F(GetStringTest, UsesTheLanguageAndTheFlagThatAreGiven) {
    EXPECT_EQ(GetString("IDS_TITLE", "FR"), "IDS_TITLE|FR|True");
    EXPECT_EQ(GetString("IDS_TITLE", ""), "IDS_TITLE||True") << "empty is given, not omitted";
    EXPECT_EQ(GetString("IDS_TITLE", "FR", false), "IDS_TITLE|FR|False");
}

TEST_F(GetStringTest, TakesTheKeyAsText) {
    EXPECT_EQ(GetString(5), "5|DE|True");
    EXPECT_EQ(GetString(2.5), "2.5|DE|True");
}

TEST_F(GetStringTest, SetsTheThirdFieldOfTheOptionBlockBeforeTheLookUpAndLeavesItSet) {
    GetString("IDS_A");
    EXPECT_TRUE(dictionary_->option);
    GetString("IDS_A");
    EXPECT_TRUE(dictionary_->option);
    EXPECT_EQ(dictionary_->optionAtFind, (std::vector<bool>{true, true}));
}

TEST_F(GetStringTest, GivesAnEmptyTextAndAMessageAfterAnError) {
    dictionary_->raises = true;
    EXPECT_EQ(GetString("IDS_A"), "");
    ASSERT_EQ(messages_.messages.size(), 1U);
    EXPECT_EQ(messages_.messages[0].text, "mLgs-00: Out of memory");
}

TEST_F(GetStringTest, WithoutDictionaryIsAnUnsetObject) {
    UseDictionary(nullptr);
    EXPECT_EQ(GetString("IDS_A"), "");
    ASSERT_EQ(messages_.messages.size(), 1U);
    EXPECT_EQ(messages_.messages[0].text, "mLgs-00: Object variable or With block variable not set");
}

}  // namespace
}  // namespace ventlock::test
