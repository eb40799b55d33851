#include "ui/WxClipboard.h"

#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/utils.h>

#include <memory>

#include "base/RunTimeError.h"
#include "ui/WxText.h"

namespace ventlock {
namespace {

constexpr int kTries = 5;
constexpr unsigned long kBetweenTriesMs = 20;

/// The clipboard while it is ours.
class OpenClipboard {
 public:
    OpenClipboard() {
        for (int i = 0; !wxTheClipboard->Open(); ++i) {
            if (i == kTries) throw RunTimeError(ErrorNumber::CannotOpenClipboard);
            wxMilliSleep(kBetweenTriesMs);  // its holder lets go soon, or not at all
        }
    }
    ~OpenClipboard() { wxTheClipboard->Close(); }
    OpenClipboard(const OpenClipboard&) = delete;
    OpenClipboard& operator=(const OpenClipboard&) = delete;
};

}  // namespace

void WxClipboard::SetText(const std::string& text) {
    const OpenClipboard open;
    wxTheClipboard->Clear();
    auto data = std::make_unique<wxTextDataObject>(ToWx(text));
    if (!wxTheClipboard->SetData(data.release())) throw RunTimeError(ErrorNumber::CannotOpenClipboard);
}

std::string WxClipboard::Text() {
    const OpenClipboard open;
    wxTextDataObject data;
    return wxTheClipboard->GetData(data) ? FromWx(data.GetText()) : std::string();
}

}  // namespace ventlock
