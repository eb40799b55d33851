// A version list of any text.

#include <algorithm>
#include <string>
#include <vector>

#include "base/Text.h"
#include "entry/VersionList.h"
#include "fuzz/Fields.h"
#include "fuzz/Require.h"

namespace ventlock::test {
namespace {

struct CountedEvents final : IEvents {
    std::size_t count = 0;
    void Yield() override { ++count; }
};

std::string Joined(const std::vector<std::string>& items, std::string_view separator) {
    std::string joined;
    for (const std::string& item : items) joined += item + std::string(separator);
    return joined;
}

/// Each item ended by "|". A separator ends one, and the blanks behind it go with it; the end of the text
/// ends one unless a separator has just done so.
std::string Expected(std::string_view text) {
    std::string expected;
    bool isOpen = false;
    bool skipsBlanks = true;
    for (const char c : Trim(text)) {
        if (c == ' ' && skipsBlanks) continue;
        skipsBlanks = c == ' ' || c == ',';
        isOpen = !skipsBlanks;
        expected += isOpen ? c : '|';
    }
    return isOpen ? expected + '|' : expected;
}

void TryList(std::string_view text) {
    CountedEvents events;
    const std::vector<std::string> items = ParseVersionList(text, events);
    RequireSame(Joined(items, "|"), Expected(text),
                "each separator ends an item and takes the blanks behind it");
    Require(events.count <= text.size(), "events run once a character at most", text);

    std::vector<std::string> filled;
    std::copy_if(items.begin(), items.end(), std::back_inserter(filled),
                 [](const std::string& item) { return !item.empty(); });
    Require(ParseVersionList(Joined(filled, ", "), events) == filled, "items that are joined read back",
            text);
}

}  // namespace
}  // namespace ventlock::test

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ventlock::test::TryList(ventlock::test::Fields(data, size).Rest());
    return 0;
}
