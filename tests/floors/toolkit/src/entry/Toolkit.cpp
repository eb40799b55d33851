#include <wx/wx.h>
