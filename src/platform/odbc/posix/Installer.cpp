#include "platform/odbc/Installer.h"

#include <sql.h>

#include <odbcinst.h>

#include <array>
#include <string>

#include "base/RunTimeError.h"
#include "base/Utf.h"

namespace ventlock::odbc {
namespace {

constexpr WORD kMostMessages = 8;  // the installer keeps no more
constexpr WORD kLongestMessage = 1024;

RunTimeError InstallerFailure() {
    std::vector<std::string> texts;
    for (WORD number = 1; number <= kMostMessages; ++number) {
        std::array<char, kLongestMessage> text{};
        DWORD code = 0;
        WORD length = 0;
        const RETCODE result = SQLInstallerError(number, &code, text.data(), kLongestMessage, &length);
        if (!SQL_SUCCEEDED(result)) break;
        texts.push_back("[HY000] " + std::string(text.data()) + " (" + std::to_string(code) + ")");
    }
    if (texts.empty()) texts.emplace_back("[HY000] The data source could not be registered (0)");
    return RunTimeError::OdbcCallFailed(std::move(texts));
}

void Require(BOOL done) {
    if (!done) throw InstallerFailure();
}

}  // namespace

// The files of this driver manager hold bytes, and its wide functions drop the upper half of every unit on
// the way there: a file name outside ASCII arrives whole only as the UTF-8 bytes that the narrow functions
// take. A data source of such a name could be stored but never found again, because connecting is done by the
// wide functions.
void WriteUserDataSource(const std::string& name, const std::string& driver,
                         const std::vector<std::pair<std::string, std::string>>& settings) {
    if (!IsAscii(name)) {
        throw RunTimeError::OdbcCallFailed(
            {"[HY000] The driver manager finds no data source named " + name + " (0)"});
    }
    SQLSetConfigMode(ODBC_USER_DSN);
    Require(SQLWriteDSNToIni(name.c_str(), driver.c_str()));
    for (const auto& [key, value] : settings) {
        Require(SQLWritePrivateProfileString(name.c_str(), key.c_str(), value.c_str(), "odbc.ini"));
    }
    SQLSetConfigMode(ODBC_BOTH_DSN);
}

// What this driver manager lists may be some seconds old and tells nothing of a new data source.
void RequireListed(const std::string& /*name*/) {}

}  // namespace ventlock::odbc
