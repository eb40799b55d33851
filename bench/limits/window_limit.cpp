#include <wx/app.h>

#include "limits/BareWindow.h"

namespace ventlock::bench {

/// The least that a window of four tabs costs with this toolkit.
class BareApp final : public wxApp {
 public:
    bool OnInit() override { return (new BareWindow)->Show(); }
};

}  // namespace ventlock::bench

wxIMPLEMENT_APP(ventlock::bench::BareApp);
