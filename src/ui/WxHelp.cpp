#include "ui/WxHelp.h"

#include <wx/filename.h>
#include <wx/filesys.h>

#include "core/modLocalization.h"
#include "ui/WxText.h"

namespace ventlock {

bool WxHelp::Show(const std::string& file, int command) {
    if (command != kHelpContents) return false;
    if (!controller_) {
        const wxString language = gsLanguage == "DE" ? "de" : "en";
        const wxString book =
            wxFileSystem::FileNameToURL(wxFileName(ToWx(file))) + "#zip:" + language + "/ventlock.hhp";
        auto controller = std::make_unique<wxHtmlHelpController>(wxHF_DEFAULT_STYLE);
        if (!controller->AddBook(book)) return false;
        controller_ = std::move(controller);
    }
    return controller_->DisplayContents();
}

}  // namespace ventlock
