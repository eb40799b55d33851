#include "files/TargetDiff.h"

#include <filesystem>

#include "support/Raised.h"
#include "unit/files/FilesWorld.h"

namespace ventlock::test {
namespace {

class TargetDiffs : public FilesWorld {
 protected:
    [[nodiscard]] std::string Path() const { return folder_ / "Pyx.ini"; }
};

TEST_F(TargetDiffs, TellWhatHasChangedSinceTheyWereMade) {
    WriteBytes(Path(), "a\r\nb\r\n");
    const TargetDiff diff(profiles_, Path());
    EXPECT_EQ(diff.Text(), "");
    WriteBytes(Path(), "a\r\nc\r\n");
    EXPECT_EQ(diff.Text(), "--- " + Path() + "\n+++ " + Path() + "\n@@ -1,2 +1,2 @@\n a\n-b\n+c\n");
}

TEST_F(TargetDiffs, OfANewFileBeginAtNothing) {
    const TargetDiff diff(profiles_, Path());
    WriteBytes(Path(), "a\r\n");
    EXPECT_EQ(diff.Text(), "--- /dev/null\n+++ " + Path() + "\n@@ -0,0 +1,1 @@\n+a\n");
}

TEST_F(TargetDiffs, ShowTheTextOfTheFilesCodePage) {
    WriteBytes(Path(), "B\xE4r\r\n");
    const TargetDiff diff(profiles_, Path());
    WriteBytes(Path(), "B\xF6r\r\n");
    EXPECT_THAT(diff.Text(), testing::HasSubstr("-B\xC3\xA4r\n+B\xC3\xB6r\n"));
}

TEST_F(TargetDiffs, OfAFileThatIsGoneAreAnError) {
    WriteBytes(Path(), "a\r\n");
    const TargetDiff diff(profiles_, Path());
    std::filesystem::remove(Path());
    EXPECT_EQ(NumberRaisedBy([&] { (void)diff.Text(); }), 53);
}

}  // namespace
}  // namespace ventlock::test
