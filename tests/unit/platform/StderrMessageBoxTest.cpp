#include "platform/StderrMessageBox.h"

#include <gtest/gtest.h>

#include <optional>

#include "support/Fakes.h"

namespace ventlock::test {
namespace {

TEST(StderrMessageBox, PrintsTitleAndTextOnOneLine) {
    FakeAppInfo info;
    info.title = "The Tool";
    StderrMessageBox box(info);
    testing::internal::CaptureStderr();
    box.Show("Unable to connect to database.", "Log Entry", std::nullopt);
    box.Show("Grüße", "", MessageHelp{"help.hlp", 1});
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Log Entry: Unable to connect to database.\nThe Tool: Grüße\n");
}

}  // namespace
}  // namespace ventlock::test
