#pragma once

#include "platform/IAppInfo.h"
#include "platform/IMessageBox.h"
#include "ui/IHelp.h"

namespace ventlock {

/// Messages in a box of the toolkit, one at a time, in front of the program's top window.
class WindowMessages final : public IMessageBox {
 public:
    /// `appInfo` gives the title where a message has none, `help` opens what a Help button stands for; both
    /// must outlive this object.
    WindowMessages(IAppInfo& appInfo, IHelp& help) : appInfo_(appInfo), help_(help) {}

    void Show(const std::string& text, const std::string& title,
              const std::optional<MessageHelp>& help) override;

 private:
    IAppInfo& appInfo_;
    IHelp& help_;
};

}  // namespace ventlock
