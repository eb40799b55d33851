// The lists that drop down from fields that are typed into, and what is told below the two paths.

#include <algorithm>

#include "core/RecentPaths.h"
#include "core/clsLog.h"
#include "core/clsSettings.h"
#include "core/modCommonTools.h"
#include "core/modLocalization.h"
#include "platform/RelativeFiles.h"
#include "ui/AccessibleText.h"
#include "ui/WxText.h"
#include "ui/frmMain.h"

namespace ventlock {
namespace {

std::string HintOf(const DataSource& source) {
    const std::string scope = GetString(source.system ? "IDS_LST_SYSTEM" : "IDS_LST_USER");
    return source.driver.empty() ? scope : source.driver + ", " + scope;
}

/// The data sources that a name leads to: one of the user hides one of the machine.
std::vector<DropListContent::Item> DataSourceItems(const std::vector<DataSource>& sources) {
    std::vector<DropListContent::Item> items;
    for (const DataSource& source : sources) {
        const bool isHidden = std::any_of(items.begin(), items.end(), [&](const DropListContent::Item& item) {
            return item.text == source.name;
        });
        if (!isHidden) items.push_back({source.name, HintOf(source)});
    }
    return items;
}

/// The key of the text that tells of a state; nullptr for one that needs no words.
const char* KeyOf(TargetState state) {
    switch (state) {
        case TargetState::Writable:
            return nullptr;
        case TargetState::WillBeMade:
            return "IDS_FIL_NEW";
        case TargetState::ReadOnly:
            return "IDS_FIL_READONLY";
        case TargetState::FolderMissing:
            return "IDS_FIL_FOLDER_MISSING";
        case TargetState::FolderReadOnly:
            return "IDS_FIL_FOLDER_READONLY";
        case TargetState::Unusable:
            return "IDS_FIL_UNUSABLE";
    }
    return nullptr;
}

}  // namespace

void frmMain::DropDown(std::size_t box) {
    RunCommand([&] {
        if (box == kDataSourceBox) {
            DropDataSources();
        } else {
            DropRecentPaths(box);
        }
    });
}

// Without the driver manager's answer its list is empty: a name can be typed all the same.
void frmMain::DropDataSources() {
    Guarded(&oAppObjects_, "fMdds", [&](StepLabel& step) {
        DropListContent content{.items = {}, .whenEmpty = GetString("IDS_LST_NO_SOURCES"), .clear = {}};
        try {
            content.items = DataSourceItems(services_.listDataSources());
        } catch (const RunTimeError& error) {
            oAppObjects_.Get<clsLog>(kLogKey).Log(FormatErrorText("fMdds", step.Text(), error.Description(),
                                                                  static_cast<std::int32_t>(error.Number())),
                                                  {}, {}, kLogToFile);
        }
        step = "01";
        const DropListChoice choice = controls_.lstDataSources->Choose(content);
        if (choice.item) controls_.txtMain[kDataSourceBox]->SetText(content.items[*choice.item].text);
    });
}

void frmMain::DropRecentPaths(std::size_t box) {
    Guarded(&oAppObjects_, "fMdrp", [&](StepLabel& step) {
        const bool isINI = box == kIniPathBox;
        RecentPaths recent(oAppObjects_.Get<clsSettings>(kSettingsKey),
                           isINI ? kRecentINIPaths : kRecentDDInstallPaths,
                           services_.host.Paths().IgnoreCase());
        DropListContent content{.items = {},
                                .whenEmpty = GetString("IDS_LST_NO_PATHS"),
                                .clear = GetString("IDS_MNU_CLEAR_LIST")};
        for (std::string& path : recent.Paths()) content.items.push_back({std::move(path), ""});
        step = "01";
        DropList& list = isINI ? *controls_.lstRecentINI : *controls_.lstRecentDDInstall;
        const DropListChoice choice = list.Choose(content);
        if (choice.item) TakePath(box, content.items[*choice.item].text);
        if (choice.isToClear) recent.Clear();
    });
}

// The answer of the settings store decides nothing, as with all that the window keeps.
void frmMain::RememberPath(std::size_t box, const std::string& path) {
    Guarded(&oAppObjects_, "fMrp", [&](StepLabel&) {
        RecentPaths(oAppObjects_.Get<clsSettings>(kSettingsKey),
                    box == kIniPathBox ? kRecentINIPaths : kRecentDDInstallPaths,
                    services_.host.Paths().IgnoreCase())
            .Remember(path);
    });
}

void frmMain::LookAtTargetsSoon() {
    if (isUnloading_ || !isEntryShown_) return;
    ddInstallWatch_.LookSoon();
    iniWatch_.LookSoon();
}

TargetWatch::Look frmMain::LookAtTarget(std::size_t box) {
    return [path = controls_.txtMain[box]->Text(), folder = services_.host.Paths().ProgramFolder()] {
        const std::unique_ptr<Host> host = CreateHost("ventlock");
        RelativeFiles files(host->Files(), host->Paths(), folder);
        return StateOfTarget(files, path);
    };
}

void frmMain::ShowTargetState(std::size_t box, std::optional<TargetState> state) {
    const char* key = state && hasCaptions_ ? KeyOf(*state) : nullptr;
    const std::string text = key != nullptr ? GetString(key) : std::string();
    wxStaticText& label = box == kIniPathBox ? *controls_.lblINIState : *controls_.lblDDInstallState;
    if (FromWx(label.GetLabelText()) == text) return;
    wxTextCtrl& field = controls_.txtMain[box]->Box();
    label.SetLabelText(ToWx(text));
    label.SetToolTip(ToWx(text));
    SetAccessibleDescription(
        field, text.empty() ? FromWx(field.GetToolTipText()) : FromWx(field.GetToolTipText()) + ". " + text);
}

}  // namespace ventlock
