#pragma once

#include <wx/dnd.h>

#include <functional>
#include <string>
#include <vector>

namespace ventlock {

/// Takes files that are dropped onto a window. What becomes of them is done once the drop is over: a box must
/// not come up while the desktop still waits for its answer.
class FileDrop final : public wxFileDropTarget {
 public:
    using Take = std::function<void(const std::vector<std::string>& paths)>;

    /// `window`, which the target belongs to once it is given to it, runs `take`.
    FileDrop(wxWindow& window, Take take);

    bool OnDropFiles(wxCoord x, wxCoord y, const wxArrayString& names) override;

 private:
    wxWindow& window_;
    Take take_;
};

}  // namespace ventlock
