#include "platform/odbc/Installer.h"

#include <windows.h>

#include <odbcinst.h>

#include <algorithm>
#include <array>
#include <utility>

#include "OdbcApi.h"
#include "base/RunTimeError.h"
#include "platform/Casing.h"
#include "platform/odbc/DataSources.h"
#include "platform/win32/WideText.h"

namespace ventlock::odbc {
namespace {

constexpr WORD kMostMessages = 8;       // the installer keeps no more
constexpr WORD kLongestMessage = 1024;  // characters with the NUL
constexpr const wchar_t* kDataSources = L"ODBC.INI";

/// What the installer says about its last call.
std::vector<std::string> InstallerTexts() {
    std::vector<std::string> texts;
    for (WORD number = 1; number <= kMostMessages; ++number) {
        std::array<wchar_t, kLongestMessage> text{};
        DWORD code = 0;
        WORD length = 0;
        const RETCODE result = SQLInstallerErrorW(number, &code, text.data(), kLongestMessage, &length);
        if (!SQL_SUCCEEDED(result)) break;
        texts.push_back("[HY000] " + FromWideText(text.data()) + " (" + std::to_string(code) + ")");
    }
    return texts;
}

RunTimeError InstallerFailure(std::vector<std::string> texts) {
    if (texts.empty()) texts.emplace_back("[HY000] The data source could not be registered (0)");
    return RunTimeError::OdbcCallFailed(std::move(texts));
}

void Require(BOOL done) {
    if (!done) throw InstallerFailure(InstallerTexts());
}

// The installer works on the data sources of the user, not on the machine's, as long as this object lives.
class UserMode {
 public:
    UserMode() { Require(SQLSetConfigMode(ODBC_USER_DSN)); }
    ~UserMode() { SQLSetConfigMode(ODBC_BOTH_DSN); }
    UserMode(const UserMode&) = delete;
    UserMode& operator=(const UserMode&) = delete;
};

bool IsListed(const std::string& name) {
    const std::vector<DataSource> sources = ListDataSources();
    return std::any_of(sources.begin(), sources.end(), [&](const DataSource& source) {
        return !source.system && EqualIgnoringCase(source.name, name);
    });
}

}  // namespace

// A data source without all of its settings would be listed like any other and fail only when it is opened.
void WriteUserDataSource(const std::string& name, const std::string& driver,
                         const std::vector<std::pair<std::string, std::string>>& settings) {
    const UserMode mode;
    const std::wstring wideName = ToWideText(name);
    Require(SQLWriteDSNToIniW(wideName.c_str(), ToWideText(driver).c_str()));
    for (const auto& [key, value] : settings) {
        if (SQLWritePrivateProfileStringW(wideName.c_str(), ToWideText(key).c_str(),
                                          ToWideText(value).c_str(), kDataSources)) {
            continue;
        }
        std::vector<std::string> texts = InstallerTexts();
        if (!SQLRemoveDSNFromIniW(wideName.c_str())) {
            for (std::string& text : InstallerTexts()) texts.push_back(std::move(text));
        }
        throw InstallerFailure(std::move(texts));
    }
}

// The installer writes the registry. A driver manager that keeps its data sources elsewhere, as one does that
// serves Windows programs on another system, never sees what was written there.
void RequireListed(const std::string& name) {
    if (IsListed(name)) return;
    const UserMode mode;
    Require(SQLRemoveDSNFromIniW(ToWideText(name).c_str()));
    throw RunTimeError::OdbcCallFailed(
        {"[HY000] The driver manager does not list the data source " + name + " that was registered (0)"});
}

}  // namespace ventlock::odbc
