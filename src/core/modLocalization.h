#pragma once

#include <memory>
#include <optional>
#include <string>

#include "base/Variant.h"
#include "core/TavDictionary.h"

namespace ventlock {

/// The language code that look-ups use when none is given, such as "EN".
extern std::string gsLanguage;

/// Takes the dictionary that GetString looks into, for the rest of the run; nullptr takes it away.
void UseDictionary(std::shared_ptr<IDictionary> dictionary);

/// The dictionary text of an IDS_ key, "" after an error, which the modules' message box shows.
/// @param language  gsLanguage when omitted
std::string GetString(const Variant& key, const std::optional<std::string>& language = {}, bool flag = true);

}  // namespace ventlock
