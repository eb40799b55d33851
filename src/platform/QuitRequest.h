#pragma once

namespace ventlock {

/// From now on the host's wish that the program end (SIGTERM, SIGHUP, SIGINT) no longer ends it at once but
/// is remembered, so that a window can close as if its user had closed it. Where the toolkit tells windows of
/// the end of the session by itself, there is nothing to do.
void WatchQuitRequests();

/// True once such a wish has come.
bool QuitRequested();

}  // namespace ventlock
