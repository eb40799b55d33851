#pragma once

#include <wx/frame.h>
#include <wx/scrolwin.h>
#include <wx/weakref.h>

#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/AppObjects.h"
#include "core/Guarded.h"
#include "core/TavDictionary.h"
#include "db/clsConnection.h"
#include "entry/DropPlan.h"
#include "entry/EntryFile.h"
#include "entry/EntryRecords.h"
#include "entry/EntryToForm.h"
#include "platform/Host.h"
#include "platform/IEvents.h"
#include "platform/ProfileEdit.h"
#include "platform/odbc/DataSources.h"
#include "ui/Captions.h"
#include "ui/FramePlace.h"
#include "ui/IClipboard.h"
#include "ui/IFileDialog.h"
#include "ui/IHelp.h"
#include "ui/MainControls.h"
#include "ui/MainMenu.h"
#include "ui/TargetWatch.h"
#include "ui/frmLog.h"
#include "ui/frmPreview.h"

namespace ventlock {

/// What the main window works with; all of it must outlive the window.
struct WindowServices {
    Host& host;
    const ProfileStore& profiles;  ///< with relative paths counted from the program's folder
    IEvents& events;
    IMessageBox& messages;
    IClipboard& clipboard;
    IFileDialog& fileDialog;
    IHelp& help;
    EngineFactory createEngine;
    std::function<std::shared_ptr<IDictionary>()> createDictionary;
    std::function<std::vector<DataSource>()> listDataSources;  ///< as the driver manager knows them
};

/// What the file dialog and the help are told once.
struct CommonDialog {
    std::string HelpFile;  ///< path of the help book
};

/// The program's working window: one device entry on four tabs and the commands that write it. It builds its
/// controls, hands events to the rules below and applies their answers.
///
/// While a command runs, pending events are dispatched: other commands then do nothing, and closing the
/// window waits for the command's end.
class frmMain final : public wxFrame {
 public:
    /// Modes of LoadFormText.
    static constexpr int kContents = 0;
    static constexpr int kCaptions = 2;

    explicit frmMain(const WindowServices& services);
    ~frmMain() override;
    frmMain(const frmMain&) = delete;
    frmMain& operator=(const frmMain&) = delete;

    /// Start-up in its numbered steps: log, settings, dictionary, connection, lists, texts. Call it once,
    /// before the window is shown. An error ends it at its step and leaves the window as far as it is.
    void Form_Load();

    /// Gathers, stores and saves the entry, unless it was never read or never shown, and ends the program.
    void Form_Unload();

    /// True once Form_Unload has begun.
    [[nodiscard]] bool IsUnloading() const noexcept { return isUnloading_; }

    /// Connects to the settings' data source and checks its schema.
    /// @throws RunTimeError what a missing shared object raises.
    bool ConnectDatabase();

    /// Fills the revision lists and, when connected to a current schema, the lists of the database. False
    /// when one of these cannot be loaded.
    bool FillLists();

    /// Mode 2: all captions from the dictionary. Mode 0: the offered versions and the entry into the fields;
    /// only once, it adds to the list. Any other mode does nothing.
    void LoadFormText(int mode = kContents);

    /// Selects the versions of a list such as "5.0, 6.0" among those offered. Always True.
    bool SelectVersions(const std::string& versions);

    /// Fields into records and writers. The result decides nothing.
    bool GatherEntry();

    /// Makes fields and write commands as the rules ask for what the fields hold now.
    void SetControlStates();

    void mnuSelectDDInstall_Click();
    void mnuSelectINI_Click();
    void mnuWriteDB_Click();
    void mnuWriteINI_Click();
    void mnuWriteDDInstall_Click();
    void mnuExit_Click();
    void mnuCut_Click();
    void mnuCopy_Click();
    void mnuPaste_Click();
    void mnuClear_Click();
    void mnuHelpContents_Click();
    void mnuHelpSearch_Click();
    void mnuHelpAbout_Click();

    /// Shows an entry of a file in the fields, in place of the one that is there. What the file lacks is
    /// shown as by default; a file with errors changes nothing.
    void mnuOpenEntry_Click();

    /// Writes what the fields hold into an entry file.
    void mnuSaveEntry_Click();

    /// Shows what each of the three write commands would write now. Writes nothing.
    void mnuPreview_Click();

    /// Shows dropped files where they belong: the targets' paths in their fields, an entry file as by
    /// mnuOpenEntry_Click. What belongs nowhere is named in one message.
    void DropFiles(const std::vector<std::string>& paths);

    /// Opens the window with the log entries, or brings it to the front.
    void mnuLog_Click();

    /// Connects to the data source named in the first field, which "Pyx.ini" then names too. What the fields
    /// show stays; the objects behind them are fresh.
    void cmdSwitchDSN_Click();

    /// Ask for a file, starting from the present path; "" when none was chosen. No command asks for a
    /// database file today.
    std::string SelectDBFile();
    std::string SelectINIFile();
    std::string SelectDDInstallFile();

    /// The last resort for an error that reaches the toolkit's loop: it goes to the log file alone.
    void ReportUnhandled(const std::exception_ptr& error) noexcept;

