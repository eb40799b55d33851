#include "platform/Terminal.h"

#include <windows.h>

namespace ventlock {

bool IsErrorTerminal() {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
}

}  // namespace ventlock
