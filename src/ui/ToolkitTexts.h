#pragma once

#include <wx/translation.h>

#include <memory>

namespace ventlock {

/// Finds the toolkit's own texts in other languages: those of the host's installation, or those that the
/// program carries in itself.
std::unique_ptr<wxTranslationsLoader> ToolkitTexts();

}  // namespace ventlock
