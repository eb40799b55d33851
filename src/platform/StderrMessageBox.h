#pragma once

#include "platform/IAppInfo.h"
#include "platform/IMessageBox.h"

namespace ventlock {

/// Messages of a program without a window: "title: text" and a line end on stderr, answered at once.
class StderrMessageBox final : public IMessageBox {
 public:
    /// `appInfo` gives the title where a message has none; it must outlive this object.
    explicit StderrMessageBox(IAppInfo& appInfo) : appInfo_(appInfo) {}

    void Show(const std::string& text, const std::string& title,
              const std::optional<MessageHelp>& help) override;

 private:
    IAppInfo& appInfo_;
};

}  // namespace ventlock
