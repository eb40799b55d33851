#include "platform/StderrMessageBox.h"

#include <iostream>

namespace ventlock {

void StderrMessageBox::Show(const std::string& text, const std::string& title,
                            const std::optional<MessageHelp>& /*help*/) {
    std::cerr << (title.empty() ? appInfo_.Title() : title) + ": " + text + "\n" << std::flush;
}

}  // namespace ventlock
