#pragma once

#include "platform/ILocale.h"

namespace ventlock {

/// The language of the user's locale: by its own name when the system speaks it to the user ("Deutsch" on a
/// German system), else by the name that the system shows for the locale, "German (Germany)" on an English
/// one. At most 24 characters of either.
class Win32Locale final : public ILocale {
 public:
    std::string LanguageName() override;
};

}  // namespace ventlock
