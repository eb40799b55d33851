#pragma once

#include <functional>

#include "platform/IEvents.h"

namespace ventlock::test {

/// Does something at one of the yields, as another user of the database would.
struct ActingEvents final : IEvents {
    int yields = 0;
    int actsAt = 0;
    std::function<void()> action;
    void Yield() override {
        if (++yields == actsAt) action();
    }
};

}  // namespace ventlock::test
