// Start-up and end of the main window.

#include <array>
#include <iostream>

#include "core/OwnFiles.h"
#include "core/clsLog.h"
#include "core/clsSettings.h"
#include "core/modCommonTools.h"
#include "core/modLocalization.h"
#include "db/ConnectDatabase.h"
#include "db/ReferenceLists.h"
#include "db/SchemaVersion.h"
#include "db/clsConnection.h"
#include "entry/EntrySettings.h"
#include "platform/odbc/DriverAdvice.h"
#include "platform/odbc/DriverAnswers.h"
#include "ui/frmMain.h"
#include "ui/modMain.h"

namespace ventlock {
namespace {

constexpr std::string_view kRevisions = "000102030405060708090A0B0C0D0E0F1011121314";
constexpr std::size_t kRevisionDigits = 2;
constexpr int kFirstRevision = 1;  // positions chosen at first: "01"
constexpr int kHartRevision = 5;   // "05"

}  // namespace

void frmMain::Form_Load() {
    RunCommand([&] {
        StepLabel step;
        try {
            Load(step);
        } catch (...) {
            const RunTimeError error = CurrentError();
            if (oAppObjects_.Contains(kLogKey)) {
                ReportError(&oAppObjects_, "fMf_l", step, error);
            } else {  // nobody else can be told
                std::cerr << FormatErrorText("fMf_l", step.Text(), error.Description(),
                                             static_cast<std::int32_t>(error.Number()))
                          << '\n';
            }
        }
        FitContents();  // to the captions and lists, as far as they have come
    });
}

void frmMain::Load(StepLabel& step) {
    Host& host = services_.host;
    step = "01";
    auto log = std::make_shared<clsLog>(host.Files(), host.Clock(), services_.messages, host.EventLog(),
                                        host.AppInfo());
    log->Init(LogPath(host.Paths()), 2, "Ventlock");
    log->LogLevel = kLogToFile | kLogToScreen;
    oAppObjects_.Add(kLogKey, log);
    cmndlgDB_.HelpFile = host.Paths().Join(host.Paths().ProgramFolder(), "Ventlock.hlp");

    step = "02";
    auto settings =
        std::make_shared<clsSettings>(host.Registry(), services_.profiles, host.Paths(), host.Locale());
    settings->Init(oAppObjects_, 2);
    oAppObjects_.Add(kSettingsKey, settings);
    SettingsToEntry();

    step = "03";
    LoadDictionary();

    step = "04";
    oAppObjects_.Add(kConnectionKey, std::make_shared<clsConnection>(services_.createEngine));
    isConnected_ = ConnectDatabase();

    step = "05";
    if (!FillLists()) startUpFailed_ = gbTerminate = true;

    step = "06";
    LoadFormText(2);
    LoadFormText(3);
    LoadFormText();
    LoadMoreCaptions();
    ShowConnection();
}

void frmMain::LoadDictionary() {
    IPaths& paths = services_.host.Paths();
    const std::shared_ptr<IDictionary> dictionary = services_.createDictionary();
    if (!dictionary) throw RunTimeError(ErrorNumber::ObjectRequired);
    UseDictionary(dictionary);
    if (dictionary->Load({paths.Join(paths.ProgramFolder(), "QorStandard.dct"),
                          paths.Join(paths.ProgramFolder(), "Ventlock.dct")}))
        return;
    oAppObjects_.Get<clsLog>(kLogKey).Log("Unable to initialize dictionary.");
    Unload();  // the steps that follow run all the same
}

bool frmMain::ConnectDatabase() {
    if (ventlock::ConnectDatabase(oAppObjects_, services_.events, records_.Facade(), schemaVersion_))
        return true;
    // A driver manager's words for it, "architecture mismatch", tell few what to do.
    if (odbc::TellOtherWordSize(oAppObjects_.Get<clsConnection>(kConnectionKey).Diagnostics())) {
        oAppObjects_.Get<clsLog>(kLogKey).Log(odbc::WordSizeAdvice());
    }
    return false;
}

bool frmMain::FillLists() {
    const std::array revisions{controls_.cboDevRev.get(), controls_.cboDDRev.get(),
                               controls_.cboHARTRev.get()};
    std::vector<ListItem> items;
    for (std::size_t i = 0; i < kRevisions.size(); i += kRevisionDigits)
        items.push_back({std::string(kRevisions.substr(i, kRevisionDigits))});
    for (EditableList* list : revisions) list->Add(items);
    controls_.cboDevRev->Select(kFirstRevision);
    controls_.cboDDRev->Select(kFirstRevision);
    controls_.cboHARTRev->Select(kHartRevision);
    if (!isConnected_ || schemaVersion_ < kCurrentSchema) return true;
    return LoadReferenceLists(records_.TavDB(), *controls_.cboDeviceProtocol, *controls_.cboDeviceCategory,
                              *controls_.cboMinorCategory);
}

void frmMain::Form_Unload() {
    isUnloading_ = true;
    Guarded(&oAppObjects_, "fMf_u", [&](StepLabel&) {
        if (startUpFailed_) return;
        if (isEntryShown_) GatherEntry();
        if (isSettingsRead_) EntryToSettings(oAppObjects_, records_, place_);
    });
    gbTerminate = true;
}

void frmMain::OnClose(wxCloseEvent& event) {
    if (event.CanVeto() && (isBusy_ || isUnloading_)) {
        isClosePending_ = true;
        event.Veto();
        return;
    }
    Unload();
}

void frmMain::Unload() {
    if (isUnloading_) return;
    Form_Unload();
    if (log_) log_->Close(true);
    Hide();
}

void frmMain::mnuExit_Click() {
    Guarded(&oAppObjects_, "fMme", [&](StepLabel&) { Close(); });
}

}  // namespace ventlock
