#include "load/LoadSize.h"

#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

namespace ventlock::test {

unsigned NumberFromEnvironment(const char* name, unsigned fallback) {
    const char* const text = std::getenv(name);
    return text == nullptr ? fallback : static_cast<unsigned>(std::stoul(text));
}

unsigned LoadSeed() {
    const unsigned seed = NumberFromEnvironment("VENTLOCK_SEED", std::random_device{}());
    std::printf("VENTLOCK_SEED=%u\n", seed);
    return seed;
}

}  // namespace ventlock::test
