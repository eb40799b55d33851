#include "platform/odbc/DriverLibrary.h"

#include <elf.h>

#include <array>
#include <cstddef>
#include <fstream>
#include <string_view>

namespace ventlock::odbc {
namespace {

constexpr std::string_view kBeforePath = "Can't open lib '";
constexpr std::string_view kBehindPath = "' :";
constexpr unsigned char kOtherClass = sizeof(void*) == 8 ? ELFCLASS32 : ELFCLASS64;

// The path in the words of the driver manager, "" when there is none.
std::string LibraryPath(const std::string& record) {
    const std::size_t before = record.find(kBeforePath);
    if (before == std::string::npos) return {};
    const std::size_t begin = before + kBeforePath.size();
    const std::size_t end = record.rfind(kBehindPath);
    if (end == std::string::npos || end < begin) return {};
    return record.substr(begin, end - begin);
}

}  // namespace

// "File not found" is all that the driver manager says of a library that the system does not load.
bool NamesLibraryOfOtherWordSize(const std::string& record) {
    std::ifstream library(LibraryPath(record), std::ios::binary);
    std::array<char, EI_NIDENT> ident{};
    library.read(ident.data(), ident.size());
    return library.good() && std::string_view(ident.data(), SELFMAG) == ELFMAG &&
           static_cast<unsigned char>(ident[EI_CLASS]) == kOtherClass;
}

}  // namespace ventlock::odbc
