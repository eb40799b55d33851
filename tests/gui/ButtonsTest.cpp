#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "gui/Commands.h"
#include "gui/GuiWorld.h"
#include "gui/Input.h"
#include "support/RowName.h"
#include "ui/modMain.h"

namespace ventlock::test {
namespace {

struct ButtonRow {
    const char* name;
    wxButton* MainControls::*button;
    wxMenuItem* MainMenu::*item;
};

class Button : public testing::TestWithParam<ButtonRow> {};

/// What a command does that all of them can be told apart by: messages, questions, files and rows.
std::vector<std::string> Traces(GuiWorld& world) {
    std::vector<std::string> traces = world.messages.Texts();
    for (const FileQuestion& question : world.fileDialog.questions) traces.push_back(question.title);
    traces.push_back(world.Database().Rows("SELECT COUNT(*) FROM DeviceRevisions"));
    traces.push_back(std::filesystem::exists(world.PyxPath() + ".bak") ? "Pyx.ini written" : "");
    traces.push_back(std::filesystem::exists(world.DDInstallPath()) ? "Ddinstal.ini written" : "");
    traces.push_back(gbTerminate ? "closed" : "");
    return traces;
}

TEST_P(Button, DoesWhatItsMenuItemDoes) {
    GuiWorld byButton;
    byButton.PutEntry();
    const std::vector<std::string> before = [&] {
        byButton.Start();
        return Traces(byButton);
    }();
    Press(*(byButton.Window().Controls().*GetParam().button));
    Pump();
    const std::vector<std::string> traces = Traces(byButton);
    EXPECT_NE(traces, before) << "the command left no trace";
    byButton.Forget();

    GuiWorld byItem;
    byItem.PutEntry();
    frmMain& window = byItem.Start();
    Choose(window, *(window.Menu().*GetParam().item));
    Pump();
    EXPECT_EQ(Traces(byItem), traces);
}

INSTANTIATE_TEST_SUITE_P(
    All, Button,
    testing::Values(
        ButtonRow{"WriteDB", &MainControls::cmdWriteDB, &MainMenu::mnuWriteDB},
        ButtonRow{"WriteINI", &MainControls::cmdWriteINI, &MainMenu::mnuWriteINI},
        ButtonRow{"WriteDDInstall", &MainControls::cmdWriteDDInstall, &MainMenu::mnuWriteDDInstall},
        ButtonRow{"SelectINI", &MainControls::cmdSelectINI, &MainMenu::mnuSelectINI},
        ButtonRow{"SelectDDInstall", &MainControls::cmdSelectDDInstall, &MainMenu::mnuSelectDDInstall},
        ButtonRow{"Close", &MainControls::cmdClose, &MainMenu::mnuExit}),
    RowName());

}  // namespace
}  // namespace ventlock::test
