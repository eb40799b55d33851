// What the tests of the Windows packages ask the system:
//   package_probe access <key>    the access list of a key of the machine, an entry a line: type, flags,
//   rights, for whom package_probe hold <program>  has the program running, without a step of it done, from
//   "held" until the input ends
#include <windows.h>

#include <aclapi.h>
#include <sddl.h>

#include <cstdio>
#include <cwchar>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

struct FreeLocal {
    void operator()(void* memory) const { LocalFree(memory); }
};

void Require(DWORD error, const char* call) {
    if (error != ERROR_SUCCESS)
        throw std::runtime_error(std::string(call) + ": error " + std::to_string(error));
}

void PrintEntry(const ACCESS_ALLOWED_ACE& entry) {
    // The identifier stands in the entry's last member and behind it.
    auto* const who = const_cast<DWORD*>(&entry.SidStart);
    wchar_t* text = nullptr;
    if (!ConvertSidToStringSidW(who, &text)) Require(GetLastError(), "ConvertSidToStringSidW");
    const std::unique_ptr<wchar_t, FreeLocal> owner(text);
    std::printf("%d %d %08lx %ls\n", entry.Header.AceType, entry.Header.AceFlags, entry.Mask, text);
}

void PrintAccess(const std::wstring& key) {
    std::wstring name = L"MACHINE\\" + key;
    PACL list = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    Require(GetNamedSecurityInfoW(name.data(), SE_REGISTRY_KEY, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                                  &list, nullptr, &descriptor),
            "GetNamedSecurityInfoW");
    const std::unique_ptr<void, FreeLocal> owner(descriptor);
    if (list == nullptr) throw std::runtime_error("the key has no access list");
    for (DWORD i = 0; i < list->AceCount; ++i) {
        void* entry = nullptr;
        if (!GetAce(list, i, &entry)) Require(GetLastError(), "GetAce");
        PrintEntry(*static_cast<const ACCESS_ALLOWED_ACE*>(entry));
    }
}

void Hold(const wchar_t* program) {
    STARTUPINFOW start{};
    start.cb = sizeof(start);
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(program, nullptr, nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr, nullptr, &start,
                        &process))
        Require(GetLastError(), "CreateProcessW");
    std::printf("held\n");
    std::fflush(stdout);
    for (int c = 0; c != '\n' && c != EOF;) c = std::getchar();
    TerminateProcess(process.hProcess, 0);
    WaitForSingleObject(process.hProcess, INFINITE);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    try {
        if (argc == 3 && std::wcscmp(argv[1], L"access") == 0) {
            PrintAccess(argv[2]);
            return 0;
        }
        if (argc == 3 && std::wcscmp(argv[1], L"hold") == 0) {
            Hold(argv[2]);
            return 0;
        }
        std::fprintf(stderr, "usage: package_probe access <key> | hold <program>\n");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "package_probe: %s\n", error.what());
    }
    return 1;
}
