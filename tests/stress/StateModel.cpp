#include "stress/StateModel.h"

#include <gtest/gtest.h>

#include "db/SchemaVersion.h"
#include "ui/WxText.h"

namespace ventlock::test {
namespace {

constexpr const char* kDatabaseWritten = "The database has been updated.";
constexpr const char* kEntryWritten = "The entry has been inserted.";
constexpr const char* kClearedRevisions[] = {"01", "01", "05"};

std::string Named(bool isEnabled) {
    return isEnabled ? "enabled" : "disabled";
}

std::string Named(const std::optional<FieldColour>& colour) {
    if (!colour) return "no colour";
    return *colour == FieldColour::WindowBackground ? "window background" : "button face";
}

/// Whether a field differs that the rules ask about.
bool Differs(const EntryForm& a, const EntryForm& b) {
    const auto selected = [](const EntryForm& form) {
        std::string text;
        for (const OfferedVersion& version : form.lstTAVVersionSupport)
            text += version.isSelected ? '1' : '0';
        return text;
    };
    return a.txtMain != b.txtMain || a.cboDevRev != b.cboDevRev || a.cboDDRev != b.cboDDRev ||
           a.cboHARTRev != b.cboHARTRev || a.cboDeviceProtocol.index != b.cboDeviceProtocol.index ||
           a.cboDeviceCategory.index != b.cboDeviceCategory.index ||
           a.cboDeviceCategory.text != b.cboDeviceCategory.text || selected(a) != selected(b);
}

}  // namespace

StateModel::StateModel(frmMain& window)
    : window_(window), controls_(window.Controls()), form_(controls_.Read()) {
    WatchFields();
    WatchCommands();
}

void StateModel::WatchFields() {
    const auto evaluated = [this](wxCommandEvent& event) {
        TakeEvaluation();
        event.Skip();
    };
    for (const auto& field : controls_.txtMain) field->Box().Bind(wxEVT_TEXT, evaluated);
    controls_.cboDeviceProtocol->Box().Bind(wxEVT_CHOICE, evaluated);
    controls_.lstTAVVersionSupport->Box().Bind(wxEVT_LISTBOX, evaluated);
    for (EditableList* list : {controls_.cboDevRev.get(), controls_.cboDDRev.get(),
                               controls_.cboHARTRev.get(), controls_.cboDeviceCategory.get()}) {
        OnText(*list);
        list->Combo().Bind(wxEVT_COMBOBOX, evaluated);
    }
}

// A text that the list knows already is no change.
void StateModel::OnText(EditableList& list) {
    list.Combo().Bind(wxEVT_TEXT, [this, &list](wxCommandEvent& event) {
        if (FromWx(list.Combo().GetValue()) != list.Text()) TakeEvaluation();
        event.Skip();
    });
}

void StateModel::WatchCommands() {
    const MainMenu& menu = window_.Menu();
    OnMenu(*menu.mnuWriteDB, &StateModel::TakeWrite<Write::Database>);
    OnMenu(*menu.mnuWriteINI, &StateModel::TakeWrite<Write::Ini>);
    OnMenu(*menu.mnuWriteDDInstall, &StateModel::TakeWrite<Write::DDInstall>);
    OnMenu(*menu.mnuClear, &StateModel::TakeClear);
    OnButton(*controls_.cmdWriteDB, &StateModel::TakeWrite<Write::Database>);
    OnButton(*controls_.cmdWriteINI, &StateModel::TakeWrite<Write::Ini>);
    OnButton(*controls_.cmdWriteDDInstall, &StateModel::TakeWrite<Write::DDInstall>);
    OnButton(*controls_.cmdSwitchDSN, &StateModel::TakeSwitch);
    controls_.txtMain[kDataSourceBox]->Box().Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent& event) {
        if (!window_.IsBusy()) TakeSwitch();
        event.Skip();
    });
}

void StateModel::OnMenu(const wxMenuItem& item, void (StateModel::*taken)()) {
    window_.Bind(
        wxEVT_MENU,
        [this, taken](wxCommandEvent& event) {
            if (!window_.IsBusy()) (this->*taken)();
            event.Skip();
        },
        item.GetId());
}

void StateModel::OnButton(wxButton& button, void (StateModel::*taken)()) {
    button.Bind(wxEVT_BUTTON, [this, taken](wxCommandEvent& event) {
        if (!window_.IsBusy()) (this->*taken)();
        event.Skip();
    });
}

