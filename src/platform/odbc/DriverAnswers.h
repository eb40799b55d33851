#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace ventlock::odbc {

/// What drivers' records tell. Drivers agree on neither states nor wording, so each question is answered by
/// whatever one of them says.

/// True when one of the records holds one of the texts, case ignored.
bool Mention(const std::vector<std::string>& diagnostics, std::initializer_list<std::string_view> texts);

/// True when a failed connect's records say that the data source's driver is of another word size than this
/// program.
bool TellOtherWordSize(const std::vector<std::string>& diagnostics);

/// True when a failed statement's records say that a row of the same key is there already.
bool TellDuplicate(const std::vector<std::string>& diagnostics);

/// True when the begin of a transaction was refused because the driver has none that keep other programs out.
bool TellNoTransactions(const std::vector<std::string>& diagnostics);

/// True when a failed statement's records say that the database has given it up in favour of another
/// program's (a deadlock, a serialization failure) and would take it if it were run again.
bool TellGivenUp(const std::vector<std::string>& diagnostics);

}  // namespace ventlock::odbc
