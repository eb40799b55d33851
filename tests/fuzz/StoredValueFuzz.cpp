// The text of a value in the registry's store file: the input is taken as such a text, and as the bytes of a
// value whose type is its first byte.

#include <algorithm>
#include <optional>
#include <string>

#include "base/Utf.h"
#include "fuzz/Fields.h"
#include "fuzz/Require.h"
#include "platform/posix/StoredValue.h"

namespace ventlock::test {
namespace {

void RequireReadsBack(const StoredValue& value) {
    const std::string text = StoredText(value);
    Require(IsUtf8(text) && std::none_of(text.begin(), text.end(),
                                         [](char c) { return (c >= 0 && c < 0x20) || c == 0x7F; }),
            "a stored text is one line of printable characters", text);
    const std::optional<StoredValue> read = ParseStoredText(text);
    Require(read.has_value(), "a stored text is understood", text);
    Require(read->type == value.type, "a type reads back", text);
    RequireSame(read->bytes, value.bytes, "bytes read back");
}

void TryValue(std::string_view input) {
    if (const std::optional<StoredValue> read = ParseStoredText(input)) RequireReadsBack(*read);
    if (input.empty()) return;
    RequireReadsBack({static_cast<unsigned char>(input[0]), std::string(input.substr(1))});
}

}  // namespace
}  // namespace ventlock::test

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ventlock::test::TryValue(ventlock::test::Fields(data, size).Rest());
    return 0;
}
