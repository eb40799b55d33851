#pragma once

#include <gmock/gmock.h>

#include <string>
#include <string_view>
#include <vector>

#include "support/Product.h"

namespace ventlock::test {

/// What a database, or the driver manager in front of it, may refuse.
enum class Refusal {
    TakenKey,          ///< a primary or unique key that another row has
    UnknownReference,  ///< a new or changed row refers to one that is not there
    ReferredRow,       ///< a deleted row that another refers to
    LongText,
    Apostrophe,  ///< one within a text of a statement
    BareMarker,  ///< a question mark outside of texts
    MissingTable,
    LockedTable,      ///< a table that somebody else keeps locked until the limit
    LockLimit,        ///< a lock that is not to be had within the database's own limit
    Deadlock,         ///< two connections wait for each other's rows
    OutOfOrder,       ///< what two transactions read and wrote fits no order of the two
    LostConnection,   ///< the first statement after the server was killed
    CutSnapshot,      ///< the connection ends while rows are read
    AbsentServer,     ///< a connect to a server that does not run
    UnknownDatabase,  ///< a connect to a database, or a file in a folder, that is not there
    MissingDriver,    ///< a connect by a driver whose library is not there
    OtherWordSize,    ///< a connect by a driver made for programs of the other word size
};

/// One diagnostic record; `words` is a part of its text.
struct DriverAnswer {
    std::string_view state;
    int native = 0;
    std::string_view words;
};

/// One refusal in the words of docs/database-drivers.md, and what each product's driver answers to it. A
/// product that cannot refuse so has an empty state.
struct RefusalRow {
    Refusal refusal;
    std::string_view title;
    DriverAnswer sqlite;
    DriverAnswer postgresql;
    DriverAnswer mariadb;

    [[nodiscard]] const DriverAnswer& Of(Product product) const;
};

/// All refusals, in the document's order.
const std::vector<RefusalRow>& Refusals();

/// What the driver of a product answers.
const DriverAnswer& AnswerOf(Refusal refusal, Product product);

/// Matches the diagnostic text, "[state] text (native)", by which the tested product's driver answers.
testing::Matcher<std::string> DriverSays(Refusal refusal);

/// Matches the log entry of a call that the tested product's driver answers so.
testing::Matcher<std::string> RefusedEntry(std::string_view tagAndStep, Refusal refusal);

}  // namespace ventlock::test
