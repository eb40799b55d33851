#include "ui/FileDrop.h"

#include <wx/window.h>

#include <utility>

#include "ui/WxText.h"

namespace ventlock {

FileDrop::FileDrop(wxWindow& window, Take take) : window_(window), take_(std::move(take)) {}

bool FileDrop::OnDropFiles(wxCoord /*x*/, wxCoord /*y*/, const wxArrayString& names) {
    std::vector<std::string> paths;
    for (const wxString& name : names) paths.push_back(FromWx(name));
    window_.CallAfter([take = take_, paths] { take(paths); });
    return true;
}

}  // namespace ventlock
