#pragma once

#include <string>

namespace ventlock {

/// Help command: show the contents.
inline constexpr int kHelpContents = 3;

class IHelp {
 public:
    virtual ~IHelp() = default;

    /// Opens a help book in the current language. The window stays open beside the program's.
    /// @return False when the book is missing or cannot be read.
    virtual bool Show(const std::string& file, int command) = 0;
};

}  // namespace ventlock
