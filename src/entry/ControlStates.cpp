#include "entry/ControlStates.h"

#include "db/SchemaVersion.h"

namespace ventlock {
namespace {

constexpr FieldColour ColourOf(bool isEnabled) {
    return isEnabled ? FieldColour::WindowBackground : FieldColour::ButtonFace;
}

FieldState Usable(bool isEnabled) {
    return {.enabled = isEnabled, .colour = ColourOf(isEnabled), .selection = {}, .isEmptied = false};
}

FieldState CategoryState(const ListChoice& list, bool hasCategories, bool isConnected) {
    if (hasCategories) return Usable(isConnected);
    FieldState state = Usable(false);
    state.selection = list.itemCount > 0 ? 0 : -1;
    return state;
}

void ApplyOldSchema(ControlStateSet& states) {
    states.manufacturerDescription = Usable(false);
    states.deviceDescription = Usable(false);
    states.revisionName = Usable(false);
    states.revisionDescription = Usable(false);
    states.cboDeviceProtocol = Usable(false);
    states.cboDeviceCategory = Usable(false);
    states.cboMinorCategory.colour = FieldColour::ButtonFace;  // only coloured, not disabled
}

void ApplyCurrentSchema(const EntryForm& form, bool isConnected, ControlStateSet& states) {
    // The colour of these three is left alone: greyed under the old schema they stay grey.
    states.manufacturerDescription.enabled = true;
    states.deviceDescription.enabled = true;
    states.revisionDescription.enabled = true;

    states.cboDeviceProtocol = Usable(isConnected);
    const int protocol = form.cboDeviceProtocol.index;
    const bool hasCategories = protocol == kProtocolWithCategories;
    states.cboDeviceCategory = CategoryState(form.cboDeviceCategory, hasCategories, isConnected);
    states.cboMinorCategory = CategoryState(form.cboMinorCategory, hasCategories, isConnected);
    const bool hasRevisionName = protocol != kProtocolWithoutRevisionName;
    states.revisionName = Usable(hasRevisionName);
    states.revisionName.isEmptied = !hasRevisionName;
}

}  // namespace

ControlStateSet ControlStates(const EntryForm& form, std::int16_t schemaVersion, bool isConnected) {
    ControlStateSet states;
    if (schemaVersion < kCurrentSchema) {
        ApplyOldSchema(states);
    } else {
        ApplyCurrentSchema(form, isConnected, states);
    }
    states.canWrite = WritableTargets(form);
    states.canWrite.database = states.canWrite.database && isConnected;
    return states;
}

}  // namespace ventlock
