#pragma once

#include <cstddef>

namespace ventlock::test {

/// Lets the next single object of exactly `size` bytes that this thread makes fail for lack of memory. A
/// program that uses it gets an operator new of its own.
class FailingMemory {
 public:
    explicit FailingMemory(std::size_t size) noexcept;
    ~FailingMemory();
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;

    /// True once the allocation was asked for and refused.
    [[nodiscard]] bool HasRefused() const noexcept;
};

}  // namespace ventlock::test
