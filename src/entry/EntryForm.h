#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace ventlock {

/// Indexes of the text boxes.
enum TextBox : std::size_t {
    kDataSourceBox = 0,
    kDDInstallPathBox = 1,
    kIniPathBox = 2,
    kManufacturerIdBox = 3,
    kManufacturerNameBox = 4,
    kManufacturerDescriptionBox = 5,
    kDeviceIdBox = 6,
    kDeviceNameBox = 7,
    kDeviceDescriptionBox = 8,
    kDllBox = 9,
    kTemplateBox = 10,
    kRevisionNameBox = 11,
    kRevisionDescriptionBox = 12,
    kDeviceHelpBox = 13,
    kBlockHelpBox = 14,
    kTextBoxCount = 15,
};

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
