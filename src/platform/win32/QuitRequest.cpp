#include "platform/QuitRequest.h"

namespace ventlock {

void WatchQuitRequests() {
    // The system asks windows to close when the session ends, and the toolkit hands that on to them.
}

bool QuitRequested() {
    return false;
}

}  // namespace ventlock
