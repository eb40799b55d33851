#include "platform/odbc/ConnectString.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "base/Text.h"

namespace ventlock::odbc {
namespace {

constexpr std::string_view kMask = "***";
constexpr std::string_view kClosingSigns = "}\"'";  // of values; doubled within them
constexpr std::size_t kShortestSecret = 4;          // shorter ones stand in many a word

char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool IsWordCharacter(char c) {
    const char lower = LowerAscii(c);
    return (lower >= 'a' && lower <= 'z') || (c >= '0' && c <= '9') || c == '_';
}

bool SameKey(std::string_view a, std::string_view lower) {
    return a.size() == lower.size() &&
           std::equal(a.begin(), a.end(), lower.begin(), [](char x, char y) { return LowerAscii(x) == y; });
}

bool IsPasswordKey(std::string_view key) {
    return SameKey(key, "pwd") || SameKey(key, "password");
}

std::size_t SkipBlanks(std::string_view text, std::size_t at) {
    return std::min(text.find_first_not_of(' ', at), text.size());
}

// Reads the value that begins at `at`; returns the position behind it. A value that never closes goes to the
// end.
std::size_t ReadValue(std::string_view text, std::size_t at, std::string& value) {
    value.clear();
    const std::size_t open = SkipBlanks(text, at);
    const char first = open < text.size() ? text[open] : '\0';
    if (first != '{' && first != '"' && first != '\'') {
        const std::size_t end = std::min(text.find(';', at), text.size());
        value = text.substr(at, end - at);
        return end;
    }
    const char close = first == '{' ? '}' : first;
    std::size_t i = open + 1;
    for (; i < text.size(); ++i) {
        if (text[i] == close) {
            if (i + 1 >= text.size() || text[i + 1] != close) return i + 1;
            ++i;  // a doubled closing character stands for itself
        }
        value += text[i];
    }
    return i;
}

std::string ReplaceAll(std::string text, std::string_view what, std::string_view with) {
    if (what.empty()) return text;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size())) {
        text.replace(at, what.size(), with);
    }
    return text;
}

/// Masks what stands behind a password's key.
std::string MaskByKey(std::string_view text) {
    std::string masked;
    std::size_t at = 0;
    while (at < text.size()) {
        if (!IsWordCharacter(text[at])) {
            masked += text[at++];
            continue;
        }
        const auto wordEnd =
            std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(), IsWordCharacter);
        const auto end = static_cast<std::size_t>(std::distance(text.begin(), wordEnd));
        const std::string_view word = text.substr(at, end - at);
        const std::size_t equals = SkipBlanks(text, end);
        if (!IsPasswordKey(word) || equals >= text.size() || text[equals] != '=') {
            masked += word;
            at = end;
            continue;
        }
        std::string value;
        const std::size_t behind = ReadValue(text, equals + 1, value);
        masked += text.substr(at, equals + 1 - at);
        if (behind > equals + 1) masked += kMask;
        at = behind;
    }
    return masked;
}

}  // namespace

std::vector<ConnectAttribute> ParseConnectString(std::string_view connect) {
    std::vector<ConnectAttribute> attributes;
    std::size_t at = 0;
    while (at < connect.size()) {
        const std::size_t equals = connect.find('=', at);
        const std::size_t semicolon = std::min(connect.find(';', at), connect.size());
        if (equals == std::string_view::npos) break;
        if (semicolon < equals) {  // a piece without "="
            at = semicolon + 1;
            continue;
        }
        ConnectAttribute attribute{std::string(Trim(connect.substr(at, equals - at))), {}};
        const std::size_t end = ReadValue(connect, equals + 1, attribute.value);
        attributes.push_back(std::move(attribute));
        at = std::min(connect.find(';', end), connect.size()) + 1;
    }
    return attributes;
}

bool NamesEmptyDataSource(std::string_view connect) {
    const std::vector<ConnectAttribute> attributes = ParseConnectString(connect);
    return std::any_of(attributes.begin(), attributes.end(), [](const ConnectAttribute& attribute) {
        return SameKey(attribute.key, "dsn") && Trim(attribute.value).empty();
    });
}

std::vector<std::string> PasswordsOf(std::string_view connect) {
    std::vector<std::string> passwords;
    for (const ConnectAttribute& attribute : ParseConnectString(connect)) {
        const std::string& password = attribute.value;
        if (!IsPasswordKey(attribute.key) || password.size() < kShortestSecret) continue;
        passwords.push_back(password);
        for (const char close : kClosingSigns) {
            if (password.find(close) == std::string::npos) continue;
            passwords.push_back(ReplaceAll(password, std::string(1, close), std::string(2, close)));
        }
    }
    // A password that is part of another one would leave the rest of that one.
    std::stable_sort(passwords.begin(), passwords.end(),
                     [](const std::string& a, const std::string& b) { return a.size() > b.size(); });
    return passwords;
}

std::string MaskPasswords(std::string_view text, const std::vector<std::string>& passwords) {
    // Known ones first: a quote that is left open before one of them would end within it.
    std::string masked(text);
    for (const std::string& password : passwords) masked = ReplaceAll(std::move(masked), password, kMask);
    return MaskByKey(masked);
}

}  // namespace ventlock::odbc
