#include "support/DriverAnswers.h"

#include <algorithm>

#include "support/TestedDatabase.h"

namespace ventlock::test {
namespace {

std::string Begin(const DriverAnswer& answer) {
    return "[" + std::string(answer.state) + "] ";
}

std::string End(const DriverAnswer& answer) {
    return " (" + std::to_string(answer.native) + ")";
}

}  // namespace

const DriverAnswer& RefusalRow::Of(Product product) const {
    if (product == Product::Postgresql) return postgresql;
    return product == Product::Mariadb ? mariadb : sqlite;
}

const std::vector<RefusalRow>& Refusals() {
    static const std::vector<RefusalRow> rows{
        {Refusal::TakenKey,
         "A primary or unique key is taken",
         {"HY000", 19, "UNIQUE constraint failed"},
         {"23505", 1, "duplicate key value violates unique constraint"},
         {"23000", 1062, "Duplicate entry"}},
        {Refusal::UnknownReference,
         "A new or changed row refers to one that is not there",
         {"HY000", 19, "FOREIGN KEY constraint failed"},
         {"23503", 1, "violates foreign key constraint"},
         {"23000", 1452, "Cannot add or update a child row"}},
        {Refusal::ReferredRow,
         "A deleted row is referred to",
         {"HY000", 19, "FOREIGN KEY constraint failed"},
         {"23503", 1, "violates foreign key constraint"},
         {"23000", 1451, "Cannot delete or update a parent row"}},
        {Refusal::LongText,
         "A text is longer than its column",
         {"HY000", 19, "CHECK constraint failed"},
         {"22001", 1, "value too long for type character varying"},
         {"22001", 1406, "Data too long for column"}},
        {Refusal::Apostrophe,
         "An apostrophe stands in a text",
         {"HY000", 1, "syntax error"},
         {"42601", 1, "syntax error"},
         {"42000", 1064, "You have an error in your SQL syntax"}},
        {Refusal::BareMarker,
         "A question mark stands outside of texts",
         {"HY000", -1, "unbound parameters in query"},
         {"07002", 32, "Parameters exist but IPD isn't set"},
         {"HY000", 1835, "Malformed communication packet"}},
        {Refusal::MissingTable,
         "A table is missing",
         {"HY000", 1, "no such table"},
         {"42P01", 1, "does not exist"},
         {"42S02", 1146, "doesn't exist"}},
        {Refusal::LockedTable,
         "A table is locked until the limit",
         {"HY000", 5, "database is locked"},
         {"57014", 1, "canceling statement due to user request"},
         {"HY018", 1317, "Query execution was interrupted"}},
        {Refusal::LockLimit,
         "A lock is not to be had within the database's own limit",
         {"HY000", 5, "database is locked"},
         {"55P03", 1, "canceling statement due to lock timeout"},
         {"HY000", 1205, "Lock wait timeout exceeded"}},
        {Refusal::Deadlock,
         "Two programs wait for each other's rows",
         {},
         {"40P01", 1, "deadlock detected"},
         {"40001", 1213, "Deadlock found when trying to get lock"}},
        {Refusal::OutOfOrder,
         "What two programs read and wrote fits no order of the two",
         {},
         {"40001", 1, "could not serialize access"},
         {"HY000", 1020, "Record has changed since last read"}},
        {Refusal::LostConnection,
         "The server was killed since the last statement",
         {},
         {"08S01", 35, "The connection has been lost"},
         {"08S01", 2006, "Server has gone away"}},
        {Refusal::CutSnapshot,
         "The connection ends while rows are read",
         {},
         {"57P01", 35, "terminating connection due to administrator command"},
         {"08S01", 2013, "Lost connection"}},
        {Refusal::AbsentServer,
         "The server does not run",
         {},
         {"08001", 101, "Is the server running locally"},
         {"HY000", 2002, "Can't connect to local server"}},
        {Refusal::UnknownDatabase,
         "The database, or the folder of its file, is not there",
         {"HY000", 14, "[SQLite]connect failed"},
         {"08001", 101, "FATAL:  database \"nowhere\" does not exist"},
         {"42000", 1049, "Unknown database"}},
        {Refusal::MissingDriver,
         "The driver's library is not there",
         {"01000", 0, "Can't open lib"},
         {"01000", 0, "Can't open lib"},
         {"01000", 0, "Can't open lib"}},
        {Refusal::OtherWordSize,
         "The driver is of another word size",
         {"01000", 0, "Can't open lib"},
         {"01000", 0, "Can't open lib"},
         {"01000", 0, "Can't open lib"}},
    };
    return rows;
}

const DriverAnswer& AnswerOf(Refusal refusal, Product product) {
    const auto row = std::find_if(Refusals().begin(), Refusals().end(),
                                  [&](const RefusalRow& candidate) { return candidate.refusal == refusal; });
    return row->Of(product);
}

testing::Matcher<std::string> DriverSays(Refusal refusal) {
    const DriverAnswer& answer = AnswerOf(refusal, TestedProduct());
    return testing::AllOf(testing::StartsWith(Begin(answer)), testing::HasSubstr(std::string(answer.words)),
                          testing::EndsWith(End(answer)));
}

testing::Matcher<std::string> RefusedEntry(std::string_view tagAndStep, Refusal refusal) {
    const DriverAnswer& answer = AnswerOf(refusal, TestedProduct());
    return testing::AllOf(
        testing::StartsWith(std::string(tagAndStep) + ": ODBC--call failed. " + Begin(answer)),
        testing::HasSubstr(std::string(answer.words)), testing::EndsWith(End(answer) + " (3146)"));
}

}  // namespace ventlock::test
