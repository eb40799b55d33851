#pragma once

#include <random>
#include <string>

#include "db/StatementJournal.h"

namespace ventlock {

/// The restarts of one entry. A number is searched first and inserted then; when another program inserts it
/// in between, the database refuses it, and the entry is started anew: what is there by now is found, and the
/// rest gets other numbers. A statement that the database gave up in favour of another program's is treated
/// alike.
class Restarts {
 public:
    /// To be asked about a write that has failed.
    /// @param journal  its statements and what the driver said
    /// @return True when another program was in the way of its last statement and the entry may be started
    /// anew;
    ///         some milliseconds of waiting have passed then, so that two programs do not meet again and
    ///         again
    bool StartAnew(const StatementJournal& journal);

    /// How often the entry has been started anew.
    [[nodiscard]] int Count() const noexcept { return count_; }

    /// True when the same row was refused so often that nobody can be at work on it: a program that was ended
    /// between two statements has left it.
    [[nodiscard]] bool MetLeftRow() const noexcept { return refusals_ >= kRefusalsOfALeftRow; }

 private:
    static constexpr int kMostRestarts = 30;
    static constexpr int kRefusalsOfALeftRow = 15;

    int count_ = 0;
    std::string refused_;  ///< the last refused statement
    int refusals_ = 0;     ///< how often in a row
    std::minstd_rand random_{std::random_device{}()};
};

}  // namespace ventlock
