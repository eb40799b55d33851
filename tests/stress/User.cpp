#include "stress/User.h"

#include <gtest/gtest.h>

#include <functional>

#include "gui/Commands.h"
#include "gui/Input.h"
#include "stress/Desktop.h"
#include "ui/WxText.h"

namespace ventlock::test {
namespace {

constexpr std::size_t kLongText = 5000;
constexpr int kMarkKey = WXK_F12;  // means nothing to the window
constexpr int kAWhileMs = 1000;
constexpr int kMarks = 20;
constexpr int kRaises = 20;

/// A usable entry, by the text boxes it goes to.
constexpr std::pair<std::size_t, const char*> kEntry[] = {
    {kManufacturerIdBox, "26"}, {kManufacturerNameBox, "Acme"}, {kDeviceIdBox, "0A"},
    {kDeviceNameBox, "Flow"},   {kDllBox, "Dev.dll"},           {kTemplateBox, "Dev.mrg"}};

/// Dispatches events until `done`; False when that takes longer than a while.
bool WaitAWhile(const std::function<bool()>& done) {
    for (const wxStopWatch watch; watch.Time() < kAWhileMs; wxMilliSleep(1)) {
        wxTheApp->Yield(true);
        if (done()) return true;
    }
    return false;
}

/// The letter that a menu shows as a key for an item.
char LetterOf(const wxMenuItem& item) {
    const wxString behind = item.GetItemLabel().AfterFirst('&');
    return static_cast<char>(wxToupper(behind[0]));
}

void ShowTabOf(frmMain& window, const wxWindow& control) {
    wxNotebook& tabs = *window.Controls().sstVentlock;
    const int page = tabs.FindPage(control.GetParent());
    if (page != wxNOT_FOUND) tabs.SetSelection(static_cast<std::size_t>(page));
}

/// Sees the mark key arrive in the window.
class Mark {
 public:
    explicit Mark(frmMain& window) : window_(window) { window_.Bind(wxEVT_CHAR_HOOK, &Mark::Take, this); }
    ~Mark() { window_.Unbind(wxEVT_CHAR_HOOK, &Mark::Take, this); }
    Mark(const Mark&) = delete;
    Mark& operator=(const Mark&) = delete;

    [[nodiscard]] bool IsSeen() const noexcept { return isSeen_; }

 private:
    void Take(wxKeyEvent& event) {
        if (event.GetKeyCode() == kMarkKey) {
            isSeen_ = true;
        } else {
            event.Skip();
        }
    }

