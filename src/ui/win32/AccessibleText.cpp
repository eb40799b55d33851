#include "ui/AccessibleText.h"

#include <wx/access.h>

#include <memory>

#include "ui/WxText.h"

namespace ventlock {
namespace {

/// What the system would say of a control, but for its name and description.
class SpokenText final : public wxAccessible {
 public:
    explicit SpokenText(wxWindow& control) : wxAccessible(&control) {}

    wxAccStatus GetName(int child, wxString* name) override { return Answer(child, name_, name); }
    wxAccStatus GetDescription(int child, wxString* text) override {
        return Answer(child, description_, text);
    }

    wxString name_;
    wxString description_;

 private:
    static wxAccStatus Answer(int child, const wxString& own, wxString* answer) {
        if (child != wxACC_SELF || own.empty()) return wxACC_NOT_IMPLEMENTED;
        *answer = own;
        return wxACC_OK;
    }
};

SpokenText& TextOf(wxWindow& control) {
    auto* text = dynamic_cast<SpokenText*>(control.GetAccessible());
    if (text == nullptr) {
        text = std::make_unique<SpokenText>(control).release();
        control.SetAccessible(text);  // belongs to the control now
    }
    return *text;
}

}  // namespace

void SetAccessibleName(wxWindow& control, const std::string& name) {
    TextOf(control).name_ = ToWx(name);
}

void SetAccessibleDescription(wxWindow& control, const std::string& description) {
    TextOf(control).description_ = ToWx(description);
}

}  // namespace ventlock
