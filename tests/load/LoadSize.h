#pragma once

namespace ventlock::test {

/// A whole number of the environment; `fallback` without it.
unsigned NumberFromEnvironment(const char* name, unsigned fallback);

/// How often a test is to repeat its work: VENTLOCK_LOAD, else a number that an ordinary run has time for.
inline unsigned LoadSize() {
    return NumberFromEnvironment("VENTLOCK_LOAD", 10);
}

/// What chance starts from, printed: VENTLOCK_SEED, else another number each time.
unsigned LoadSeed();

}  // namespace ventlock::test
