#include "cli/Restarts.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "platform/odbc/DriverAnswers.h"

namespace ventlock {

bool Restarts::StartAnew(const StatementJournal& journal) {
    if (count_ == kMostRestarts || journal.Entries().empty()) return false;
    const auto& answer = journal.Diagnostics();
    if (!odbc::TellDuplicate(answer) && !odbc::TellGivenUp(answer)) return false;
    ++count_;
    const std::string& statement = journal.Entries().back().statement;
    refusals_ = statement == refused_ ? refusals_ + 1 : 1;
    refused_ = statement;
    constexpr int kLongestPause = 100;
    const int longest = std::min(10 * count_, kLongestPause);
    std::this_thread::sleep_for(
        std::chrono::milliseconds(std::uniform_int_distribution<int>(0, longest)(random_)));
    return true;
}

}  // namespace ventlock
