#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

#include <string>
#include <string_view>
#include <vector>

#include "core/IList.h"

namespace ventlock {

/// Text is UTF-8 everywhere but in the toolkit, whose own strings do not leave this folder.
inline wxString ToWx(std::string_view utf8) {
    return wxString::FromUTF8(utf8.data(), utf8.size());
}

inline std::string FromWx(const wxString& text) {
    return text.utf8_string();
}

inline wxArrayString TextsToWx(const std::vector<ListItem>& items) {
    wxArrayString texts;
    texts.reserve(items.size());
    for (const ListItem& item : items) texts.push_back(ToWx(item.text));
    return texts;
}

}  // namespace ventlock
