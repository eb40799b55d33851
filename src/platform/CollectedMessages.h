#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/IMessageBox.h"

namespace ventlock {

/// Keeps what would have been shown in message boxes, for an answer that holds all of it.
class CollectedMessages final : public IMessageBox {
 public:
    void Show(const std::string& text, const std::string& /*title*/,
              const std::optional<MessageHelp>& /*help*/) override {
        texts_.push_back(text);
    }

    /// All texts since the last call.
    std::vector<std::string> Take() { return std::exchange(texts_, {}); }

    [[nodiscard]] bool IsEmpty() const noexcept { return texts_.empty(); }

 private:
    std::vector<std::string> texts_;
};

}  // namespace ventlock
