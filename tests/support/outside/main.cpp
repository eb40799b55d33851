// The start of every program of tests from outside.
#include <gtest/gtest.h>

#include "support/outside/Screenshot.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    ventlock::test::TakeScreenshotsOfFailures();
    return RUN_ALL_TESTS();
}
