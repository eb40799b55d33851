#pragma once

#include <functional>

#include "db/clsConnection.h"
#include "platform/Database.h"

namespace ventlock {

/// Engines whose every connection is `connection`, for work beside the one that opened it: nothing is opened
/// and nothing closed. `beforeCall` runs before each call and ends it by what it raises. Both must outlive
/// the engines' connections.
EngineFactory Borrowing(IConnection& connection, std::function<void()> beforeCall);

}  // namespace ventlock