    [[nodiscard]] MainControls& Controls() noexcept { return controls_; }
    [[nodiscard]] MainMenu& Menu() noexcept { return menu_; }
    [[nodiscard]] frmLog* LogWindow() const noexcept { return log_.get(); }  ///< nullptr while it is closed
    [[nodiscard]] EntryRecords& Records() noexcept { return records_; }
    [[nodiscard]] const AppObjects& Objects() const noexcept { return oAppObjects_; }
    [[nodiscard]] const CommonDialog& cmndlgDB() const noexcept { return cmndlgDB_; }
    [[nodiscard]] bool IsConnected() const noexcept { return isConnected_; }
    [[nodiscard]] std::int16_t SchemaVersion() const noexcept { return schemaVersion_; }
    [[nodiscard]] bool CaptionsLoading() const noexcept { return captionsLoading_; }
    [[nodiscard]] bool EntriesChanged() const noexcept { return entriesChanged_; }
    [[nodiscard]] bool IsBusy() const noexcept { return isBusy_; }

 private:
    [[nodiscard]] FieldHandlers Handlers();
    void BindEvents();
    void BindKeys();
    void TakeClipboardKey(wxKeyEvent& event);
    void txtMain_Change(std::size_t box);
    void OnClose(wxCloseEvent& event);
    void Unload();

    void Load(StepLabel& step);
    void LoadDictionary();
    void SettingsToEntry();
    void LoadCaptions();
    static void SetCaptions(const std::vector<Caption>& captions);

    /// Those of the menu "Tools" and of the lists, and the names of controls, which are made of captions.
    void LoadMoreCaptions();
    void LoadEntry(StepLabel& step);
    void ShowCurrentSchemaFields(StepLabel& step);
    void FitContents();

    void SwitchDataSource(StepLabel& step);
    void StoreDataSource(StepLabel& step);
    void ReloadReferenceLists();

    /// Show in the status text what the window is connected to, or that it is at work.
    void ShowConnection();
    void ShowBusy();

    /// Shows there which entry of which file was opened, until the connection changes.
    void ShowOpenedFile(const std::string& path, const FileEntry& entry);

    /// Runs a command unless another one is running; an error is logged under the tag.
    void RunCommand(std::string_view tag, const std::function<void(StepLabel&)>& body);
    void RunCommand(const std::function<void()>& body);

    /// Drops the list of a text box down and takes over what is chosen from it.
    void DropDown(std::size_t box);
    void DropDataSources();
    void DropRecentPaths(std::size_t box);

    /// Puts a path that was written before the others of its list.
    void RememberPath(std::size_t box, const std::string& path);
    void TakePath(std::size_t box, const std::string& path);

    /// What is to look at a target file, and what was found out of it into the text below its field.
    [[nodiscard]] TargetWatch::Look LookAtTarget(std::size_t box);
    void ShowTargetState(std::size_t box, std::optional<TargetState> state);
    void LookAtTargetsSoon();

    void ReportWritten(bool isWritten, const char* goodKey, const char* badKey, wxMenuItem& item,
                       wxButton& button);
    bool ChooseDDInstallFile();
    std::string AskForFile(std::string_view tag, int flags, const char* filterKey, int preselected,
                           std::size_t box, const std::string& title);
    void ShowHelp();

    std::string AskForEntryFile(int flags, const wxMenuItem& item);
    void OpenEntryFile(const std::string& path, StepLabel& step);
    const FileEntry* ChooseEntry(const EntryFile& file);
    void ShowOpened(const FileEntry& entry, const EntryForm& form);
    void ShowCurrentSchemaPart(const EntryForm& form);
    void ShowRestOfOpened();
    [[nodiscard]] ReferenceLists ShownLists() const;
    void TellFindings(const char* key, const std::string& path, const std::vector<Finding>& findings);
    [[nodiscard]] DroppedFile LookAt(const std::string& path);
    void TellRefused(const DropPlan& plan);
    void SaveEntryFile(const std::string& path, StepLabel& step);
    frmPreview::Texts PreviewTexts(const frmPreview& box);

    WindowServices services_;
    MainMenu menu_;
    wxScrolledWindow* contents_;
    MainControls controls_;
    FramePlace place_;
    wxWindowIDRef nextPageId_ =
        NewControlId();  ///< of keys; nobody else is given them as long as they are held
    wxWindowIDRef previousPageId_ = NewControlId();

    AppObjects oAppObjects_;
    EntryRecords records_;
    TargetWatch ddInstallWatch_;
    TargetWatch iniWatch_;
    wxWeakRef<frmLog> log_;
    std::string offeredVersions_;
    std::string entryPath_;            ///< of the entry file opened or saved last
    std::optional<FileEntry> opened_;  ///< with what the fields of an old schema do not show
    CommonDialog cmndlgDB_;
    std::int16_t schemaVersion_ = 0;
    bool isConnected_ = false;
    bool startUpFailed_ = false;   ///< nothing is saved then
    bool isSettingsRead_ = false;  ///< the whole entry came from the settings
    bool isEntryShown_ = false;    ///< the fields hold the entry
    bool captionsLoading_ = false;
    bool hasCaptions_ = false;  ///< the dictionary's texts are there
    bool entriesChanged_ = false;
    bool isBusy_ = false;
    const wxWindow* focusedBefore_ = nullptr;  ///< who had the keyboard when the command began
    bool isClosePending_ = false;
    bool isUnloading_ = false;
};

}  // namespace ventlock
