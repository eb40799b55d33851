#pragma once

#include <gtest/gtest.h>
#include <pthread.h>

#include <cstddef>
#include <limits>

namespace ventlock::test {

/// For as long as it lives the process can start no thread: each would need a stack larger than there is
/// memory.
class NoMoreThreads {
 public:
    NoMoreThreads() {
        EXPECT_EQ(pthread_getattr_default_np(&before_), 0);
        pthread_attr_t attributes;
        EXPECT_EQ(pthread_getattr_default_np(&attributes), 0);
        EXPECT_EQ(pthread_attr_setstacksize(&attributes, kMoreThanThereIs), 0);
        EXPECT_EQ(pthread_setattr_default_np(&attributes), 0);
        pthread_attr_destroy(&attributes);
    }
    ~NoMoreThreads() {
        EXPECT_EQ(pthread_setattr_default_np(&before_), 0);
        pthread_attr_destroy(&before_);
    }
    NoMoreThreads(const NoMoreThreads&) = delete;
    NoMoreThreads& operator=(const NoMoreThreads&) = delete;

 private:
    static constexpr std::size_t kMoreThanThereIs = std::numeric_limits<std::size_t>::max() / 4;

    pthread_attr_t before_{};
};

}  // namespace ventlock::test
