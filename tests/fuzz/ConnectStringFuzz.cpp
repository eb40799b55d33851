// A connect string made of any attributes, one of them a password, within any message. The input: message
// before, message behind, password and its sign ("{", "'" or a double quote), then key, value and sign of the
// attributes around it; the password is the third of them.

#include <algorithm>
#include <string>
#include <vector>

#include "base/Text.h"
#include "fuzz/Fields.h"
#include "fuzz/Require.h"
#include "platform/odbc/ConnectString.h"

namespace ventlock::test {
namespace {

using odbc::ConnectAttribute;

const std::string kSecret = "s3cr3t";  // of which no part may be seen
constexpr std::size_t kMostAttributes = 6;

std::string Quoted(const std::string& value, const std::string& sign) {
    const char open = sign == "'" || sign == "\"" ? sign[0] : '{';
    const char close = open == '{' ? '}' : open;
    std::string quoted(1, open);
    for (const char c : value) quoted += c == close ? std::string(2, c) : std::string(1, c);
    return quoted + close;
}

std::string Key(std::string key) {
    for (char& c : key) {
        if (c == '=' || c == ';') c = '_';
    }
    return std::string(Trim(key));
}

/// A password that the mask's own sign does not spell.
bool CanBeMasked(const std::string& password) {
    return password.find('*') == std::string::npos;
}

void TryAnyText(const std::string& text) {
    const std::vector<std::string> passwords = odbc::PasswordsOf(text);
    const std::string masked = odbc::MaskPasswords(text, passwords);
    for (const std::string& password : passwords) {
        if (!CanBeMasked(password)) continue;
        Require(masked.find(password) == std::string::npos, "a password is masked wherever it stands", text);
        RequireSame(odbc::MaskPasswords(password, passwords), "***",
                    "a password that stands alone is masked whole");
    }
    odbc::NamesEmptyDataSource(text);
}

void TryConnectString(Fields& fields) {
    TryAnyText(std::string(fields.Rest()));
    const std::string before = fields.Next();
    const std::string behind = fields.Next();
    const std::string secret = fields.Next();
    const std::string secretSign = fields.Next();
    std::vector<ConnectAttribute> attributes;
    std::string connect;
    while (attributes.size() < kMostAttributes) {
        const bool isSecret = attributes.size() == 2;
        const ConnectAttribute attribute = isSecret ? ConnectAttribute{"Pwd", kSecret + secret + kSecret}
                                                    : ConnectAttribute{Key(fields.Next()), fields.Next()};
        connect += attribute.key + "=" + Quoted(attribute.value, isSecret ? secretSign : fields.Next()) + ";";
        attributes.push_back(attribute);
    }

    const std::vector<ConnectAttribute> read = odbc::ParseConnectString(connect);
    Require(read.size() == attributes.size(), "what is quoted is one attribute", connect);
    for (std::size_t i = 0; i < read.size(); ++i) {
        RequireSame(read[i].key, attributes[i].key, "a key reads back");
        RequireSame(read[i].value, attributes[i].value, "a quoted value reads back");
    }

    const std::string message = before + connect + behind;
    std::string around = message;
    const std::string pair = attributes[2].key + "=" + Quoted(attributes[2].value, secretSign);
    around.erase(around.find(pair), pair.size());
    if (around.find(kSecret) != std::string::npos) return;
    const std::string masked = odbc::MaskPasswords(message, odbc::PasswordsOf(connect));
    Require(masked.find(kSecret) == std::string::npos, "no part of a password is left in a message", message);
}

}  // namespace
}  // namespace ventlock::test

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ventlock::test::Fields fields(data, size);
    ventlock::test::TryConnectString(fields);
    return 0;
}
