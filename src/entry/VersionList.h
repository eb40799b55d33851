#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/AppObjects.h"
#include "entry/EntryForm.h"
#include "platform/IEvents.h"

namespace ventlock {

/// The items of a version list such as "5.0, 6.0", separated by blanks or commas. A separator straight after
/// another one adds an empty item; one comma at the end adds none. `events` runs once per character.
std::vector<std::string> ParseVersionList(std::string_view text, IEvents& events,
                                          const AppObjects* oAppObjects = nullptr);

/// True for what a version is written as: digits, a full stop, digits.
bool IsVersion(std::string_view item);

/// The chosen versions of a form in the order they are offered, "5.0, 6.0"; "" for none.
std::string SelectedVersions(const EntryForm& form);

}  // namespace ventlock
