#include "db/clsTavDB.h"
