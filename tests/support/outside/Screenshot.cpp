#include "support/outside/Screenshot.h"

#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <iostream>

namespace ventlock::test {
namespace {

class FailureScreenshots final : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo& test) override {
        path_ = std::string(VENTLOCK_SCREENSHOT_FOLDER) + "/" + test.test_suite_name() + "." + test.name() +
                ".png";
        std::filesystem::remove(path_);  // one of an earlier run would mislead
        taken_ = false;
    }

    void OnTestPartResult(const testing::TestPartResult& result) override {
        if (!result.failed() || taken_ || path_.empty()) return;
        taken_ = true;
        const std::string error = TakeScreenshot(path_);
        std::cout << "screenshot: " << (error.empty() ? path_ : error) << std::endl;
    }

    std::string path_;
    bool taken_ = false;
};

}  // namespace

std::string TakeScreenshot(const std::string& path) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::array<std::string, 4> words = {"import", "-window", "root", "png:" + path};
    std::array<char*, 5> arguments = {words[0].data(), words[1].data(), words[2].data(), words[3].data(),
                                      nullptr};
    pid_t process = -1;
    if (posix_spawnp(&process, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0) {
        return "import of ImageMagick cannot be started";
    }
    int status = -1;
    waitpid(process, &status, 0);
    return status == 0 ? "" : "import of ImageMagick failed for " + path;
}

void TakeScreenshotsOfFailures() {
    testing::UnitTest::GetInstance()->listeners().Append(new FailureScreenshots);
}

}  // namespace ventlock::test
