#include "load/LoadEntry.h"

#include <array>
#include <cstdio>

namespace ventlock::test {

std::string LoadEntry::DeviceType() const {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%04X", static_cast<unsigned>(number_ + 1));
    return text.data();
}

std::string LoadEntry::Text() const {
    return "[" + Name() + "]\nManID=" + Manufacturer().substr(4) + "\nManName=Acme " + Manufacturer() +
           "\nDevID=" + DeviceType() + "\nDevName=" + DeviceName() +
           "\nDevRev=1\nDDRev=1\nDLLName=Dev\nTemplateName=t\n";
}

}  // namespace ventlock::test
