#pragma once

#include <cstddef>

#include "ui/frmMain.h"

namespace ventlock::test {

/// The tabs by their positions.
inline constexpr std::size_t kGeneralTab = 0;
inline constexpr std::size_t kManufacturerTab = 1;
inline constexpr std::size_t kDeviceTab = 2;
inline constexpr std::size_t kRevisionTab = 3;

/// Brings a tab to the front.
inline void ShowTab(frmMain& window, std::size_t tab) {
    window.Controls().sstVentlock->SetSelection(tab);
}

}  // namespace ventlock::test
