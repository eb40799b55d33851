// What the locks of every host do.

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include "unit/platform/FilesTest.h"

namespace ventlock::test {
namespace {

using std::chrono::milliseconds;

TEST_F(FileLockTest, IsAFileBesideTheOneThatItGuardsAndGoesWithIt) {
    auto lock = patient_->Lock(folder_ / "a.ini");
    EXPECT_EQ(folder_.Listing(), ".a.ini.lock");
    lock.reset();
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(FileLockTest, AnotherHolderIsWaitedForWithinTheBound) {
    const auto lock = patient_->Lock(folder_ / "a.ini");
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_THAT(TextRaisedBy([&] { impatient_->Lock(folder_ / "a.ini"); }),
                testing::StartsWith("Permission denied \"" + folder_ / "a.ini" + "\": "));
    EXPECT_GE(std::chrono::steady_clock::now() - begin, milliseconds(30));
    EXPECT_EQ(NumberRaisedBy([&] { impatient_->Lock(folder_ / "a.ini"); }), 70);
    EXPECT_EQ(NumberRaisedBy([&] { impatient_->Lock(folder_ / "b.ini"); }), 0);
}

TEST_F(FileLockTest, OutlastsTheReplacementOfItsFile) {
    const auto lock = patient_->Lock(folder_ / "a.ini");
    patient_->Replace(folder_ / "a.ini", "1");
    patient_->Replace(folder_ / "a.ini", "2");
    EXPECT_EQ(NumberRaisedBy([&] { impatient_->Lock(folder_ / "a.ini"); }), 70);
}

TEST_F(FileLockTest, KeepsThreadsOfOneProgramApart) {
    constexpr int kThreads = 4;
    constexpr int kTimes = 50;
    std::atomic<int> holders = 0;
    std::atomic<bool> shared = false;
    int count = 0;
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&] {
            for (int n = 0; n < kTimes; ++n) {
                const auto lock = patient_->Lock(folder_ / "a.ini");
                if (++holders != 1) shared = true;
                ++count;
                --holders;
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_FALSE(shared);
    EXPECT_EQ(count, kThreads * kTimes);
    EXPECT_EQ(folder_.Listing(), "");
}

}  // namespace
}  // namespace ventlock::test
