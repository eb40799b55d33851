#include "platform/odbc/DriverLibrary.h"

namespace ventlock::odbc {

bool NamesLibraryOfOtherWordSize(const std::string& /*record*/) {
    return false;
}

}  // namespace ventlock::odbc
