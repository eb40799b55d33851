#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/ProfileFile.h"
#include "support/Raised.h"
#include "support/TempFolder.h"

namespace ventlock::test {
namespace {

using Names = std::vector<std::string>;

TEST(ProfileFile, ListsItsSectionsInTheFilesOrderAsOftenAsTheyOccur) {
    const ProfileFile file("; [no]\r\n[b]\r\nkey=[no]\r\n  [ a \xFC ] [no]\r[open\n[]\n[B]", CodePage(1252));
    EXPECT_EQ(file.Sections(), (Names{"b", "a ü", "open", "", "B"}));
    EXPECT_EQ(ProfileFile("", CodePage(1252)).Sections(), Names{});
    EXPECT_EQ(ProfileFile(std::string("\xFF\xFE[\0a\0]\0", 8), CodePage(1252)).Sections(), Names{"a"});
}

TEST(ProfileFile, AddsAMissingSectionToTheEndAndLeavesAnExistingOne) {
    ProfileFile file("[a]\r\nkey=1", CodePage(1252));
    file.AddSection(" Gerät ");
    EXPECT_EQ(file.Bytes(), CrLf("[a]\nkey=1\n[Ger\xE4t]\n"));
    file.AddSection("GERÄT");
    file.AddSection("A");
    EXPECT_EQ(file.Bytes(), CrLf("[a]\nkey=1\n[Ger\xE4t]\n"));

    ProfileFile oneOpenLine("x", CodePage(1252));
    oneOpenLine.AddSection("a");
    EXPECT_EQ(oneOpenLine.Bytes(), CrLf("x\n[a]\n"));

    ProfileFile empty("", CodePage(1252));
    empty.AddSection("a");
    EXPECT_EQ(empty.Bytes(), CrLf("[a]\n"));
}

TEST(ProfileFile, RefusesToAddASectionThatItCannotHold) {
    ProfileFile file("[a]\r\n", CodePage(1252));
    for (const std::string name : {"x]", "x\r", "Ω"}) {
        EXPECT_EQ(NumberRaisedBy([&] { file.AddSection(name); }), 75) << name;
    }
    EXPECT_EQ(file.Bytes(), "[a]\r\n");
}

}  // namespace
}  // namespace ventlock::test
