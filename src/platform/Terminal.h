#pragma once

namespace ventlock {

/// True when stderr is shown to somebody as it is written.
bool IsErrorTerminal();

}  // namespace ventlock
