#pragma once

/// What a test does to the mock driver that it has loaded; the driver manager loads the same library.
extern "C" {

/// Lets all calls that hang go on, and those to come.
void MockRelease();

/// Lets calls hang again and sets the counters to 0.
void MockReset();

/// Waits until exactly so many calls hang.
void MockWaitForHanging(int calls);

/// Calls of SQLCancel since MockReset.
int MockCancels();

/// Statements executed since MockReset.
int MockExecutions();

/// Connections that were asked to be read-only since MockReset.
int MockReadOnlyConnections();
}
