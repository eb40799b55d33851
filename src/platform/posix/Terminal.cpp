#include "platform/Terminal.h"

#include <unistd.h>

namespace ventlock {

bool IsErrorTerminal() {
    return isatty(STDERR_FILENO) == 1;
}

}  // namespace ventlock
