#pragma once

#include "ui/IFileDialog.h"

namespace ventlock {

/// The desktop's own dialog, in front of the program's top window.
class WxFileDialog final : public IFileDialog {
 public:
    std::string Open(const FileQuestion& question) override;
};

}  // namespace ventlock
