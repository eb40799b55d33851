#include "platform/odbc/ConnectString.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace ventlock::odbc {
namespace {

std::string Parsed(const std::string& connect) {
    std::string text;
    for (const ConnectAttribute& attribute : ParseConnectString(connect)) {
        text += "<" + attribute.key + "|" + attribute.value + ">";
    }
    return text;
}

TEST(ConnectString, IsReadInItsParts) {
    EXPECT_EQ(Parsed("UID=sa;PWD=;DSN=PYX"), "<UID|sa><PWD|><DSN|PYX>");
    EXPECT_EQ(Parsed("DSN= A"), "<DSN| A>");
    EXPECT_EQ(Parsed(" Driver ={a;b}}c};X='1;2';Y=\"3\""), "<Driver|a;b}c><X|1;2><Y|3>");
    EXPECT_EQ(Parsed("alone;DSN=x"), "<DSN|x>");
    EXPECT_EQ(Parsed("PWD={never closed;DSN=x"), "<PWD|never closed;DSN=x>");
    EXPECT_EQ(Parsed(""), "");
}

TEST(ConnectString, AnEmptyOrBlankDataSourceNameIsSeen) {
    EXPECT_TRUE(NamesEmptyDataSource("UID=sa;PWD=;DSN="));
    EXPECT_TRUE(NamesEmptyDataSource("UID=sa;PWD=;DSN=  "));
    EXPECT_TRUE(NamesEmptyDataSource("dsn=;UID=sa"));
    EXPECT_TRUE(NamesEmptyDataSource("DSN={}"));
    EXPECT_FALSE(NamesEmptyDataSource("UID=sa;PWD=;DSN=PYX"));
    EXPECT_FALSE(NamesEmptyDataSource("UID=sa;PWD=;DSN= A"));
    EXPECT_FALSE(NamesEmptyDataSource("Driver=SQLite3;Database=x"));
}

TEST(PasswordMask, HidesThePasswordOfAConnectString) {
    EXPECT_EQ(MaskPasswords("UID=sa;PWD=secret;DSN=PYX"), "UID=sa;PWD=***;DSN=PYX");
    EXPECT_EQ(MaskPasswords("UID=sa;pwd = se cret ;DSN=PYX"), "UID=sa;pwd =***;DSN=PYX");
    EXPECT_EQ(MaskPasswords("Password=secret"), "Password=***");
    EXPECT_EQ(MaskPasswords("PASSWORD={se;cr}}et};DSN=PYX"), "PASSWORD=***;DSN=PYX");
    EXPECT_EQ(MaskPasswords("Pwd='se;cret';DSN=PYX"), "Pwd=***;DSN=PYX");
    EXPECT_EQ(MaskPasswords("Pwd=\"se;cret\";DSN=PYX"), "Pwd=***;DSN=PYX");
    EXPECT_EQ(MaskPasswords("PWD={never closed;DSN=PYX"), "PWD=***");
}

TEST(PasswordMask, LeavesWhatIsNoPassword) {
    EXPECT_EQ(MaskPasswords("UID=sa;PWD=;DSN=PYX"), "UID=sa;PWD=;DSN=PYX");
    EXPECT_EQ(MaskPasswords("NOPWD=1;PWDX=2;UID=PWD"), "NOPWD=1;PWDX=2;UID=PWD");
    EXPECT_EQ(MaskPasswords("0PWD=1;9PWD=2;_PWD=3"), "0PWD=1;9PWD=2;_PWD=3");
    EXPECT_EQ(MaskPasswords("The password is wrong"), "The password is wrong");
    EXPECT_EQ(MaskPasswords("Müller Ω"), "Müller Ω");
    EXPECT_EQ(MaskPasswords(""), "");
}

TEST(PasswordMask, HidesPasswordsWithinADriversText) {
    EXPECT_EQ(MaskPasswords("[Driver]Cannot connect with 'UID=sa;PWD=secret;DSN=PYX'"),
              "[Driver]Cannot connect with 'UID=sa;PWD=***;DSN=PYX'");
    EXPECT_EQ(MaskPasswords("[x]PWD=one;y;Password=two;z"), "[x]PWD=***;y;Password=***;z");
}

TEST(PasswordMask, HidesAKnownPasswordWhereverItStands) {
    const std::vector<std::string> passwords =
        PasswordsOf("UID=sa;PWD=hunter2;Password={a;b}}c};PWD=abc;X=long enough");
    EXPECT_EQ(passwords, (std::vector<std::string>{"hunter2", "a;b}}c", "a;b}c"}));
    EXPECT_EQ(MaskPasswords("login with hunter2 failed, hunter2 (a;b}c)", passwords),
              "login with *** failed, *** (***)");
}

TEST(PasswordMask, HidesAKnownPasswordWhereTheTextBeforeItLeavesAQuoteOpen) {
    const auto masked = [](const std::string& before, const std::string& connect) {
        return MaskPasswords(before + connect, PasswordsOf(connect));
    };
    EXPECT_EQ(masked("[x]PWD=\" ", "Pwd={hun\"ter2};DSN=PYX"), "[x]PWD=***");
    EXPECT_EQ(masked("", "X={PWD='};PWD={it's};DSN=PYX"), "X={PWD=***");
    EXPECT_EQ(masked("[x]PWD={", "PWD='a''b}c';Y=1"), "[x]PWD=***");
}

TEST(PasswordMask, HidesAPasswordThatAnotherOneBeginsWith) {
    const std::vector<std::string> passwords = PasswordsOf("PWD=hunter;Password=hunter2");
    EXPECT_EQ(passwords, (std::vector<std::string>{"hunter2", "hunter"}));
    EXPECT_EQ(MaskPasswords("hunter2, hunter", passwords), "***, ***");
}

}  // namespace
}  // namespace ventlock::odbc
