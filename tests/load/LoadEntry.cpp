#include "load/LoadEntry.h"

#include <array>
#include <cstdio>

namespace ventlock::test {
namespace {

std::string Hexadecimal(int number, int digits) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%0*X", digits, static_cast<unsigned>(number));
    return text.data();
}

}  // namespace

std::string LoadEntry::Manufacturer() const {
    constexpr int kFirst = 0x20;
    return Hexadecimal(kFirst + number_ % manufacturers_, 6);
}

std::string LoadEntry::DeviceType() const {
    return Hexadecimal(number_ + 1, 4);
}

std::string LoadEntry::Text() const {
    return "[" + Name() + "]\nManID=" + Manufacturer().substr(2) + "\nManName=Acme " + Manufacturer() +
           "\nDevID=" + DeviceType() + "\nDevName=" + DeviceName() +
           "\nDevRev=1\nDDRev=1\nDLLName=Dev\nTemplateName=t\n";
}

}  // namespace ventlock::test
