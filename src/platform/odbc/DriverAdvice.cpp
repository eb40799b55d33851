#include "platform/odbc/DriverAdvice.h"

#include <algorithm>

namespace ventlock::odbc {

bool TellOtherWordSize(const std::vector<std::string>& diagnostics) {
    return std::any_of(diagnostics.begin(), diagnostics.end(),
                       [](const std::string& record) { return record.starts_with("[IM014]"); });
}

}  // namespace ventlock::odbc
