#pragma once

#include "ui/IClipboard.h"

namespace ventlock {

/// The desktop's clipboard, not the primary selection.
class WxClipboard final : public IClipboard {
 public:
    void SetText(const std::string& text) override;
    std::string Text() override;
};

}  // namespace ventlock
