#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "cli/Advice.h"
#include "platform/Casing.h"

namespace ventlock::test {
namespace {

const bool kIsWide = sizeof(void*) == 8;
const std::string kBits = kIsWide ? "64-bit" : "32-bit";

// A 64-bit system has a folder of its own for 32-bit programs. The system writes the names of its folders in
// upper or lower case as it likes.
const bool kHasFolderOfItsOwn = !kIsWide && std::filesystem::exists("C:\\Windows\\SysWOW64");
const std::string kAdministrator =
    "\"ODBC Data Sources (" + kBits + ")\" (" +
    (kHasFolderOfItsOwn ? "C:\\Windows\\SysWOW64\\odbcad32.exe" : "C:\\Windows\\System32\\odbcad32.exe") +
    ")";

TEST(DriverAdvice, OfAnotherWordSizeNamesTheProgramsOwnAndItsAdministrator) {
    EXPECT_EQ(
        UpperCase(ConnectAdvice({"[IM014] [Microsoft][ODBC Driver Manager] The specified DSN contains an "
                                 "architecture mismatch between the Driver and Application (0)"},
                                false)),
        UpperCase("The driver is of another word size than this program. This program is a " + kBits +
                  " one: install the " + kBits + " driver and make the data source with " + kAdministrator +
                  "."));
}

TEST(DriverAdvice, OfAMissingDriverNamesTheAdministratorThatListsDrivers) {
    for (const char* const state : {"[IM003]", "[IM004]", "[IM005]"}) {
        const std::string advice =
            ConnectAdvice({std::string(state) + " Specified driver could not be loaded (0)"}, false);
        EXPECT_EQ(UpperCase(advice),
                  UpperCase("The data source's driver is not installed. Install the " + kBits + " driver; " +
                            kAdministrator + " lists those that are installed."));
        EXPECT_EQ(advice.find("odbcinst"), std::string::npos);
    }
}

}  // namespace
}  // namespace ventlock::test
