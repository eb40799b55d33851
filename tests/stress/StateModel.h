#pragma once

#include <array>
#include <optional>
#include <string>

#include "entry/ControlStates.h"
#include "ui/frmMain.h"

namespace ventlock::test {

/// Knows which state each control of a window must be in: what the rules ask for what the controls hold, as
/// of the last evaluation. An evaluation follows every change of a field, but not everything is one: clearing
/// deselects protocol and major category without, and a finished write command stays disabled until the next.
/// It sees changes in the toolkit's own events and in what the controls hold.
class StateModel {
 public:
    /// `window` is loaded and outlives this object.
    explicit StateModel(frmMain& window);
    StateModel(const StateModel&) = delete;
    StateModel& operator=(const StateModel&) = delete;

    /// A message that the window shows, before it goes on: a write command may be finished with it.
    void TakeMessage(const std::string& text);

    /// Compares all controls with what they must be; every difference fails the test. Gives the number of
    /// comparisons.
    int Check();

 private:
    enum class Write { None, Database, Ini, DDInstall };

    void WatchFields();
    void WatchCommands();
    void OnMenu(const wxMenuItem& item, void (StateModel::*taken)());
    void OnButton(wxButton& button, void (StateModel::*taken)());
    void OnText(EditableList& list);

    template <Write write>
    void TakeWrite() {
        write_ = write;
    }
    void TakeClear();
    void TakeSwitch() { isEvaluated_ = true; }

    void TakeEvaluation();
    void TakeChanges();
    [[nodiscard]] ControlStateSet Rules() const;
    void Expect(const std::string& what, bool isAsExpected, const std::string& is,
                const std::string& expected);
    void ExpectField(const std::string& name, std::size_t look, const FieldState& rule, const wxWindow& box,
                     FieldLook& is);
    void ExpectWrite(const std::string& name, bool isUsable, const wxMenuItem& item, const wxButton& button);
    void ExpectList(const std::string& name, const FieldState& rule, const ListField& list);
    void ExpectShown(const std::string& name, const EditableList& list);
    void ExpectLooks(const ControlStateSet& rules);
    void ExpectIndexes(const ControlStateSet& rules);
    void ExpectAlwaysUsable();

    frmMain& window_;
    MainControls& controls_;
    EntryForm form_;                  ///< what the controls held when they were last looked at
    bool isEvaluated_ = true;         ///< since then
    int protocol_ = -1;               ///< of the last evaluation
    bool isMajorDeselected_ = false;  ///< by clearing
    Write write_ = Write::None;       ///< the command that runs, or ran last
    Targets finished_;                ///< write commands that have been done and not enabled again
    std::array<std::optional<FieldColour>, 7> colours_;
    bool isMinorEnabled_ = true;
    int checks_ = 0;
};

}  // namespace ventlock::test
