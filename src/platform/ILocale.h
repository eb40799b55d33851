#pragma once

#include <string>

namespace ventlock {

class ILocale {
 public:
    virtual ~ILocale() = default;

    /// The system language's own name, such as "Deutsch" or "English"; "English" when the system names none.
    virtual std::string LanguageName() = 0;
};

}  // namespace ventlock
