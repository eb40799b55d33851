#pragma once

#include <sql.h>
#include <sqlext.h>

#include <array>
#include <condition_variable>
#include <mutex>
#include <string>
#include <vector>

namespace ventlock::mock {

struct Record {
    std::string state;
    int native = 0;
    std::u16string text;
};

/// Answers of the driver, chosen by a word in the name of the data source.
enum class Manner {
    Obedient,               ///< every statement succeeds
    HangsInConnect,         ///< until MockRelease
    HangsInExecute,         ///< until MockRelease, whatever SQLCancel says
    HangsUntilCancelled,    ///< the statement then fails with HY008
    SucceedsWhenCancelled,  ///< the statement was carried out after all
    HangsInDisconnect,      ///< until MockRelease
    ThreeRecords,           ///< a statement fails with three records, the second of 3000 characters
    NoRecord,               ///< a statement fails without a word
    WithInfo,               ///< connecting and statements succeed with a warning
    NoData,                 ///< a statement finds no row
    BreaksLink,             ///< a statement fails with 08S01
    LosesLink,              ///< a statement fails and the connection says that it is dead
    SmallBlocks,            ///< five rows of one column, never more than two at a time
    LongCell,               ///< one row of a column that is said to be short and is not
    RefusesConnect,         ///< and repeats the connect string with its password
    HangsInFetch,           ///< until MockRelease; there is no row
    SpoiltRow,              ///< two rows in one block, of which the second one cannot be read
    FailsInFetch,           ///< the first row cannot be fetched
    ReadsCommitted,         ///< transactions, but none that is serializable
};

struct Environment {};

struct Connection {
    Manner manner = Manner::Obedient;
    bool lost = false;
    std::vector<Record> records;
};

struct Statement {
    Connection* connection = nullptr;
    std::vector<Record> records;
    bool cancelled = false;
    bool hasRows = false;
    SQLULEN rowArraySize = 1;
    SQLULEN* rowsFetched = nullptr;
    SQLUSMALLINT* rowStates = nullptr;
    SQLWCHAR* target = nullptr;
    SQLLEN targetBytes = 0;
    SQLLEN* lengths = nullptr;
    std::size_t nextRow = 0;
    std::size_t readUnits = 0;  // of the current row's cell by SQLGetData
};

/// What all handles share.
struct Shared {
    std::mutex mutex;
    std::condition_variable changed;
    bool released = false;
    int hanging = 0;
    int cancels = 0;
    int executions = 0;
    int readOnlyConnections = 0;
};
Shared& State();

Manner MannerOf(const std::u16string& connect);

/// The rows that a statement of this manner gives.
std::vector<std::u16string> RowsOf(Manner manner);

/// Stays until `ready` says so under the lock.
template <class Ready>
void HangUntil(Ready ready) {
    Shared& shared = State();
    std::unique_lock lock(shared.mutex);
    ++shared.hanging;
    shared.changed.notify_all();
    shared.changed.wait(lock, ready);
    --shared.hanging;
    shared.changed.notify_all();
}

}  // namespace ventlock::mock
