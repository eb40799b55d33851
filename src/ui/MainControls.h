#pragma once

#include <wx/button.h>
#include <wx/notebook.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <array>
#include <cstddef>
#include <functional>
#include <memory>

#include "entry/ControlStates.h"
#include "entry/EntryForm.h"
#include "ui/DropList.h"
#include "ui/ListField.h"
#include "ui/TextField.h"
#include "ui/VersionField.h"

namespace ventlock {

inline constexpr std::size_t kLabelCount = 23;

/// What runs when a field changes, by the user or by the program.
struct FieldHandlers {
    std::function<void(std::size_t)> txtMain_Change;  ///< with the index of the text box
    std::function<void()> cboDeviceProtocol_Click;
    std::function<void()> cboDeviceCategory_Change;
    std::function<void()> cboDevRev_Change;
    std::function<void()> cboDDRev_Change;
    std::function<void()> cboHARTRev_Change;
    std::function<void()> lstTAVVersionSupport_Click;
    std::function<void(std::size_t)> dropDown;  ///< a text box's list is asked for; with the box's index
};

/// The controls of the main window on their four tabs, with the captions and tool tips they are born with.
/// The toolkit's objects belong to the window they stand in, which must outlive this object.
class MainControls {
 public:
    MainControls(wxWindow& parent, const FieldHandlers& handlers);

    /// Everything that the fields hold.
    [[nodiscard]] EntryForm Read() const;

    /// Makes the fields as the rules ask; the write commands are not touched. Texts and choices that change
    /// run their handlers.
    void Apply(const ControlStateSet& states);

    /// Gives the fields their colours again after the palette has changed.
    void RefreshColours();

    std::array<std::unique_ptr<TextField>, kTextBoxCount> txtMain;
    std::array<wxStaticText*, kLabelCount> lblMain{};
    std::unique_ptr<EditableList> cboDevRev;
    std::unique_ptr<EditableList> cboDDRev;
    std::unique_ptr<EditableList> cboHARTRev;
    std::unique_ptr<FixedList> cboDeviceProtocol;
    std::unique_ptr<EditableList> cboDeviceCategory;
    std::unique_ptr<EditableList> cboMinorCategory;
    std::unique_ptr<VersionField> lstTAVVersionSupport;
    std::unique_ptr<DropList> lstDataSources;
    std::unique_ptr<DropList> lstRecentDDInstall;
    std::unique_ptr<DropList> lstRecentINI;
    wxStaticText* lblDDInstallState = nullptr;  ///< below the path: what a write to it would meet
    wxStaticText* lblINIState = nullptr;
    wxNotebook* sstVentlock;
    wxButton* cmdSwitchDSN = nullptr;
    wxButton* cmdSelectDDInstall = nullptr;
    wxButton* cmdSelectINI = nullptr;
    wxButton* cmdWriteDB = nullptr;
    wxButton* cmdWriteINI = nullptr;
    wxButton* cmdWriteDDInstall = nullptr;
    wxButton* cmdClose = nullptr;
    wxStaticText* lblStatus = nullptr;  ///< tells whether and to what the program is connected

 private:
    class Page;

    void BuildGeneral(const FieldHandlers& handlers);
    void BuildManufacturer(const FieldHandlers& handlers);
    void BuildDevice(const FieldHandlers& handlers);
    void BuildRevision(const FieldHandlers& handlers);
    wxSizer* BuildCommands(wxWindow& parent);
    [[nodiscard]] std::array<FieldLook*, 7> Looks();
};

}  // namespace ventlock
