#include "support/SystemWords.h"

#include <cstring>

namespace ventlock::test {

std::string SystemWords(unsigned long code) {
    return strerrordesc_np(static_cast<int>(code));
}

}  // namespace ventlock::test
