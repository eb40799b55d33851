#pragma once

#include <cstdint>
#include <optional>

#include "entry/EntryForm.h"
#include "entry/RequiredFields.h"

namespace ventlock {

/// System colours by the codes that the window stores.
enum class FieldColour : std::uint32_t {
    WindowBackground = 0x80000005,  ///< editable look
    ButtonFace = 0x8000000F,        ///< read-only look
};

/// What the rules ask of one field; what is left open stays as it is.
struct FieldState {
    std::optional<bool> enabled;
    std::optional<FieldColour> colour;
    std::optional<int> selection;  ///< of a list: the item to choose, -1 none
    bool isEmptied = false;        ///< of a text box: its text goes

    bool operator==(const FieldState&) const = default;
};

/// What the rules ask of all controls.
struct ControlStateSet {
    FieldState manufacturerDescription;  ///< txtMain(5)
    FieldState deviceDescription;        ///< txtMain(8)
    FieldState revisionName;             ///< txtMain(11)
    FieldState revisionDescription;      ///< txtMain(12)
    FieldState cboDeviceProtocol;
    FieldState cboDeviceCategory;
    FieldState cboMinorCategory;
    Targets canWrite;  ///< the write commands' enabled states

    bool operator==(const ControlStateSet&) const = default;
};

/// List positions of the two protocols with rules of their own.
inline constexpr int kProtocolWithoutRevisionName = 1;
inline constexpr int kProtocolWithCategories = 2;

/// The one place that knows which fields and write commands are usable for what the controls hold, the schema
/// code and the connection. Applied to its own result it gives the same states again.
ControlStateSet ControlStates(const EntryForm& form, std::int16_t schemaVersion, bool isConnected);

}  // namespace ventlock
