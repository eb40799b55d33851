#include "platform/odbc/DriverText.h"

#include <array>
#include <string>

namespace ventlock::odbc {

// For a driver without wide functions a driver manager turns wide text into one-byte characters. The one of
// Windows does it by the code page. Another one does it by the locale's character set or, when it knows none
// or meets a character of two units, by dropping the upper half of every unit. Such a driver takes UTF-8 as
// it stands. Which way a driver's text goes shows when it translates one without running it: an omega,
// U+03A9, that comes back as U+00A9 has lost its upper half. The character behind the omega has two units.
// Behind its NUL the text goes on for longer than the answer has room: SQLite's driver ends the text it was
// given, not its answer, where that room ends.
TextForm FormForDriver(SQLHANDLE connection) {
    std::array<SQLWCHAR, 64> translated{};
    WideText text = ToWide("SELECT '\u03A9\U0001F34A'");
    text.resize(2 * translated.size());
    SQLINTEGER length = 0;
    const SQLRETURN result =
        SQLNativeSqlW(connection, text.data(), static_cast<SQLINTEGER>(text.size()), translated.data(),
                      static_cast<SQLINTEGER>(translated.size()), &length);
    if (!SQL_SUCCEEDED(result)) return TextForm::Wide;
    const std::string back = FromWide(translated.data(), FilledLength(translated.data(), translated.size()));
    return back.find("\u00A9") != std::string::npos ? TextForm::Bytes : TextForm::Wide;
}

}  // namespace ventlock::odbc
