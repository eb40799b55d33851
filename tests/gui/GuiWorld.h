#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "db/StatementJournal.h"
#include "gui/GuiFakes.h"
#include "platform/RelativeFiles.h"
#include "support/FailingEngine.h"
#include "support/SqliteDatabase.h"
#include "support/TempFolder.h"
#include "ui/WindowEvents.h"
#include "ui/frmMain.h"

namespace ventlock::test {

/// A machine with the program on it: a program folder with the dictionaries, a registry, "Pyx.ini" and
/// "Ddinstal.ini" paths in a folder of its own, and, unless a test wants none, a device database that the
/// settings' data source leads to. The window is the real one; what stands outside of it on the screen is
/// fake.
class GuiWorld {
 public:
    /// With a database of this schema.
    explicit GuiWorld(DeviceSchema schema = DeviceSchema::Current);

    /// Without a database: the settings name a data source that nobody knows.
    struct NoDatabase {};
    explicit GuiWorld(NoDatabase);

    ~GuiWorld();
    GuiWorld(const GuiWorld&) = delete;
    GuiWorld& operator=(const GuiWorld&) = delete;

    /// Stores a setting by its written name, as the registry holds it.
    void Put(const std::string& name, const std::string& text);

    /// What the registry holds for a setting, "(none)" when nothing; a number in decimal.
    std::string Stored(const std::string& name);

    /// All settings that the registry holds, "name=value" each, in a fixed order.
    std::vector<std::string> AllStored();

    /// Everything that AllStored() gave before is stored as it was; what was not, may be.
    void ExpectKept(const std::vector<std::string>& before);

    /// A fully filled entry in the registry, which the window shows when it starts: manufacturer 26 "Acme",
    /// type 0A "Flow", revision 01, protocol and categories by id, versions 5.0 and 6.0 of 5.0, 6.0 and 7.0.
    void PutEntry();

    /// Makes the window without loading it.
    frmMain& Make();

    /// Makes the window, loads it and shows it, as the program does.
    frmMain& Start();

    /// The window of the last Make or Start.
    frmMain& Window() { return *window_; }

    /// Closes the window as its user would and waits until it is unloaded, then takes it away. `gbTerminate`
    /// stays as it is then.
    void CloseAndForget();

    /// Takes the window away without closing it, as a process that is killed.
    void Forget();

    /// The log file's entries in order, without their frame; none when there is no file.
    std::vector<std::string> LogEntries();

    /// The statements sent since the last call.
    std::vector<std::string> Statements();

    [[nodiscard]] std::string PyxPath() const { return folder_ / "Pyx.ini"; }
    [[nodiscard]] std::string DDInstallPath() const { return folder_ / "Ddinstal.ini"; }
    [[nodiscard]] std::string ProgramFile(const std::string& name) const {
        return host.paths.programFolder + "/" + name;
    }
    [[nodiscard]] std::string Folder() const { return folder_ / ""; }
    [[nodiscard]] SqliteDatabase& Database() { return *database_; }

    FakeHost host;
    ScriptedMessageBox messages;
    FakeClipboard clipboard;
    FakeFileDialog fileDialog;
    FakeHelp help;
    StatementFailure failure;  ///< makes a statement fail
    std::function<std::shared_ptr<IDictionary>()> createDictionary;
    std::function<std::vector<DataSource>()> listDataSources = ListDataSources;
    EngineFactory createEngine;  ///< the real one unless a test wants another
    DatabaseTimeLimits timeLimits;
    std::function<void()> whileYielding;  ///< once it is set, every yield dispatches and runs it first

 private:
    WindowEvents MakeEvents();
    void Furnish(const std::string& dataSource);

    TempFolder folder_;
    std::unique_ptr<SqliteDatabase> database_;
    std::chrono::milliseconds ahead_{0};  ///< of the yields' clock
    WindowEvents events_;
    StatementJournal journal_;
    std::size_t told_ = 0;
    std::unique_ptr<RelativeFiles> files_;
    std::unique_ptr<ProfileStore> profiles_;
    frmMain* window_ = nullptr;
};

}  // namespace ventlock::test
