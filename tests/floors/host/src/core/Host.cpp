#include "platform/posix/PosixFiles.h"
