#pragma once

#include <wx/window.h>

#include <string>

namespace ventlock {

/// Gives a control the name that screen readers speak. A label before a field names it only on one host, and
/// several fields have labels alike. The parts of an editable list take the name, too; a list that
/// is not typed into keeps that of its label where its own name tells what is chosen.
void SetAccessibleName(wxWindow& control, const std::string& name);

/// Gives a control the words that screen readers speak behind its name; "" for none.
void SetAccessibleDescription(wxWindow& control, const std::string& description);

}  // namespace ventlock
