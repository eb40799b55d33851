#pragma once

#include <cstdint>
#include <optional>

#include "base/RunTimeError.h"
#include "platform/IWindowPlace.h"

namespace ventlock::test {

/// A window without a screen: it stands where it was put last.
struct FakeWindowPlace final : IWindowPlace {
    std::int16_t left = 0;
    std::int16_t top = 0;
    std::optional<ErrorNumber> refusal;  ///< raised by every call as long as it is set

    [[nodiscard]] std::int16_t Left() const override {
        Refuse();
        return left;
    }
    [[nodiscard]] std::int16_t Top() const override {
        Refuse();
        return top;
    }
    void Move(std::int16_t newLeft, std::int16_t newTop) override {
        Refuse();
        left = newLeft;
        top = newTop;
    }

 private:
    void Refuse() const {
        if (refusal) throw RunTimeError(*refusal);
    }
};

}  // namespace ventlock::test
