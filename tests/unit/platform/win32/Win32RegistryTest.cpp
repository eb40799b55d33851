#include "platform/win32/Win32Registry.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/Casing.h"
#include "support/win32/RegistryTree.h"

namespace ventlock::test {
namespace {

using TypeAndBytes = std::pair<std::uint32_t, std::string>;
constexpr auto kUser = RegistryRoot::CurrentUser;
constexpr std::uint32_t kUnexpandedString = 2;
constexpr std::uint32_t kSetValue = 0x2;
constexpr RegistryStatus kInvalidName = 123;

class Win32RegistryTest : public testing::Test {
 protected:
    std::unique_ptr<IRegistryKey> Created() {
        std::unique_ptr<IRegistryKey> key;
        EXPECT_EQ(registry_.CreateKey(kUser, key_.Path(), key), kRegistrySuccess);
        return key;
    }

    RegistryStatus OpenStatus(RegistryRoot root, std::string_view path, std::uint32_t mask = kKeyRead) {
        std::unique_ptr<IRegistryKey> key;
        const RegistryStatus status = registry_.OpenKey(root, path, mask, key);
        EXPECT_EQ(key != nullptr, status == kRegistrySuccess);
        return status;
    }

    std::optional<TypeAndBytes> Query(std::string_view path, std::string_view name) {
        std::unique_ptr<IRegistryKey> key;
        if (registry_.OpenKey(kUser, path, kKeyRead, key) != kRegistrySuccess) return std::nullopt;
        TypeAndBytes value{99, "untouched"};
        const RegistryStatus status = key->Query(name, value.first, value.second);
        if (status == kRegistrySuccess) return value;
        EXPECT_EQ(status, kRegistryFileNotFound);
        EXPECT_EQ(value, TypeAndBytes(99, "untouched"));
        return std::nullopt;
    }
    std::optional<TypeAndBytes> Query(std::string_view name) { return Query(key_.Path(), name); }

    [[nodiscard]] std::string Tree() const { return TreeText(kUser, key_.Path()); }

    static TypeAndBytes Text(std::string_view text) { return {kRegistryString, std::string(text)}; }

