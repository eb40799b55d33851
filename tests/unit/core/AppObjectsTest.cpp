#include "core/AppObjects.h"

#include <gtest/gtest.h>

#include <memory>

#include "support/Raised.h"

namespace ventlock::test {
namespace {

struct Service final : AppObject {};
struct OtherService final : AppObject {};

TEST(AppObjects, LookUpIgnoresCase) {
    AppObjects oAppObjects;
    const auto log = std::make_shared<Service>();
    oAppObjects.Add("Log", log);
    for (const char* const key : {"Log", "log", "LOG", "lOg"}) {
        EXPECT_TRUE(oAppObjects.Contains(key)) << key;
        EXPECT_EQ(&oAppObjects.Get<Service>(key), log.get()) << key;
    }
}

TEST(AppObjects, AddingAnExistingKeyRaises457AndKeepsTheFirstObject) {
    AppObjects oAppObjects;
    const auto first = std::make_shared<Service>();
    oAppObjects.Add("Log", first);
    const auto addAgain = [&] { oAppObjects.Add("LOG", std::make_shared<Service>()); };
    EXPECT_EQ(NumberRaisedBy(addAgain), 457);
    EXPECT_EQ(DescriptionRaisedBy(addAgain),
              "This key is already associated with an element of this collection");
    EXPECT_EQ(&oAppObjects.Get<Service>("Log"), first.get());
}

TEST(AppObjects, ReadingAnUnknownKeyRaises5) {
    AppObjects oAppObjects;
    oAppObjects.Add("Log", std::make_shared<Service>());
    const auto read = [&] { return &oAppObjects.Get<Service>("Settings"); };
    EXPECT_FALSE(oAppObjects.Contains("Settings"));
    EXPECT_EQ(NumberRaisedBy(read), 5);
    EXPECT_EQ(DescriptionRaisedBy(read), "Invalid procedure call or argument");
}

TEST(AppObjects, ReadingAnObjectOfAnotherClassRaises424) {
    AppObjects oAppObjects;
    oAppObjects.Add("Log", std::make_shared<OtherService>());
    EXPECT_EQ(NumberRaisedBy([&] { return &oAppObjects.Get<Service>("Log"); }), 424);
}

TEST(AppObjects, HoldsDifferentKeysSideBySide) {
    AppObjects oAppObjects;
    oAppObjects.Add(kLogKey, std::make_shared<Service>());
    oAppObjects.Add(kSettingsKey, std::make_shared<OtherService>());
    EXPECT_TRUE(oAppObjects.Contains("log"));
    EXPECT_TRUE(oAppObjects.Contains("settings"));
    EXPECT_FALSE(oAppObjects.Contains("connection"));
}

TEST(AppObjects, OwnsItsObjects) {
    std::weak_ptr<Service> watched;
    {
        AppObjects oAppObjects;
        auto service = std::make_shared<Service>();
        watched = service;
        oAppObjects.Add("Log", std::move(service));
        EXPECT_FALSE(watched.expired());
    }
    EXPECT_TRUE(watched.expired());
}

}  // namespace
}  // namespace ventlock::test
