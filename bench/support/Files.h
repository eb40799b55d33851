#pragma once

#include <string>
#include <string_view>

namespace ventlock::bench {

/// All bytes of a file. @throws std::runtime_error
std::string ReadBytes(const std::string& path);

/// Makes or overwrites a file and brings it to the disk, with its folder, so that no candidate's flush pays
/// for it. @throws std::runtime_error
void StoreBytes(const std::string& path, std::string_view bytes);

}  // namespace ventlock::bench
