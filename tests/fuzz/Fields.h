#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// What the fuzzer calls with each of its inputs, and the test with each of the corpus.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace ventlock::test {

/// An input that stands for several texts: each but the last ends in the byte 1F, the "unit separator".
class Fields {
 public:
    /// The input must outlive this object.
    Fields(const std::uint8_t* data, std::size_t size);

    /// The next text, "" when there is none any more.
    std::string Next();

    /// All that has not been taken, separators included.
    [[nodiscard]] std::string_view Rest() const { return rest_; }

    [[nodiscard]] bool IsAtEnd() const { return rest_.empty(); }

 private:
    std::string_view rest_;
};

}  // namespace ventlock::test
