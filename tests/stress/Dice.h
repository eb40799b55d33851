#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

namespace ventlock::test {

/// What decides in a random sequence. The same seed decides the same, on every machine.
class Dice {
 public:
    explicit Dice(std::uint32_t seed) : random_(seed) {}

    /// A number from 0 up to, but without, `count`.
    int Below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    bool OneIn(int count) { return Below(count) == 0; }

    /// One element of a list that has some.
    template <class List>
    auto& OneOf(List& list) {
        return list[static_cast<std::size_t>(Below(static_cast<int>(std::size(list))))];
    }

 private:
    std::mt19937 random_;
};

}  // namespace ventlock::test
