#pragma once

#include <string>

namespace ventlock {

/// A name that nobody can foresee for a file that is soon to go: ".<owner>.ventlock-", 32 hexadecimal digits,
/// ".tmp".
/// @param owner  what it is made for; of a very long one only the beginning is taken
std::wstring TemporaryName(const std::wstring& owner);

/// Whether TemporaryName may have given `name` for `owner`.
bool IsTemporaryName(const std::wstring& name, const std::wstring& owner);

}  // namespace ventlock
