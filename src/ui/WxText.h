#pragma once

#include <wx/string.h>

#include <string>
#include <string_view>

namespace ventlock {

/// Text is UTF-8 everywhere but in the toolkit, whose own strings do not leave this folder.
inline wxString ToWx(std::string_view utf8) {
    return wxString::FromUTF8(utf8.data(), utf8.size());
}

inline std::string FromWx(const wxString& text) {
    return text.utf8_string();
}

}  // namespace ventlock
