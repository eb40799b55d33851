#pragma once

#include <string_view>
#include <vector>

#include "entry/EntryForm.h"
#include "entry/RequiredFields.h"

namespace ventlock {

/// Why a write command cannot be used; nothing in it when it can, or when its entry has been written already.
struct WriteObstacles {
    bool isNotConnected = false;
    std::vector<std::string_view> emptyFields;  ///< keys of RequiredFields, in their order

    [[nodiscard]] bool Any() const { return isNotConnected || !emptyFields.empty(); }
};

/// What stands in the way of the command of the one target that is set in `target`.
WriteObstacles ObstaclesOf(const Targets& target, const EntryForm& form, bool isConnected);

}  // namespace ventlock
