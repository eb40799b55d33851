#include "unit/platform/win32/FileFacts.h"

#include <aclapi.h>
#include <gtest/gtest.h>
#include <sddl.h>

#include <cstdint>
#include <memory>

#include "platform/win32/WideText.h"

namespace ventlock::test {
namespace {

struct LocalDeleter {
    void operator()(void* memory) const { LocalFree(memory); }
};
template <class Type>
using LocalMemory = std::unique_ptr<Type, LocalDeleter>;

constexpr SECURITY_INFORMATION kAccessList = DACL_SECURITY_INFORMATION;

bool IsLinkThere(const std::string& path) {
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW(ToWideText(path).c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return false;
    FindClose(search);
    return true;
}

}  // namespace

FileHandle HoldOpen(const std::string& path, DWORD share) {
    FileHandle file(
        CreateFileW(ToWideText(path).c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_TRUE(file.IsOpen()) << path << ": " << GetLastError();
    return file;
}

FileAttributes::FileAttributes(const std::string& path, DWORD attributes) : path_(ToWideText(path)) {
    EXPECT_NE(SetFileAttributesW(path_.c_str(), attributes), 0) << path << ": " << GetLastError();
}

FileAttributes::~FileAttributes() {
    SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_NORMAL);
}

DWORD AttributesOf(const std::string& path) {
    const DWORD attributes = GetFileAttributesW(ToWideText(path).c_str());
    EXPECT_NE(attributes, INVALID_FILE_ATTRIBUTES) << path;
    return attributes;
}

BY_HANDLE_FILE_INFORMATION FactsOf(const std::string& path) {
    BY_HANDLE_FILE_INFORMATION facts{};
    EXPECT_NE(GetFileInformationByHandle(
                  HoldOpen(path, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE).Get(), &facts),
              0)
        << path;
    return facts;
}

std::string AccessListOf(const std::string& path) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    EXPECT_EQ(GetNamedSecurityInfoW(ToWideText(path).c_str(), SE_FILE_OBJECT, kAccessList, nullptr, nullptr,
                                    nullptr, nullptr, &descriptor),
              DWORD{ERROR_SUCCESS})
        << path;
    const LocalMemory<void> owned(descriptor);
    wchar_t* text = nullptr;
    EXPECT_NE(ConvertSecurityDescriptorToStringSecurityDescriptorW(descriptor, SDDL_REVISION_1, kAccessList,
                                                                   &text, nullptr),
              0);
    const LocalMemory<wchar_t> ownedText(text);
    return FromWideText(text);
}

std::string OwnerOf(const std::string& path) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    PSID owner = nullptr;
    EXPECT_EQ(GetNamedSecurityInfoW(ToWideText(path).c_str(), SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION,
                                    &owner, nullptr, nullptr, nullptr, &descriptor),
              DWORD{ERROR_SUCCESS})
        << path;
    const LocalMemory<void> owned(descriptor);
    wchar_t* text = nullptr;
    EXPECT_NE(ConvertSidToStringSidW(owner, &text), 0);
    const LocalMemory<wchar_t> ownedText(text);
    return FromWideText(text);
}

void SetAccessList(const std::string& path, const std::string& list) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ASSERT_NE(ConvertStringSecurityDescriptorToSecurityDescriptorW(ToWideText(list).c_str(), SDDL_REVISION_1,
                                                                   &descriptor, nullptr),
              0);
    const LocalMemory<void> owned(descriptor);
    ASSERT_NE(SetFileSecurityW(ToWideText(path).c_str(), kAccessList, descriptor), 0) << GetLastError();
}

int OpenHandleCount() {
    // Each is asked for: Wine's own count is always 0.
    constexpr std::uintptr_t kStep = 4;
    constexpr std::uintptr_t kHighest = 8192 * kStep;
    int count = 0;
    for (std::uintptr_t number = kStep; number <= kHighest; number += kStep) {
        DWORD flags = 0;
        if (GetHandleInformation(reinterpret_cast<HANDLE>(number), &flags) != 0) ++count;
    }
    return count;
}

bool MakeLink(const std::string& path, const std::string& target) {
    // Wine says that it has made one and has not.
    return CreateSymbolicLinkW(ToWideText(path).c_str(), ToWideText(target).c_str(),
                               SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE) != 0 &&
           IsLinkThere(path);
}

}  // namespace ventlock::test
