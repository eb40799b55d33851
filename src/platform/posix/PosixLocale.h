#pragma once

#include "platform/ILocale.h"

namespace ventlock {

/// The language of the first of LC_ALL, LC_MESSAGES and LANG that is set and not empty: "de" gives "Deutsch",
/// "en", "C" and "POSIX" give "English", any other language its code in capitals ("fr_CH.UTF-8" gives "FR").
/// Only German's name begins with "DE"; another code with these letters stands in parentheses ("del" gives
/// "(DEL)").
class PosixLocale final : public ILocale {
 public:
    std::string LanguageName() override;
};

}  // namespace ventlock
