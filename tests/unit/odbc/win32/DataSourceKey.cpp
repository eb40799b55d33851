#include "unit/odbc/win32/DataSourceKey.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>

#include "platform/win32/WideText.h"

namespace ventlock::test {
namespace {

const std::wstring kDataSources = L"Software\\ODBC\\ODBC.INI\\";

std::optional<std::string> Value(HKEY root, const std::wstring& key, const std::string& name) {
    std::array<wchar_t, 1024> text{};
    DWORD bytes = sizeof(text);
    const LSTATUS status = RegGetValueW(root, key.c_str(), ToWideText(name).c_str(), RRF_RT_REG_SZ, nullptr,
                                        text.data(), &bytes);
    if (status == ERROR_FILE_NOT_FOUND) return std::nullopt;
    EXPECT_EQ(status, ERROR_SUCCESS) << name;
    return FromWideText(text.data());
}

}  // namespace

std::optional<std::string> DriverInList(const std::string& dataSource) {
    const std::wstring list = kDataSources + L"ODBC Data Sources";
    const std::optional<std::string> ofUser = Value(HKEY_CURRENT_USER, list, dataSource);
    return ofUser ? ofUser : Value(HKEY_LOCAL_MACHINE, list, dataSource);
}

std::optional<std::string> SettingOf(const std::string& dataSource, const std::string& setting) {
    return Value(HKEY_CURRENT_USER, kDataSources + ToWideText(dataSource), setting);
}

void RemoveSettings(const std::string& dataSource) {
    EXPECT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, (kDataSources + ToWideText(dataSource)).c_str()),
              ERROR_SUCCESS);
}

}  // namespace ventlock::test
