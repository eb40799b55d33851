#include <gtest/gtest.h>

#include "platform/CodePage.h"

namespace ventlock::test {
namespace {

// A Windows system need not have them.
TEST(HostCodePage, PagesOfFurtherNumbersAreKnown) {
    EXPECT_EQ(CodePage(51932).Encode("中"), "\xC3\xE6");
    EXPECT_EQ(CodePage(51949).Encode("한"), "\xC7\xD1");
    EXPECT_EQ(CodePage(54936).Encode("ö"), "\x81\x30\x8B\x32");
}

}  // namespace
}  // namespace ventlock::test
