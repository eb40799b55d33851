#include "files/UnifiedDiff.h"

#include <gtest/gtest.h>

namespace ventlock::test {
namespace {

TEST(UnifiedDiff, OfEqualTextsIsEmpty) {
    EXPECT_EQ(UnifiedDiff("a\r\nb\r\n", "a\r\nb\r\n", "f.ini", true), "");
    EXPECT_EQ(UnifiedDiff("", "", "f.ini", true), "");
}

TEST(UnifiedDiff, OfANewFileBeginsAtNothing) {
    EXPECT_EQ(UnifiedDiff("", "a\r\nb\r\n", "f.ini", false),
              "--- /dev/null\n+++ f.ini\n@@ -0,0 +1,2 @@\n+a\n+b\n");
}

TEST(UnifiedDiff, OfAnEmptyFileThatIsThereNamesIt) {
    EXPECT_EQ(UnifiedDiff("", "a\r\n", "f.ini", true), "--- f.ini\n+++ f.ini\n@@ -0,0 +1,1 @@\n+a\n");
}

TEST(UnifiedDiff, ShowsThreeLinesAroundAChange) {
    EXPECT_EQ(
        UnifiedDiff("1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n", "1\n2\n3\n4\nfive\n6\n7\n8\n9\n10\n", "f.ini", true),
        "--- f.ini\n+++ f.ini\n@@ -2,7 +2,7 @@\n 2\n 3\n 4\n-5\n+five\n 6\n 7\n 8\n");
}

TEST(UnifiedDiff, KeepsChangesFarApartInHunksOfTheirOwn) {
    EXPECT_EQ(UnifiedDiff("a\n1\n2\n3\n4\n5\n6\n7\n8\nb\n", "A\n1\n2\n3\n4\n5\n6\n7\n8\nB\n", "f.ini", true),
              "--- f.ini\n+++ f.ini\n"
              "@@ -1,4 +1,4 @@\n-a\n+A\n 1\n 2\n 3\n"
              "@@ -7,4 +7,4 @@\n 6\n 7\n 8\n-b\n+B\n");
}

TEST(UnifiedDiff, ShowsLinesThatGo) {
    EXPECT_EQ(UnifiedDiff("a\nb\nc\n", "a\nc\n", "f.ini", true),
              "--- f.ini\n+++ f.ini\n@@ -1,3 +1,2 @@\n a\n-b\n c\n");
}

TEST(UnifiedDiff, OfLineEndsAloneIsSaidInOneLine) {
    EXPECT_EQ(UnifiedDiff("a\nb\r\nc", "a\r\nb\r\nc\r\n", "f.ini", true),
              "--- f.ini\n+++ f.ini\n(line ends of 2 lines become CR LF)\n");
}

TEST(UnifiedDiff, ShowsChangedLinesAndLineEndsTogether) {
    EXPECT_EQ(UnifiedDiff("a\nb\n", "a\r\nb\r\nc\r\n", "f.ini", true),
              "--- f.ini\n+++ f.ini\n@@ -1,2 +1,3 @@\n a\n b\n+c\n(line ends of 2 lines become CR LF)\n");
}

TEST(UnifiedDiff, OfALongFileIsStillExact) {
    std::string before;
    for (int line = 1; line <= 40000; ++line) before += "k" + std::to_string(line) + "=v\r\n";
    EXPECT_EQ(UnifiedDiff(before, before + "new\r\n", "f.ini", true),
              "--- f.ini\n+++ f.ini\n@@ -39998,3 +39998,4 @@\n k39998=v\n k39999=v\n k40000=v\n+new\n");
}

}  // namespace
}  // namespace ventlock::test
