#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace ventlock {

/// What a Help button of a message box opens.
struct MessageHelp {
    std::string file;
    std::int32_t context = 0;
};

class IMessageBox {
 public:
    virtual ~IMessageBox() = default;

    /// Shows the text with an OK button, and a Help button when `help` is given, and returns when it was
    /// answered. An empty title means the application's. Without a window the text goes to stderr and nothing
    /// is waited for.
    virtual void Show(const std::string& text, const std::string& title,
                      const std::optional<MessageHelp>& help) = 0;
};

}  // namespace ventlock
