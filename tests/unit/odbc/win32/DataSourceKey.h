#pragma once

#include <optional>
#include <string>

namespace ventlock::test {

/// The driver that the installer's list of data sources names for this one; nothing when it is not in the
/// list. The list of the user is looked at before the machine's, where Wine's installer keeps all of them.
std::optional<std::string> DriverInList(const std::string& dataSource);

/// A setting of one of the user's data sources; nothing when there is none.
std::optional<std::string> SettingOf(const std::string& dataSource, const std::string& setting);

/// Takes away all that the installer keeps of a data source of the user.
void RemoveSettings(const std::string& dataSource);

}  // namespace ventlock::test
