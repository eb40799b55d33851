#include "ui/ControlNames.h"

#include "ui/AccessibleText.h"
#include "ui/WxText.h"

namespace ventlock {
namespace {

/// "Device: Name", for the field whose label reads "Name:" on the tab "Device".
std::string FieldName(const MainControls& controls, const wxWindow& label) {
    const int page = controls.sstVentlock->FindPage(label.GetParent());
    wxString text = controls.sstVentlock->GetPageText(static_cast<std::size_t>(page)) + ": " +
                    wxControl::RemoveMnemonics(label.GetLabel());
    if (text.EndsWith(":")) text.RemoveLast();
    return FromWx(text);
}

}  // namespace

void NameControls(MainControls& controls, const MainMenu& menu) {
    for (const wxStaticText* label : controls.lblMain) {
        wxWindow* field = label->GetNextSibling();  // every field stands behind its label
        const bool isField = field != nullptr && dynamic_cast<wxStaticText*>(field) == nullptr;
        if (isField) SetAccessibleName(*field, FieldName(controls, *label));
    }
    const auto asItem = [](wxButton& button, const wxMenuItem& item) {
        wxString name = item.GetItemLabelText();
        name.Replace("...", "");
        SetAccessibleName(button, FromWx(name));
    };
    asItem(*controls.cmdSelectDDInstall, *menu.mnuSelectDDInstall);
    asItem(*controls.cmdSelectINI, *menu.mnuSelectINI);
    for (const DropList* list :
         {controls.lstDataSources.get(), controls.lstRecentDDInstall.get(), controls.lstRecentINI.get()})
        SetAccessibleName(list->Button(), FromWx(list->Button().GetToolTipText()));
}

}  // namespace ventlock
