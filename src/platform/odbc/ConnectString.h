#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ventlock::odbc {

/// One "key=value" of a connect string; `value` without the braces or quotes around it.
struct ConnectAttribute {
    std::string key;
    std::string value;
};

/// The attributes of a connect string in their order. A value in braces may hold ";" and "}}" for a brace.
std::vector<ConnectAttribute> ParseConnectString(std::string_view connect);

/// True when the connect string names a data source and the name is empty or blank.
bool NamesEmptyDataSource(std::string_view connect);

/// Passwords of a connect string, those of four characters and more, longest first: as they are, and as they
/// stand in braces or quotes when that differs.
std::vector<std::string> PasswordsOf(std::string_view connect);

/// The text without passwords: what stands behind "PWD=" or "Password=" (any case, in braces, in quotes or up
/// to the next ";") is "***", and so is each of `passwords`, longest first, wherever it stands.
std::string MaskPasswords(std::string_view text, const std::vector<std::string>& passwords = {});

}  // namespace ventlock::odbc
