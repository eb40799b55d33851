#include "differential/HostEngine.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>

#include "base/Utf.h"
#include "platform/CodePage.h"
#include "platform/win32/WideText.h"

namespace ventlock::test {
namespace {

constexpr std::size_t kWholeValue = 16384;
constexpr int kNames = 20;  ///< more than the host has in its cache

std::string Narrow(std::string_view utf8) {
    return CodePage(kPage).Encode(utf8).value();
}

}  // namespace

void HostEngine::Load(const std::optional<std::string>& bytes) {
    const std::string path = folder_ / (std::to_string(++count_ % kNames) + ".ini");
    path_ = ToWideText(path);
    isUtf16_ = bytes && bytes->starts_with(kUtf16Mark);
    if (bytes) {
        WriteBytes(path, *bytes);
    } else {
        std::filesystem::remove(path_);
    }
}

std::string HostEngine::Read(const ProfileQuery& query) {
    return query.bufferSize == 0 || isUtf16_ ? ReadWide(query) : ReadNarrow(query);
}

std::string HostEngine::ReadWide(const ProfileQuery& query) const {
    const std::size_t size = query.bufferSize == 0 ? kWholeValue : query.bufferSize;
    std::wstring buffer(size, L'#');
    const DWORD length = GetPrivateProfileStringW(
        ToWideText(query.section).c_str(), ToWideText(query.key).c_str(), ToWideText(query.fallback).c_str(),
        buffer.data(), static_cast<DWORD>(buffer.size()), path_.c_str());
    EXPECT_EQ(buffer.at(length), L'\0');
    EXPECT_TRUE(query.bufferSize != 0 || length < size - 1) << "a value longer than the test reckons";
    return FromWideText(std::wstring_view(buffer).substr(0, length));
}

std::string HostEngine::ReadNarrow(const ProfileQuery& query) const {
    std::string buffer(query.bufferSize, '#');
    const DWORD length = GetPrivateProfileStringA(
        Narrow(query.section).c_str(), Narrow(query.key).c_str(), Narrow(query.fallback).c_str(),
        buffer.data(), static_cast<DWORD>(buffer.size()), Narrow(FromWideText(path_)).c_str());
    EXPECT_EQ(buffer.at(length), '\0');
    return CodePage(kPage).Decode(std::string_view(buffer).substr(0, length));
}

std::vector<std::string> HostEngine::Sections() {
    std::wstring buffer(kWholeValue, L'#');
    const DWORD length =
        GetPrivateProfileSectionNamesW(buffer.data(), static_cast<DWORD>(buffer.size()), path_.c_str());
    EXPECT_LT(length, kWholeValue - 2) << "more names than the test reckons";
    std::vector<std::string> names;
    std::wstring_view rest = std::wstring_view(buffer).substr(0, length);
    while (!rest.empty()) {
        const std::size_t end = rest.find(L'\0');
        if (end == std::wstring_view::npos) {
            ADD_FAILURE() << "a name without its NUL";
            break;
        }
        names.push_back(FromWideText(rest.substr(0, end)));
        rest.remove_prefix(end + 1);
    }
    return names;
}

bool HostEngine::Write(const ProfileWrite& write) {
    return WritePrivateProfileStringW(ToWideText(write.section).c_str(), ToWideText(write.key).c_str(),
                                      ToWideText(write.value).c_str(), path_.c_str()) != FALSE;
}

std::optional<std::string> HostEngine::Bytes() {
    WritePrivateProfileStringW(nullptr, nullptr, nullptr,
                               path_.c_str());  // flushes; its result means nothing
    if (GetFileAttributesW(path_.c_str()) == INVALID_FILE_ATTRIBUTES) return std::nullopt;
    return ReadBytes(FromWideText(path_));
}

}  // namespace ventlock::test
