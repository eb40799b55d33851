#pragma once

#include <string>
#include <vector>

#include "OdbcApi.h"
#include "platform/odbc/Calls.h"

namespace ventlock::odbc {

/// What a driver or the driver manager says about a call.
struct Diagnostic {
    std::string state;  ///< five characters
    std::string text;
    int native = 0;  ///< the driver's own code
};

/// All records that the last call on a handle left, whole and in their order. A failed call without a record
/// gives one of our own, so that the result is never empty.
std::vector<Diagnostic> ReadDiagnostics(SQLSMALLINT handleType, SQLHANDLE handle,
                                        TextForm form = TextForm::Wide);

/// "[state] text (native)".
std::string DiagnosticText(const Diagnostic& diagnostic);

/// All of them by DiagnosticText, without passwords.
std::vector<std::string> DiagnosticTexts(const std::vector<Diagnostic>& diagnostics,
                                         const std::vector<std::string>& passwords);

/// True when one of the states says that the link to the database is broken: class 08, or a server's own
/// words that it ends or has ended (57P01 to 57P05 of PostgreSQL, whose driver does not always turn them into
/// 08S01).
bool TellsBrokenLink(const std::vector<Diagnostic>& diagnostics);

}  // namespace ventlock::odbc
