#include "ui/VentlockApp.h"

wxIMPLEMENT_APP(ventlock::VentlockApp);
