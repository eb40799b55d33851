#include <gtest/gtest.h>

#include "cli/Advice.h"

namespace ventlock::test {
namespace {

const std::string kBits = sizeof(void*) == 8 ? "64-bit" : "32-bit";

TEST(DriverAdvice, OfAnotherWordSizeNamesTheProgramsOwnAndWhereDriversAreNamed) {
    EXPECT_EQ(ConnectAdvice({"[IM014] The specified DSN contains an architecture mismatch (0)"}, false),
              "The driver is of another word size than this program. This program is a " + kBits +
                  " one: install the " + kBits + " driver and name its library in odbcinst.ini.");
}

TEST(DriverAdvice, OfAMissingDriverNamesTheFileThatDriversAreNamedIn) {
    for (const char* const record :
         {"[01000] [unixODBC][Driver Manager]Can't open lib '/x.so' : file not found (0)",
          "[IM003] Specified driver could not be loaded (0)"}) {
        EXPECT_EQ(ConnectAdvice({record}, false),
                  "The data source's driver is not installed. Install it, or name its library in "
                  "odbcinst.ini.")
            << record;
    }
}

}  // namespace
}  // namespace ventlock::test
