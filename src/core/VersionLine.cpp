#include "core/VersionLine.h"

namespace ventlock {

std::string VersionLine(std::string_view program, IAppInfo& info) {
    return std::string(program) + " " + std::to_string(info.Major()) + "." + std::to_string(info.Minor()) +
           "." + std::to_string(info.Revision()) + " (" + std::to_string(sizeof(void*) * 8) + " bit)";
}

}  // namespace ventlock
