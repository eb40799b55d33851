#pragma once

#include <string>

namespace ventlock::bench {

/// Waits until a process has used no processor for a while.
/// @throws std::runtime_error when it never rests or ends
void AwaitIdle(int process);

/// What all its threads have had of the processor so far, in the program and in the system for it.
double ProcessorSeconds(int process);

/// What it has in memory now, in KiB, what it shares with others included. @throws std::runtime_error
long ResidentKiB(int process);

/// The most that it has had in memory since its start or ForgetPeak, in KiB. @throws std::runtime_error
long PeakKiB(int process);
void ForgetPeak(int process);

/// Whether it has a file open. @throws std::runtime_error
bool HasOpen(int process, const std::string& path);

}  // namespace ventlock::bench
