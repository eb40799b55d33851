#include "entry/KeyFilter.h"

#include "entry/EntryForm.h"

namespace ventlock {

bool HasKeyFilter(std::size_t textBoxIndex) {
    return textBoxIndex == kManufacturerIdBox || textBoxIndex == kDeviceIdBox;
}

char32_t FilterKey(char32_t code) {
    if (code >= U'0' && code <= U'9') return code;
    if (code >= U'A' && code <= U'F') return code;
    if (code >= U'a' && code <= U'f') return code - U'a' + U'A';
    const bool isEditing = code == U'\b' || code == U'\t' || code == U'\n' || code == U'\r';
    return isEditing ? code : 0;
}

}  // namespace ventlock
