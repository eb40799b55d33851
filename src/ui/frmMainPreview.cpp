// The preview of the write commands.

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "core/modLocalization.h"
#include "db/clsConnection.h"
#include "entry/EntryPreview.h"
#include "entry/WriteObstacles.h"
#include "ui/PreviewText.h"
#include "ui/frmMain.h"
#include "ui/frmPreview.h"

namespace ventlock {

void frmMain::mnuPreview_Click() {
    RunCommand("fMpv", [&](StepLabel&) {
        const auto copy = [&](const std::string& text) {
            Guarded(&oAppObjects_, "fMcp", [&](StepLabel&) { services_.clipboard.SetText(text); });
        };
        frmPreview box(
            this, MainMenu::TitleOf(*menu_.mnuPreview),
            {GetString("IDS_CMD_WRITE_DB"), GetString("IDS_CMD_WRITE_INI"), GetString("IDS_CMD_WRITE_DD")},
            copy);
        box.Run([&] { return PreviewTexts(box); });
    });
}

frmPreview::Texts frmMain::PreviewTexts(const frmPreview& box) {
    const EntryForm form = controls_.Read();
    const PreviewSource source{.host = services_.host,
                               .profiles = services_.profiles,
                               .records = records_,
                               .connection = oAppObjects_.Get<clsConnection>(kConnectionKey).DB(),
                               .schemaVersion = schemaVersion_,
                               .beforeCall = [&box] {
                                   if (box.IsGivenUp()) throw RunTimeError(ErrorNumber::InvalidProcedureCall);
                               }};
    const auto text = [&](const wxMenuItem& command, const Targets& target, auto&& preview) {
        if (!command.IsEnabled()) return DisabledText(ObstaclesOf(target, form, isConnected_));
        const bool isAsked = target.ddInstall && Trim(form.txtMain[kDDInstallPathBox]).empty();
        if (isAsked) return GetString("IDS_PRV_NO_PATH");
        return box.IsGivenUp() ? std::string() : PreviewText(preview(source, form));
    };
    return {text(*menu_.mnuWriteDB, {.database = true}, PreviewDatabase),
            text(*menu_.mnuWriteINI, {.ini = true}, PreviewIni),
            text(*menu_.mnuWriteDDInstall, {.ddInstall = true}, PreviewDDInstall)};
}

}  // namespace ventlock