    TestKey key_;
    Win32Registry registry_;
};

TEST_F(Win32RegistryTest, AStringIsStoredAsItsUnitsWithoutANul) {
    const auto key = Created();
    EXPECT_EQ(key->Set("Name", kRegistryString, "aΩ"), kRegistrySuccess);
    EXPECT_EQ(Tree(), "Name=1:aΩ\n");
    EXPECT_EQ(key->Set("Name", kRegistryString, ""), kRegistrySuccess);
    EXPECT_EQ(Tree(), "Name=1:\n");
    EXPECT_EQ(key->Set("Name", kRegistryString, std::string_view("a\0", 2)), kRegistrySuccess);
    EXPECT_EQ(Tree(), std::string("Name=1:a\0\n", 10));
}

TEST_F(Win32RegistryTest, ANumberIsStoredAsItsFourBytes) {
    EXPECT_EQ(Created()->Set("Top", kRegistryDword, "\xC4\xFF\xFF\xFF"), kRegistrySuccess);
    EXPECT_EQ(Tree(), "Top=4:ffffffc4\n");
    EXPECT_EQ(Query("Top"), TypeAndBytes(kRegistryDword, "\xC4\xFF\xFF\xFF"));
}

TEST_F(Win32RegistryTest, ASavedStringReadsBackIdentical) {
    const auto key = Created();
    for (const std::string& text :
         {std::string("Acme"), std::string(), std::string("ab\0cd", 5), std::string("a\0", 2),
          std::string("  a  "), std::string("\"a\""), std::string("a\r\nb"), std::string("Ω中\\"),
          std::string("\xF0\x9F\x98\x80"), std::string("a\xED\xA0\x80z\xED\xB0\x80"),
          std::string(100000, 'x')}) {
        EXPECT_EQ(key->Set("Name", kRegistryString, text), kRegistrySuccess);
        EXPECT_EQ(Query("Name"), Text(text));
    }
}

TEST_F(Win32RegistryTest, AStringOfAnotherProgramIsReadAsLongAsItIsStored) {
    key_.Put("WithNul", kRegistryString, std::string("a\0b\0\0\0", 6));
    EXPECT_EQ(Query("WithNul"), Text(std::string_view("ab\0", 3)));
    key_.Put("HalfUnit", kRegistryString, std::string("a\0b", 3));
    EXPECT_EQ(Query("HalfUnit"), Text("a"));
}

TEST_F(Win32RegistryTest, OtherTypesKeepTheirNumberAndTheirBytes) {
    const auto key = Created();
    EXPECT_EQ(key->Set("Binary", 3, std::string_view("\0\xFF", 2)), kRegistrySuccess);
    EXPECT_EQ(Tree(), "Binary=3:00ff\n");
    EXPECT_EQ(Query("Binary"), TypeAndBytes(3, std::string("\0\xFF", 2)));
    key_.Put("Unexpanded", kUnexpandedString, std::string("%\0a\0%\0", 6));
    EXPECT_EQ(Query("Unexpanded"), TypeAndBytes(kUnexpandedString, std::string("%\0a\0%\0", 6)));
    EXPECT_EQ(key->Set("Unexpanded", kUnexpandedString, std::string_view("a\0", 2)), kRegistrySuccess);
    EXPECT_EQ(Tree(), "Binary=3:00ff\nUnexpanded=2:6100\n");
    key_.Put("Eight", 11, "\1\2\3\4\5\6\7\x08");
    EXPECT_EQ(Query("Eight"), TypeAndBytes(11, "\1\2\3\4\5\6\7\x08"));
}

TEST_F(Win32RegistryTest, NamesIgnoreCaseAndKeepIt) {
    const auto key = Created();
    key->Set("WindowState", kRegistryString, "1");
    EXPECT_EQ(Query("Windowstate"), Text("1"));
    EXPECT_EQ(key->Set("WINDOWSTATE", kRegistryString, "2"), kRegistrySuccess);
    EXPECT_EQ(Tree(), "WindowState=1:2\n");
    EXPECT_EQ(Query("windowSTATE"), Text("2"));
    EXPECT_EQ(Query(UpperCase(key_.Path()), "WindowState"), Text("2"));
}

TEST_F(Win32RegistryTest, AKeyHasAValueWithoutAName) {
    EXPECT_EQ(Created()->Set("", kRegistryString, "the key's own value"), kRegistrySuccess);
    EXPECT_EQ(Query(""), Text("the key's own value"));
    EXPECT_EQ(Tree(), "=1:the key's own value\n");
}

TEST_F(Win32RegistryTest, WhatIsMissingIsNotFoundAndNotMade) {
    EXPECT_EQ(OpenStatus(kUser, key_.Path()), kRegistryFileNotFound);
    EXPECT_EQ(OpenStatus(kUser, key_.Path(), kKeyAllAccess32), kRegistryFileNotFound);
    EXPECT_EQ(Tree(), "(none)");
    Created();
    EXPECT_EQ(Query("Name"), std::nullopt);
    EXPECT_EQ(OpenStatus(kUser, key_.Path() + "\\Sub"), kRegistryFileNotFound);
}

TEST_F(Win32RegistryTest, ASeparatorAtTheEndOfAPathMeansNothing) {
    std::unique_ptr<IRegistryKey> key;
    ASSERT_EQ(registry_.CreateKey(kUser, key_.Path() + "\\", key), kRegistrySuccess);
    EXPECT_EQ(key->Set("Name", kRegistryString, "a"), kRegistrySuccess);
    EXPECT_EQ(Query(key_.Path(), "Name"), Text("a"));
    EXPECT_EQ(Query(key_.Path() + "\\", "Name"), Text("a"));
    EXPECT_EQ(OpenStatus(kUser, ""), kRegistrySuccess);
    EXPECT_EQ(OpenStatus(RegistryRoot::LocalMachine, "\\"), kRegistrySuccess);
}

TEST_F(Win32RegistryTest, CreateKeyMakesTheKeysAboveAndKeepsWhatIsThere) {
    std::unique_ptr<IRegistryKey> key;
    ASSERT_EQ(registry_.CreateKey(kUser, key_.Path() + "\\Tool\\Ω", key), kRegistrySuccess);
    EXPECT_EQ(key->Set("Name", kRegistryString, "a"), kRegistrySuccess);
    ASSERT_EQ(registry_.CreateKey(kUser, key_.Path() + "\\tool\\ω", key), kRegistrySuccess);
    std::uint32_t type = 0;
    std::string bytes;
    EXPECT_EQ(key->Query("Name", type, bytes), kRegistrySuccess);
    EXPECT_EQ(bytes, "a");
    EXPECT_EQ(OpenStatus(kUser, key_.Path() + "\\TOOL"), kRegistrySuccess);
    EXPECT_EQ(Tree(), "\nTool\\\nTool\\Ω\\Name=1:a\n");
    EXPECT_EQ(OpenStatus(RegistryRoot::LocalMachine, key_.Path()), kRegistryFileNotFound);
}

TEST_F(Win32RegistryTest, ANameThatHoldsANulIsNoName) {
    const auto key = Created();
    const std::string_view name("a\0b", 3);
    EXPECT_EQ(key->Set(name, kRegistryString, "x"), kInvalidName);
    EXPECT_EQ(Query(name), std::nullopt);
    EXPECT_EQ(Tree(), "\n");
    std::unique_ptr<IRegistryKey> other;
    const std::string path = key_.Path() + std::string("\0x", 2);
    EXPECT_EQ(registry_.CreateKey(kUser, path, other), kInvalidName);
    EXPECT_EQ(OpenStatus(kUser, path), kRegistryFileNotFound);
    EXPECT_EQ(other, nullptr);
}

TEST_F(Win32RegistryTest, AKeyDoesWhatItsMaskAsksForAndNoMore) {
    Created()->Set("Name", kRegistryString, "Acme");
    std::unique_ptr<IRegistryKey> key;
    std::uint32_t type = 0;
    std::string bytes;
    ASSERT_EQ(registry_.OpenKey(kUser, key_.Path(), kKeyRead, key), kRegistrySuccess);
    EXPECT_EQ(key->Query("Name", type, bytes), kRegistrySuccess);
    EXPECT_EQ(key->Set("Name", kRegistryString, "Bolt"), kRegistryAccessDenied);
    ASSERT_EQ(registry_.OpenKey(kUser, key_.Path(), kSetValue, key), kRegistrySuccess);
    EXPECT_EQ(key->Query("Name", type, bytes), kRegistryAccessDenied);
    EXPECT_EQ(key->Set("Name", kRegistryString, "Bolt"), kRegistrySuccess);
    for (const std::uint32_t mask : {kKeyAllAccess32, kKeyFullAccess}) {
        ASSERT_EQ(registry_.OpenKey(kUser, key_.Path(), mask, key), kRegistrySuccess);
        EXPECT_EQ(key->Query("Name", type, bytes), kRegistrySuccess);
        EXPECT_EQ(bytes, "Bolt");
        EXPECT_EQ(key->Set("Name", kRegistryString, "Bolt"), kRegistrySuccess);
    }
}

}  // namespace
}  // namespace ventlock::test