// Clearing evaluates for each text that changes, before it deselects. What it leaves is known beforehand, so
// that a later change is told apart from it.
void StateModel::TakeClear() {
    TakeChanges();
    EntryForm cleared = form_;
    for (std::size_t box = kManufacturerIdBox; box < kTextBoxCount; ++box) cleared.txtMain[box].clear();
    cleared.cboDevRev = kClearedRevisions[0];
    cleared.cboDDRev = kClearedRevisions[1];
    cleared.cboHARTRev = kClearedRevisions[2];
    isEvaluated_ = Differs(form_, cleared);
    form_ = cleared;
    if (isEvaluated_) {
        protocol_ = form_.cboDeviceProtocol.index;
        finished_ = {};
        isEvaluated_ = false;
    }
    if (window_.SchemaVersion() < kCurrentSchema) return;
    form_.cboDeviceProtocol.index = form_.cboDeviceCategory.index = -1;
    form_.cboDeviceCategory.text.clear();
    isMajorDeselected_ = true;
}

// Under the old schema the minor category stays as it was, which a change to that schema may have found it in
// just after an evaluation.
void StateModel::TakeEvaluation() {
    isEvaluated_ = true;
    const ControlStateSet rules =
        ControlStates(controls_.Read(), window_.SchemaVersion(), window_.IsConnected());
    if (rules.cboMinorCategory.enabled) isMinorEnabled_ = *rules.cboMinorCategory.enabled;
}

void StateModel::TakeMessage(const std::string& text) {
    if (text != kDatabaseWritten && text != kEntryWritten) return;
    TakeChanges();
    finished_.database = finished_.database || write_ == Write::Database;
    finished_.ini = finished_.ini || write_ == Write::Ini;
    finished_.ddInstall = finished_.ddInstall || write_ == Write::DDInstall;
}

void StateModel::TakeChanges() {
    const EntryForm now = controls_.Read();
    isEvaluated_ = isEvaluated_ || Differs(form_, now);
    form_ = now;
    if (!isEvaluated_) return;
    isEvaluated_ = false;
    protocol_ = now.cboDeviceProtocol.index;
    isMajorDeselected_ = false;
    finished_ = {};
}

ControlStateSet StateModel::Rules() const {
    EntryForm evaluated = form_;
    evaluated.cboDeviceProtocol.index = protocol_;
    return ControlStates(evaluated, window_.SchemaVersion(), window_.IsConnected());
}

int StateModel::Check() {
    checks_ = 0;
    TakeChanges();
    const ControlStateSet rules = Rules();
    ExpectLooks(rules);
    ExpectIndexes(rules);
    ExpectAlwaysUsable();
    const MainMenu& menu = window_.Menu();
    ExpectWrite("WriteDB", rules.canWrite.database && !finished_.database, *menu.mnuWriteDB,
                *controls_.cmdWriteDB);
    ExpectWrite("WriteINI", rules.canWrite.ini && !finished_.ini, *menu.mnuWriteINI, *controls_.cmdWriteINI);
    ExpectWrite("WriteDDInstall", rules.canWrite.ddInstall && !finished_.ddInstall, *menu.mnuWriteDDInstall,
                *controls_.cmdWriteDDInstall);
    return checks_;
}

void StateModel::Expect(const std::string& what, bool isAsExpected, const std::string& is,
                        const std::string& expected) {
    ++checks_;
    if (!isAsExpected) ADD_FAILURE() << what << " is " << is << ", not " << expected;
}

void StateModel::ExpectField(const std::string& name, std::size_t look, const FieldState& rule,
                             const wxWindow& box, FieldLook& is) {
    if (rule.colour) colours_[look] = rule.colour;
    Expect(name + "'s colour", is.Colour() == colours_[look], Named(is.Colour()), Named(colours_[look]));
    if (colours_[look]) {
        const wxColour shown = box.GetBackgroundColour();
        const wxColour expected = SystemColour(*colours_[look]);
        Expect(name + "'s shown colour", shown == expected, FromWx(shown.GetAsString()),
               FromWx(expected.GetAsString()));
    }
    if (rule.enabled)
        Expect(name, box.IsEnabled() == *rule.enabled, Named(box.IsEnabled()), Named(*rule.enabled));
}

void StateModel::ExpectLooks(const ControlStateSet& rules) {
    const auto text = [&](std::size_t look, const FieldState& rule, std::size_t box) {
        const std::string name = "txtMain(" + std::to_string(box) + ")";
        ExpectField(name, look, rule, controls_.txtMain[box]->Box(), controls_.txtMain[box]->Look());
        if (rule.isEmptied) Expect(name, form_.txtMain[box].empty(), form_.txtMain[box], "empty");
    };
    const auto list = [&](std::size_t look, const FieldState& rule, ListField& field) {
        ExpectField(FromWx(field.Box().GetName()), look, rule, field.Box(), field.Look());
    };
    text(0, rules.manufacturerDescription, kManufacturerDescriptionBox);
    text(1, rules.deviceDescription, kDeviceDescriptionBox);
    text(2, rules.revisionName, kRevisionNameBox);
    text(3, rules.revisionDescription, kRevisionDescriptionBox);
    list(4, rules.cboDeviceProtocol, *controls_.cboDeviceProtocol);
    list(5, rules.cboDeviceCategory, *controls_.cboDeviceCategory);
    list(6, rules.cboMinorCategory, *controls_.cboMinorCategory);
    if (rules.cboMinorCategory.enabled) isMinorEnabled_ = *rules.cboMinorCategory.enabled;
    const bool isMinorEnabled = controls_.cboMinorCategory->Box().IsEnabled();
    Expect("cboMinorCategory", isMinorEnabled == isMinorEnabled_, Named(isMinorEnabled),
           Named(isMinorEnabled_));
}

