#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace ventlock {

/// Indexes of the text boxes.
inline constexpr std::size_t kDataSourceBox = 0;
inline constexpr std::size_t kDDInstallPathBox = 1;
inline constexpr std::size_t kIniPathBox = 2;
inline constexpr std::size_t kManufacturerIdBox = 3;
inline constexpr std::size_t kManufacturerNameBox = 4;
inline constexpr std::size_t kManufacturerDescriptionBox = 5;
inline constexpr std::size_t kDeviceIdBox = 6;
inline constexpr std::size_t kDeviceNameBox = 7;
inline constexpr std::size_t kDeviceDescriptionBox = 8;
inline constexpr std::size_t kDllBox = 9;
inline constexpr std::size_t kTemplateBox = 10;
inline constexpr std::size_t kRevisionNameBox = 11;
inline constexpr std::size_t kRevisionDescriptionBox = 12;
inline constexpr std::size_t kDeviceHelpBox = 13;
inline constexpr std::size_t kBlockHelpBox = 14;
inline constexpr std::size_t kTextBoxCount = 15;

/// What a list or combo box of the database holds: how many items, which one is chosen (-1 none), and its
/// text.
struct ListChoice {
    int index = -1;
    std::int32_t itemData = 0;  ///< of the chosen item
    std::string text;           ///< chosen or typed
    int itemCount = 0;
};

/// One version that may be offered.
struct OfferedVersion {
    std::string text;
    bool isSelected = false;
};

/// What the window's controls hold: a device entry as the user sees it, texts untrimmed.
struct EntryForm {
    std::array<std::string, kTextBoxCount> txtMain;
    std::string cboDevRev;
    std::string cboDDRev;
    std::string cboHARTRev;
    ListChoice cboDeviceProtocol;
    ListChoice cboDeviceCategory;
    ListChoice cboMinorCategory;
    std::vector<OfferedVersion> lstTAVVersionSupport;
};

}  // namespace ventlock
