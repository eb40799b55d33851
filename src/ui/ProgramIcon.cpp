#include "ui/ProgramIcon.h"

#include <wx/bitmap.h>
#include <wx/icon.h>
#include <wx/vector.h>

#include "ui/icons/ventlock16.xpm"
#include "ui/icons/ventlock32.xpm"
#include "ui/icons/ventlock48.xpm"

namespace ventlock {

wxIconBundle ProgramIcons() {
    wxIconBundle icons;
    for (const char* const* picture : {ventlock16_xpm, ventlock32_xpm, ventlock48_xpm})
        icons.AddIcon(wxIcon(picture));
    return icons;
}

wxBitmapBundle ProgramPicture() {
    wxVector<wxBitmap> pictures;
    for (const char* const* picture : {ventlock32_xpm, ventlock48_xpm}) pictures.push_back(wxBitmap(picture));
    return wxBitmapBundle::FromBitmaps(pictures);
}

}  // namespace ventlock