void StateModel::ExpectIndexes(const ControlStateSet& rules) {
    FieldState major = rules.cboDeviceCategory;
    if (isMajorDeselected_) {
        major.selection = -1;
        Expect("cboDeviceCategory", form_.cboDeviceCategory.text.empty(), form_.cboDeviceCategory.text,
               "empty");
    }
    ExpectList("cboDeviceProtocol", rules.cboDeviceProtocol, *controls_.cboDeviceProtocol);
    ExpectList("cboDeviceCategory", major, *controls_.cboDeviceCategory);
    ExpectList("cboMinorCategory", rules.cboMinorCategory, *controls_.cboMinorCategory);
    ExpectList("cboDevRev", {}, *controls_.cboDevRev);
    ExpectList("cboDDRev", {}, *controls_.cboDDRev);
    ExpectList("cboHARTRev", {}, *controls_.cboHARTRev);
    const wxChoice& protocol = dynamic_cast<wxChoice&>(controls_.cboDeviceProtocol->Box());
    Expect("cboDeviceProtocol's shown item", protocol.GetSelection() == controls_.cboDeviceProtocol->Index(),
           std::to_string(protocol.GetSelection()), std::to_string(controls_.cboDeviceProtocol->Index()));
    ExpectShown("cboDeviceCategory", *controls_.cboDeviceCategory);
    ExpectShown("cboMinorCategory", *controls_.cboMinorCategory);
    ExpectShown("cboDevRev", *controls_.cboDevRev);
    ExpectShown("cboDDRev", *controls_.cboDDRev);
    ExpectShown("cboHARTRev", *controls_.cboHARTRev);
}

void StateModel::ExpectList(const std::string& name, const FieldState& rule, const ListField& list) {
    const int index = list.Index();
    const int count = static_cast<int>(list.Box().GetCount());
    Expect(name + "'s number of items", list.Count() == count, std::to_string(list.Count()),
           std::to_string(count));
    const bool isInRange = index >= -1 && index < count;
    Expect(name + "'s index", isInRange, std::to_string(index), "below " + std::to_string(count));
    if (isInRange && index >= 0) {
        const std::string item = list.Text(index);
        Expect(name + "'s text", list.Text() == item, list.Text(), item);
    }
    if (rule.selection)
        Expect(name + "'s index", index == *rule.selection, std::to_string(index),
               std::to_string(*rule.selection));
}

void StateModel::ExpectShown(const std::string& name, const EditableList& list) {
    const std::string shown = FromWx(list.Combo().GetValue());
    Expect(name + "'s shown text", shown == list.Text(), shown, list.Text());
}

void StateModel::ExpectAlwaysUsable() {
    for (const std::size_t box :
         {kDataSourceBox, kDDInstallPathBox, kIniPathBox, kManufacturerIdBox, kManufacturerNameBox,
          kDeviceIdBox, kDeviceNameBox, kDllBox, kTemplateBox, kDeviceHelpBox, kBlockHelpBox}) {
        const bool isEnabled = controls_.txtMain[box]->Box().IsEnabled();
        Expect("txtMain(" + std::to_string(box) + ")", isEnabled, Named(isEnabled), Named(true));
    }
    for (const wxWindow* window : std::initializer_list<const wxWindow*>{
             &controls_.cboDevRev->Combo(), &controls_.cboDDRev->Combo(), &controls_.cboHARTRev->Combo(),
             &controls_.lstTAVVersionSupport->Box(), controls_.cmdSwitchDSN, controls_.cmdSelectDDInstall,
             controls_.cmdSelectINI, controls_.cmdClose})
        Expect(FromWx(window->GetName()), window->IsEnabled(), Named(window->IsEnabled()), Named(true));
}

void StateModel::ExpectWrite(const std::string& name, bool isUsable, const wxMenuItem& item,
                             const wxButton& button) {
    Expect("mnu" + name, item.IsEnabled() == isUsable, Named(item.IsEnabled()), Named(isUsable));
    Expect("cmd" + name, button.IsEnabled() == isUsable, Named(button.IsEnabled()), Named(isUsable));
}

}  // namespace ventlock::test
