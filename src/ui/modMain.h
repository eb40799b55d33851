#pragma once

namespace ventlock {

/// True once the program is to end. Only the main loop's poll reads it; closing the main window sets it, and
/// so does a start-up that cannot fill its lists.
extern bool gbTerminate;

}  // namespace ventlock
