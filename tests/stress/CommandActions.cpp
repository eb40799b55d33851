// Writing, changing the data source, the edit menu, files, help, and what happens while a command runs.

#include <array>
#include <functional>

#include "gui/Commands.h"
#include "gui/Input.h"
#include "stress/Actions.h"
#include "ui/WxText.h"

namespace ventlock::test {
namespace {

/// A write command's item and button.
struct WriteCommand {
    const char* name;
    wxMenuItem* item;
    wxButton* button;
};

WriteCommand DecideForWrite(User& user) {
    const MainMenu& menu = user.Window().Menu();
    const MainControls& c = user.Controls();
    const WriteCommand commands[] = {
        {"database", menu.mnuWriteDB, c.cmdWriteDB},
        {"ini", menu.mnuWriteINI, c.cmdWriteINI},
        {"ddinstall", menu.mnuWriteDDInstall, c.cmdWriteDDInstall},
    };
    const WriteCommand command = user.Decide().OneOf(commands);
    user.Note(command.name);
    return command;
}

/// Names a target of any kind in the field that a write command takes it from, most of the time.
void DecideForTarget(User& user) {
    if (user.Decide().OneIn(3)) return;
    const bool isIni = user.Decide().OneIn(2);
    const std::string path = user.World().Target(user.Decide(), isIni ? "Pyx.ini" : "Ddinstal.ini");
    user.Note("to " + path.substr(path.rfind('/', path.rfind('/') - 1) + 1));
    user.Fill(isIni ? kIniPathBox : kDDInstallPathBox, path);
}

void Run(User& user, const WriteCommand& command) {
    user.World().showsBoxes = user.Decide().OneIn(3);
    if (user.Decide().OneIn(2)) {
        user.PressButton(*command.button);
    } else {
        user.ChooseItem('F', *command.item);
    }
    user.World().showsBoxes = false;
}

void Write(User& user) {
    if (user.Decide().OneIn(2)) {
        user.Note("a full entry");
        user.FillEntry();
    }
    DecideForTarget(user);
    Run(user, DecideForWrite(user));
}

void NameDataSource(User& user) {
    const std::string name = user.World().DataSource(user.Decide());
    user.Note('"' + name + '"');
    user.Fill(kDataSourceBox, name);
}

void Switch(User& user) {
    NameDataSource(user);
    user.World().showsBoxes = user.Decide().OneIn(4);
    wxTextCtrl& box = user.Controls().txtMain[kDataSourceBox]->Box();
    if (user.Decide().OneIn(8)) {
        user.Note("by Enter");
        if (user.TakeKeyboard(box)) user.Press([] { PressKey(WXK_RETURN); });
    } else {
        user.PressButton(*user.Controls().cmdSwitchDSN);
    }
    user.World().showsBoxes = false;
    user.World().ExpectConnection();
}

/// Does something in the course of a command: in its `turn`-th yield, or when it shows a message.
void Meanwhile(User& user, const std::function<void()>& act) {
    GuiWorld& machine = user.World().Machine();
    int left = user.Decide().Below(30);
    bool isDone = false;
    const auto turn = [&] {
        if (isDone || !user.Window().IsBusy() || left-- > 0) return;
        isDone = true;
        act();
    };
    const std::function<void()> shown = machine.messages.whileShown;
    machine.whileYielding = turn;
    machine.messages.whileShown = [&] {
        left = 0;
        turn();
        shown();
    };
    if (user.Decide().OneIn(2)) {
        NameDataSource(user);
        Press(*user.Controls().cmdSwitchDSN);
    } else {
        Press(*DecideForWrite(user).button);
    }
    machine.whileYielding = nullptr;
    machine.messages.whileShown = shown;
    user.Note(isDone ? "(met)" : "(missed)");
}

void EditWhileBusy(User& user) {
    wxTextCtrl& box = user.Box().Box();
    const std::string text = user.Text();
    Meanwhile(user, [&] { box.SetValue(ToWx(text)); });
}

void CommandsWhileBusy(User& user) {
    Meanwhile(user, [&] {
        const MainMenu& menu = user.Window().Menu();
        for (const wxMenuItem* item :
             {menu.mnuWriteDB, menu.mnuWriteINI, menu.mnuWriteDDInstall, menu.mnuClear, menu.mnuSelectINI,
              menu.mnuSelectDDInstall, menu.mnuCut, menu.mnuPaste, menu.mnuHelpContents, menu.mnuHelpAbout})
            Choose(user.Window(), *item);
        Press(*user.Controls().cmdSwitchDSN);
    });
}

void CloseWhileBusy(User& user) {
    user.NameGoodFiles();
    Meanwhile(user, [&] { user.Window().Close(); });
}

void Clear(User& user) {
    user.ChooseItem('E', *user.Window().Menu().mnuClear);
}

void UseClipboard(User& user) {
    const MainMenu& menu = user.Window().Menu();
    struct Command {
        const char* name;
        wxMenuItem* item;
        int key;
    };
    const Command commands[] = {
        {"cut", menu.mnuCut, 'X'}, {"copy", menu.mnuCopy, 'C'}, {"paste", menu.mnuPaste, 'V'}};
    const Command command = user.Decide().OneOf(commands);
    user.Note(command.name);
    GuiWorld& machine = user.World().Machine();
    if (user.Decide().OneIn(2)) machine.clipboard.text = user.Text();
    machine.clipboard.isHeldByAnother = user.Decide().OneIn(20);
    wxTextEntry* entry = nullptr;
    wxWindow* control = nullptr;
    if (user.Decide().OneIn(4)) {
        EditableList* const list = user.List();
        if (list == nullptr) return;
        control = &list->Combo();
        entry = &list->Combo();
    } else {
        wxTextCtrl& box = user.Box().Box();
        control = &box;
        entry = &box;
    }
    if (!user.TakeKeyboard(*control)) return;
    const long last = entry->GetLastPosition();
    const long begin = user.Decide().Below(static_cast<int>(last) + 1);
    const long end = begin + user.Decide().Below(static_cast<int>(last - begin) + 1);
    entry->SetSelection(begin, end);
    if (user.Decide().OneIn(2)) {
        user.Press([&] { PressKey(command.key, wxMOD_CONTROL); });
    } else {
        Choose(user.Window(), *command.item);
    }
    machine.clipboard.isHeldByAnother = false;
}

void SelectFile(User& user) {
    const bool isIni = user.Decide().OneIn(2);
    GuiWorld& machine = user.World().Machine();
    machine.fileDialog.answer =
        user.Decide().OneIn(3) ? "" : user.World().Target(user.Decide(), isIni ? "Pyx.ini" : "Ddinstal.ini");
    user.Note(isIni ? "ini" : "ddinstall");
    user.Note(machine.fileDialog.answer.empty() ? "cancelled" : "chosen");
    const MainMenu& menu = user.Window().Menu();
    if (user.Decide().OneIn(2)) {
        user.PressButton(isIni ? *user.Controls().cmdSelectINI : *user.Controls().cmdSelectDDInstall);
    } else {
        user.ChooseItem('F', isIni ? *menu.mnuSelectINI : *menu.mnuSelectDDInstall);
    }
}

void ShowAbout(User& user) {
    user.ChooseItem('H', *user.Window().Menu().mnuHelpAbout);
}

void ShowHelp(User& user) {
    user.ChooseItem('H', *user.Window().Menu().mnuHelpContents);
}

void CloseHelp(User& user) {
    user.World().CloseHelp();
}

}  // namespace

std::span<const Action> CommandActions() {
    static const std::array actions{
        Action{"write", 30, Write},
        Action{"switch", 12, Switch},
        Action{"edit while busy", 5, EditWhileBusy},
        Action{"commands while busy", 4, CommandsWhileBusy},
        Action{"close while busy", 3, CloseWhileBusy},
        Action{"clear", 8, Clear},
        Action{"use the clipboard", 8, UseClipboard},
        Action{"select a file", 6, SelectFile},
        Action{"show the About box", 2, ShowAbout},
        Action{"show the help", 1, ShowHelp},
        Action{"close the help", 2, CloseHelp},
    };
    return actions;
}

}  // namespace ventlock::test
