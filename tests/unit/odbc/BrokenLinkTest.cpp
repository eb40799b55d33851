#include <gtest/gtest.h>

#include "platform/odbc/Diagnostics.h"

namespace ventlock::test {
namespace {

using odbc::Diagnostic;
using odbc::TellsBrokenLink;

TEST(BrokenLink, IsToldByTheClassOfConnectionsAndByAServersFarewell) {
    for (const char* state : {"08S01", "08003", "08007", "57P01", "57P02", "57P03"})
        EXPECT_TRUE(TellsBrokenLink({Diagnostic{state, "words", 1}})) << state;
    EXPECT_TRUE(TellsBrokenLink({Diagnostic{"HY000", "words", 1}, Diagnostic{"08S01", "words", 1}}));
}

TEST(BrokenLink, IsNotToldByAStatementThatWasStoppedOrRefused) {
    for (const char* state : {"57014", "23505", "23000", "40001", "HY000", "HYT00"})
        EXPECT_FALSE(TellsBrokenLink({Diagnostic{state, "words", 1}})) << state;
    EXPECT_FALSE(TellsBrokenLink({}));
}

}  // namespace
}  // namespace ventlock::test
