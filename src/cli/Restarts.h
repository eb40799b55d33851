#pragma once

#include <string>

#include "db/StatementJournal.h"

namespace ventlock {

/// The restarts of one entry, or of a transaction of many. A number is searched first and inserted then; when
/// another program inserts it in between, the database refuses it, and the work is started anew: what is
/// there by now is found, and the rest gets other numbers. A statement that the database gave up in favour of
/// another program's is treated alike.
class Restarts {
 public:
    /// What is started anew. A transaction stands in another program's way for longer, but nobody can be at
    /// work on a row that a second look in it does not show.
    enum class Of { Entry, Transaction };

    explicit Restarts(Of what) : what_(what) {}

    /// To be asked about a write that has failed, in a transaction after its rollback.
    /// @param journal  its statements and what the driver said; without a statement it was the commit
    /// @return True when another program was in the way of its last statement and the work may be started
    ///         anew; some milliseconds of waiting have passed then, so that two programs do not meet again
    ///         and again
    bool StartAnew(const StatementJournal& journal);

    /// How often the work has been started anew.
    [[nodiscard]] int Count() const noexcept { return count_; }

    /// True when the same row was refused so often that nobody can be at work on it: a program that was ended
    /// between two statements has left it.
    [[nodiscard]] bool MetLeftRow() const noexcept;

 private:
    static constexpr int kMostRestarts = 30;

    Of what_;
    int count_ = 0;
    std::string refused_;  ///< the last refused statement
    int refusals_ = 0;     ///< how often in a row
};

}  // namespace ventlock
