#pragma once

#include <map>
#include <optional>
#include <string>

#include "entry/EntryFile.h"

namespace ventlock {

/// Finds the entries of a call that are for one and the same device: equal manufacturer id, device id,
/// protocol and device revision. Ids are equal as numbers; a protocol is so by name or by id, as it is given.
class SameDevices {
 public:
    /// Takes the next entry. A warning at it when an entry before it was for the same device; the first one
    /// of them is named. Ids that are none are another rule's.
    std::optional<Finding> Take(const std::string& path, const FileEntry& entry);

 private:
    std::map<std::string, std::string> places_;  ///< of the first entry for a device, by its ids
};

}  // namespace ventlock
