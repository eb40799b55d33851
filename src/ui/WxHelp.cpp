#include "ui/WxHelp.h"

#include <wx/filename.h>
#include <wx/filesys.h>
#include <wx/log.h>
#include <wx/translation.h>

#include "core/modLocalization.h"
#include "platform/Casing.h"
#include "ui/HelpKeys.h"
#include "ui/ToolkitTexts.h"
#include "ui/WxText.h"

namespace ventlock {
namespace {

/// The folder of the book and the toolkit's own words go by small letters.
std::string BookLanguage() {
    return EqualIgnoringCase(gsLanguage, "DE") ? "de" : "en";
}

/// The help window's own words; they stay English where the host has no translations of the toolkit's.
void TranslateToolkit(const std::string& language) {
    auto translations = std::make_unique<wxTranslations>();
    translations->SetLoader(ToolkitTexts().release());
    translations->SetLanguage(ToWx(language));
    translations->AddStdCatalog();
    wxTranslations::Set(translations.release());
}

class HelpController final : public wxHtmlHelpController {
 protected:
    wxHtmlHelpFrame* CreateHelpFrame(wxHtmlHelpData* data) override {
        wxHtmlHelpFrame* const frame = wxHtmlHelpController::CreateHelpFrame(data);
        AddHelpKeys(*frame);
        return frame;
    }
};

}  // namespace

bool WxHelp::Show(const std::string& file, int command) {
    if (command != kHelpContents) return false;
    if (!controller_) {
        const wxLogNull silent;  // the caller logs
        TranslateToolkit(BookLanguage());
        auto controller = std::make_unique<HelpController>();
        const wxString book = wxFileSystem::FileNameToURL(wxFileName(ToWx(file)));
        if (!controller->AddBook(book + "#zip:" + ToWx(BookLanguage()) + "/ventlock.hhp")) return false;
        controller_ = std::move(controller);
    }
    if (!controller_->DisplayContents()) return false;
    wxHtmlHelpFrame& frame = *controller_->GetFrame();
    if (frame.IsIconized()) frame.Iconize(false);
    FocusHelpPage(frame);
    return true;
}

}  // namespace ventlock