    frmMain& window_;
    bool isSeen_ = false;
};

}  // namespace

std::string User::Text() {
    static const std::string texts[] = {"Acme",
                                        "flow meter",
                                        "1F",
                                        "0A",
                                        "26",
                                        "4711",
                                        "",
                                        "",
                                        " ",
                                        "   x  ",
                                        "O'Neil ? \"",
                                        "a=b;c",
                                        "[section]",
                                        "a\tb",
                                        "line\nline",
                                        "Füllstand",
                                        "Ω漢字\U0001F600",
                                        "gG-x ä",
                                        "\\",
                                        "x.dll",
                                        "%1 & %2"};
    if (dice_.OneIn(25)) return std::string(kLongText, 'w');
    return dice_.OneOf(texts);
}

std::string User::Keys() {
    static const std::string texts[] = {"a", "1aF g-x", "Acme", "05", "zz", " ", "7", "fe"};
    return dice_.OneOf(texts);
}

TextField& User::Box() {
    for (;;) {
        TextField& field = *dice_.OneOf(Controls().txtMain);
        if (!field.Box().IsEnabled()) continue;
        ShowTabOf(Window(), field.Box());
        Note(FromWx(field.Box().GetName()));
        return field;
    }
}

EditableList* User::List() {
    MainControls& c = Controls();
    EditableList* const lists[] = {c.cboDevRev.get(), c.cboDDRev.get(), c.cboHARTRev.get(),
                                   c.cboDeviceCategory.get(), c.cboMinorCategory.get()};
    EditableList* const list = dice_.OneOf(lists);
    Note(FromWx(list->Combo().GetName()));
    if (!list->Combo().IsEnabled()) return nullptr;
    ShowTabOf(Window(), list->Combo());
    return list;
}

void User::Fill(std::size_t box, const std::string& text) {
    wxTextCtrl& control = Controls().txtMain[box]->Box();
    if (control.IsEnabled()) control.SetValue(ToWx(text));
}

void User::ToggleVersion(int index) {
    wxListBox& box = Controls().lstTAVVersionSupport->Box();
    if (box.IsSelected(index)) {
        box.Deselect(index);
    } else {
        box.SetSelection(index);
    }
    wxCommandEvent event(wxEVT_LISTBOX, box.GetId());
    event.SetEventObject(&box);
    event.SetInt(index);
    box.HandleWindowEvent(event);
}

void User::FillEntry() {
    for (const auto& [box, text] : kEntry) Fill(box, text);
    for (EditableList* list :
         {Controls().cboDevRev.get(), Controls().cboDDRev.get(), Controls().cboHARTRev.get()})
        PickItem(list->Combo(), 1 + dice_.Below(20));
    const VersionField& versions = *Controls().lstTAVVersionSupport;
    if (versions.Count() > 0 && !versions.IsSelected(0)) ToggleVersion(0);
}

void User::NameGoodFiles() {
    if (dice_.OneIn(3)) return;
    Fill(kDDInstallPathBox, world_.Machine().DDInstallPath());
    Fill(kIniPathBox, world_.Machine().PyxPath());
}

bool User::TakeKeyboard(wxWindow& control) {
    frmMain& window = Window();
    if (window.IsIconized()) {
        window.Restore();
        if (!WaitUntil("the window to be restored", [&] { return !window.IsIconized(); })) return false;
    }
    ShowTabOf(window, control);
    for (int i = 0; i < kRaises; ++i) {
        window.Raise();  // the window manager does not heed every wish
        control.SetFocus();
        if (WaitAWhile([&] { return window.IsActive() && wxWindow::FindFocus() == &control; })) return true;
    }
    ADD_FAILURE() << "the window does not get the keyboard";
    return false;
}

// A key that comes last tells that those before it have come. It is pressed again when it was lost to a box.
void User::Press(const std::function<void()>& press) {
    frmMain& window = Window();
    const Mark mark(window);
    press();
    for (int i = 0; i < kMarks; ++i) {
        if (i > 0) window.Raise();  // from behind a help window
        PressKey(kMarkKey);
        if (WaitAWhile([&] { return window.IsUnloading() || (mark.IsSeen() && !window.IsBusy()); })) return;
        PressKey(WXK_ESCAPE);  // out of a menu
    }
    ADD_FAILURE() << "the window takes no keys any more";
}

void User::ChooseByKeys(char menu, const wxMenuItem& item) {
    Note("by letters");
    if (!TakeKeyboard(Controls().txtMain[kIniPathBox]->Box())) return;
    Press([&] {
        PressKey(menu, wxMOD_ALT);
        PressKey(LetterOf(item));
    });
}

void User::PressButton(wxButton& button) {
    switch (button.IsEnabled() ? dice_.Below(8) : -1) {
        case 0:
            Note("by the space bar");
            if (TakeKeyboard(button)) Press([] { PressKey(WXK_SPACE); });
            break;
        case 1:
            Note("by the mouse");
            if (TakeKeyboard(button)) Press([&] { Click(button); });
            break;
        default:
            test::Press(button);
    }
}

void User::ChooseItem(char menu, const wxMenuItem& item) {
    if (dice_.OneIn(8)) {
        ChooseByKeys(menu, item);
    } else {
        Choose(Window(), item);
    }
}

}  // namespace ventlock::test
