#pragma once

#include <string>

#include "ui/frmMain.h"

namespace ventlock::test {

/// Names a data source in the window's first field and changes to it.
inline void SwitchTo(frmMain& window, const std::string& dataSource) {
    window.Controls().txtMain[kDataSourceBox]->SetText(dataSource);
    window.cmdSwitchDSN_Click();
}

}  // namespace ventlock::test
