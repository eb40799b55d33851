#include "platform/odbc/Diagnostics.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <optional>

#include "platform/odbc/ConnectString.h"

namespace ventlock::odbc {
namespace {

constexpr SQLSMALLINT kMostRecords = 1000;  // against a driver that never says that there are no more
constexpr std::size_t kStateLength = 5;
constexpr std::size_t kUsualText = 1024;
constexpr std::size_t kLongestText = std::numeric_limits<SQLSMALLINT>::max();

template <class Char>
std::optional<Diagnostic> ReadRecord(SQLSMALLINT handleType, SQLHANDLE handle, SQLSMALLINT number) {
    std::array<Char, kStateLength + 1> state{};
    std::vector<Char> text(kUsualText);
    for (;;) {
        SQLINTEGER native = 0;
        SQLSMALLINT reported = 0;
        const SQLRETURN result =
            Calls<Char>::Diagnostic(handleType, handle, number, state.data(), &native, text.data(),
                                    static_cast<SQLSMALLINT>(text.size()), &reported);
        if (!SQL_SUCCEEDED(result)) return std::nullopt;
        const std::size_t filled = FilledLength(text.data(), text.size());
        const std::size_t promised = reported > 0 ? static_cast<std::size_t>(reported) : 0;
        // The reported length is not to be trusted: a buffer that is full to the end is taken for too small
        // as well.
        const bool cut = filled + 1 >= text.size() || promised >= text.size();
        if (!cut || text.size() == kLongestText) {
            return Diagnostic{Calls<Char>::Decode(state.data(), FilledLength(state.data(), kStateLength)),
                              Calls<Char>::Decode(text.data(), filled), static_cast<int>(native)};
        }
        text.assign(std::min(kLongestText, std::max(text.size() * 2, promised + 1)), 0);
    }
}

}  // namespace

std::vector<Diagnostic> ReadDiagnostics(SQLSMALLINT handleType, SQLHANDLE handle, TextForm form) {
    std::vector<Diagnostic> diagnostics;
    for (SQLSMALLINT number = 1; handle != nullptr && number <= kMostRecords; ++number) {
        std::optional<Diagnostic> diagnostic = WithCharacterOf(form, [&](auto character) {
            return ReadRecord<decltype(character)>(handleType, handle, number);
        });
        if (!diagnostic) break;
        diagnostics.push_back(std::move(*diagnostic));
    }
    if (diagnostics.empty()) diagnostics.push_back({"HY000", "The driver gave no reason", 0});
    return diagnostics;
}

std::string DiagnosticText(const Diagnostic& diagnostic) {
    return "[" + diagnostic.state + "] " + diagnostic.text + " (" + std::to_string(diagnostic.native) + ")";
}

std::vector<std::string> DiagnosticTexts(const std::vector<Diagnostic>& diagnostics,
                                         const std::vector<std::string>& passwords) {
    std::vector<std::string> texts;
    texts.reserve(diagnostics.size());
    for (Diagnostic diagnostic : diagnostics) {
        diagnostic.text = MaskPasswords(diagnostic.text, passwords);
        texts.push_back(DiagnosticText(diagnostic));
    }
    return texts;
}

bool TellsBrokenLink(const std::vector<Diagnostic>& diagnostics) {
    return std::any_of(diagnostics.begin(), diagnostics.end(), [](const Diagnostic& diagnostic) {
        return diagnostic.state.starts_with("08") || diagnostic.state.starts_with("57P0");
    });
}

}  // namespace ventlock::odbc
