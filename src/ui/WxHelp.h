#pragma once

#include <wx/html/helpctrl.h>

#include <memory>

#include "ui/IHelp.h"

namespace ventlock {

/// Zipped HTML help books in the toolkit's help window. A book holds one folder a language, named by its code
/// in small letters, with the project file "ventlock.hhp".
class WxHelp final : public IHelp {
 public:
    bool Show(const std::string& file, int command) override;

 private:
    std::unique_ptr<wxHtmlHelpController> controller_;
};

}  // namespace ventlock
