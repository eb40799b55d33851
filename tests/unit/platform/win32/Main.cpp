#include <gmock/gmock.h>

#include "unit/platform/win32/Children.h"

int main(int argc, char** argv) {
    if (const auto exitCode = ventlock::test::RunTask()) return *exitCode;
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
