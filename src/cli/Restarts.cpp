#include "cli/Restarts.h"

#include <algorithm>
#include <chrono>
#include <random>
#include <thread>

#include "platform/odbc/DriverAnswers.h"

namespace ventlock {
namespace {

using std::chrono::milliseconds;

struct Patience {
    milliseconds step;     ///< by which the longest pause grows from restart to restart
    milliseconds longest;  ///< of all pauses
    int refusalsOfALeftRow;
};

constexpr Patience kWithEntry{milliseconds(10), milliseconds(100), 15};
constexpr Patience kWithTransaction{milliseconds(50), milliseconds(1000), 3};

constexpr const Patience& PatienceWith(Restarts::Of what) {
    return what == Restarts::Of::Entry ? kWithEntry : kWithTransaction;
}

}  // namespace

bool Restarts::StartAnew(const StatementJournal& journal) {
    const auto& answer = journal.Diagnostics();
    if (count_ == kMostRestarts || (!odbc::TellDuplicate(answer) && !odbc::TellGivenUp(answer))) return false;
    ++count_;
    const std::string statement = journal.Entries().empty() ? "" : journal.Entries().back().statement;
    refusals_ = !statement.empty() && statement == refused_ ? refusals_ + 1 : 1;
    refused_ = statement;
    const Patience& patience = PatienceWith(what_);
    const milliseconds longest = std::min(patience.step * count_, patience.longest);
    std::random_device random;
    std::this_thread::sleep_for(
        milliseconds(std::uniform_int_distribution<milliseconds::rep>(0, longest.count())(random)));
    return true;
}

bool Restarts::MetLeftRow() const noexcept {
    return refusals_ >= PatienceWith(what_).refusalsOfALeftRow;
}

}  // namespace ventlock
