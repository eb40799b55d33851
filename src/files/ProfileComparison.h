#pragma once

#include <string>
#include <vector>

#include "base/Difference.h"
#include "platform/ProfileFile.h"

namespace ventlock {

/// One key of a profile file and its value as it is written.
struct ProfileKey {
    std::string section;
    std::string name;
    std::string value;
};

/// In what a file differs from these keys, section by section: one that is missing, or stands in the file
/// more than once, is told as a whole; of the others each key. Values are compared as they are read, without
/// blanks around them and one pair of quotes.
std::vector<Difference> CompareKeys(const ProfileFile& file, const std::vector<ProfileKey>& keys);

}  // namespace ventlock
