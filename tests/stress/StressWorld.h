#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "gui/GuiWorld.h"
#include "stress/BoxAnswers.h"
#include "stress/Dice.h"
#include "stress/StateModel.h"
#include "ui/WindowMessages.h"
#include "ui/WxHelp.h"

namespace ventlock::test {

/// How long another program keeps a file locked that the window writes to.
inline constexpr std::chrono::milliseconds kLockedFor{300};

/// A machine with the window on it, data sources of every kind, target files of every kind, and real message
/// boxes and help windows, which are answered and closed by themselves.
class StressWorld {
 public:
    /// Begins with a data source, and an entry in the settings, as the dice fall.
    explicit StressWorld(Dice& dice);
    ~StressWorld();
    StressWorld(const StressWorld&) = delete;
    StressWorld& operator=(const StressWorld&) = delete;

    frmMain& Window() { return world_.Window(); }
    MainControls& Controls() { return Window().Controls(); }
    GuiWorld& Machine() { return world_; }
    StateModel& Model() { return *model_; }

    /// A data source by name: current or old schema, without any table, unknown, or blank.
    std::string DataSource(Dice& dice);

    /// A path of a target file: one that can be written, is read-only, lies in a missing folder, is a folder,
    /// or is locked by another holder for a short time from now on.
    std::string Target(Dice& dice, const std::string& name);

    /// Another program locks the file from now on, and lets go soon.
    void LockForAWhile(const std::string& path);

    /// The connection is the one that the settings' data source leads to.
    void ExpectConnection();

    /// The window has ended: the entry must be stored as its fields still hold it. Then the program is
    /// started again with what is stored.
    void ExpectSavedAndStartAgain();

    /// Whether the next message box comes to the screen; otherwise it is answered unseen.
    bool showsBoxes = false;

    /// Closes the help window if there is one.
    void CloseHelp();

 private:
    void Start();
    void Leave();
    void ShowMessage();
    void ExpectStored();

    SqliteDatabase old_{DeviceSchema::Old};
    SqliteDatabase other_;
    SqliteDatabase empty_{DeviceSchema::None};
    GuiWorld world_;
    BoxAnswers answers_;
    std::unique_ptr<WxHelp> book_;
    WindowMessages boxes_{world_.host.appInfo, world_.help};
    std::unique_ptr<StateModel> model_;
    std::vector<std::jthread> holders_;
};

}  // namespace ventlock::test
