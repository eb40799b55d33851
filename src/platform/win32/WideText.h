#pragma once

#include <string>
#include <string_view>

namespace ventlock {

/// UTF-8 to the UTF-16 units that the system's functions take. Bytes that are no UTF-8 become U+FFFD.
std::wstring ToWideText(std::string_view utf8);

/// UTF-16 units of the system to UTF-8; lone surrogates, which file names may hold, survive the way back.
std::string FromWideText(std::wstring_view units);

}  // namespace ventlock
