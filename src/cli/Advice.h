#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/RunTimeError.h"

namespace ventlock {

/// What to do when a data source cannot be used.
/// @param diagnostics  the driver's records
/// @param isOpen       the connection was made: it is the schema that will not do
std::string ConnectAdvice(const std::vector<std::string>& diagnostics, bool isOpen);

/// What to do when a statement of a write failed.
/// @param isOldSchema  of the database: there a manufacturer, a type or a revision is stored only once
std::string StatementAdvice(const std::vector<std::string>& diagnostics, bool isOldSchema = false);

/// What to do when no transaction can be begun.
std::string TransactionAdvice(const std::vector<std::string>& diagnostics);

/// What to do when a file cannot be read or written.
/// @param naming  how a call names the file, "--option" or more; "" when that is plain from the call
std::string FileAdvice(ErrorNumber number, std::string_view naming = "");

inline constexpr std::string_view kIniPathNaming = "--ini-path or the setting INIPath";
inline constexpr std::string_view kDDInstallPathNaming = "--ddinstall-path or the setting DDInstallPath";

}  // namespace ventlock
