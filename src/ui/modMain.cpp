#include "ui/modMain.h"

namespace ventlock {

bool gbTerminate = false;

}  // namespace ventlock
