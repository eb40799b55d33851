#include "base/Variant.h"

#include <gtest/gtest.h>

namespace ventlock {
namespace {

TEST(Variant, NumbersAndTextsHaveATextForm) {
    EXPECT_EQ(TextOf(std::int32_t{7}), "7");
    EXPECT_EQ(TextOf(std::int32_t{-2147483647 - 1}), "-2147483648");
    EXPECT_EQ(TextOf(2.5), "2.5");
    EXPECT_EQ(TextOf(38.0), "38");
    EXPECT_EQ(TextOf(std::string("2abc")), "2abc");
    EXPECT_EQ(TextOf(std::string()), "");
}

}  // namespace
}  // namespace ventlock
