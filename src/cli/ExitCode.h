#pragma once

namespace ventlock {

/// How the program ends. The numbers are a promise to build pipelines.
enum class ExitCode : int {
    Done = 0,          ///< everything asked for was done
    TargetFailed = 1,  ///< at least one target failed
    WrongCall = 2,     ///< the call or the entry file is wrong
    Unreachable = 3,   ///< a target cannot be reached
};

}  // namespace ventlock
