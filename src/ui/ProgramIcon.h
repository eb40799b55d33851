#pragma once

#include <wx/bmpbndl.h>
#include <wx/iconbndl.h>

namespace ventlock {

/// The program's icon for windows and their entries in lists of windows.
wxIconBundle ProgramIcons();

/// The same as a picture.
wxBitmapBundle ProgramPicture();

}  // namespace ventlock
