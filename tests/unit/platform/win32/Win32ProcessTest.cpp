#include "platform/win32/Win32Process.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/win32/WideText.h"
#include "support/TempFolder.h"
#include "support/WorkingFolder.h"
#include "unit/platform/win32/Children.h"
#include "unit/platform/win32/FileFacts.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

/// A file that every program started from now on may use, if the one who starts it lets it.
FileHandle InheritableFile(const std::string& path) {
    SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    return FileHandle(CreateFileW(ToWideText(path).c_str(), GENERIC_WRITE, 0, &inheritable, CREATE_NEW,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
}

/// Waits until nothing runs the program any more, so that its file can be removed.
void AwaitEndOf(const std::string& program) {
    const std::wstring path = ToWideText(program);
    const auto isFree = [&] {
        return FileHandle(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr))
            .IsOpen();
    };
    const ULONGLONG end = GetTickCount64() + 60000;
    while (!isFree() && GetTickCount64() < end) SwitchToThread();
    EXPECT_TRUE(isFree()) << "the program does not end";
}

TEST(Win32Process, StartsAProgramWithoutArgumentsWithoutOurHandlesAndDoesNotWaitForIt) {
    TempFolder folder;
    const std::string program = folder / "my viewer & Ελληνικά.exe";
    fs::copy_file(PathOf(ThisProgram()), PathOf(program));
    const Signal started(folder.Path(), "started");
    const Signal end(folder.Path(), "end");
    {
        const ChildTask task(kReport, folder.Path());
        FileHandle ours = InheritableFile(folder / "ours");
        ASSERT_TRUE(ours.IsOpen());
        EXPECT_TRUE(Win32Process().Start(program));
    }
    started.Await();  // it runs on until the end is given: nobody waits for it
    EXPECT_EQ(ReadBytes(folder / "report.txt"), "\"" + program + "\"");
    EXPECT_TRUE(HoldOpen(folder / "ours", 0).IsOpen()) << "the program holds it";
    end.Give();
    AwaitEndOf(program);
}

TEST(Win32Process, AProgramThatCannotBeStartedIsFalse) {
    TempFolder folder;
    const WorkingFolder here(folder.Path());
    WriteBytes(folder / "nonsense.exe", "no program at all");
    WriteBytes(folder / "batch.bat", "@echo started > started.txt\r\n");
    Win32Process process;
    EXPECT_FALSE(process.Start(""));
    EXPECT_FALSE(process.Start("   "));
    EXPECT_FALSE(process.Start(folder / "missing.exe"));
    EXPECT_FALSE(process.Start(folder.Path()));
    EXPECT_FALSE(process.Start(folder / "nonsense.exe"));
    EXPECT_FALSE(process.Start(folder / "batch.bat")) << "that would take a shell";
    EXPECT_FALSE(process.Start("hostname.exe")) << "there is no search in PATH";
    EXPECT_FALSE(process.Start("C:\\windows\\system32\\hostname.exe -x"));
    EXPECT_FALSE(process.Start(std::string("C:\\windows\\system32\\hostname.exe\0", 33)));
    EXPECT_EQ(folder.Listing(), "batch.bat nonsense.exe");
}

TEST(Win32Process, NoHandleOfTheProgramStaysOpen) {
    TempFolder folder;
    const std::string program = folder / "viewer.exe";
    fs::copy_file(PathOf(ThisProgram()), PathOf(program));
    {
        const ChildTask task(kNothing, folder.Path());
        Win32Process process;
        EXPECT_TRUE(process.Start(program));  // what the system keeps from a first time on is open now
        const int before = OpenHandleCount();
        EXPECT_TRUE(process.Start(folder.Path() + "/viewer.exe"));
        EXPECT_EQ(OpenHandleCount(), before);
    }
    AwaitEndOf(program);
}

}  // namespace
}  // namespace ventlock::test
