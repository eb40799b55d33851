#pragma once

namespace ventlock::bench {

/// What a piece of work took.
struct Usage {
    double seconds = 0;        ///< by the clock on the wall
    double userSeconds = 0;    ///< of the processor, in the programs; 0 for work in the harness's own process
    double systemSeconds = 0;  ///< of the processor, in the system for them
    long peakKiB = 0;          ///< most memory a program had, in KiB
    long idleKiB = 0;          ///< what a window had once it had nothing more to do, in KiB
};

}  // namespace ventlock::bench
