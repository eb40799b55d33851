#include "platform/ProgramInfo.h"

#include <gtest/gtest.h>

namespace ventlock {
namespace {

TEST(ProgramInfo, TellsTitleAndVersion) {
    ProgramInfo info;
    EXPECT_EQ(info.Title(), "Ventlock");
    EXPECT_EQ(info.Major(), 2);
    EXPECT_EQ(info.Minor(), 1);
    EXPECT_EQ(info.Revision(), 5);
}

}  // namespace
}  // namespace ventlock
