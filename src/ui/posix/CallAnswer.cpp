#include "ui/CallAnswer.h"

#include <cstdio>

namespace ventlock {

bool TellAnswer(const std::string& text) {
    return std::fputs((text + "\n").c_str(), stdout) >= 0 && std::fflush(stdout) == 0;
}

}  // namespace ventlock
