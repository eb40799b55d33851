#include "MockState.h"

#include <utility>

#include "support/MockDriverControl.h"

namespace ventlock::mock {

Shared& State() {
    static Shared shared;
    return shared;
}

Manner MannerOf(const std::u16string& connect) {
    static const std::array<std::pair<std::u16string_view, Manner>, 18> kWords{{
        {u"hangs_in_connect", Manner::HangsInConnect},
        {u"hangs_in_execute", Manner::HangsInExecute},
        {u"hangs_until_cancelled", Manner::HangsUntilCancelled},
        {u"succeeds_when_cancelled", Manner::SucceedsWhenCancelled},
        {u"hangs_in_disconnect", Manner::HangsInDisconnect},
        {u"three_records", Manner::ThreeRecords},
        {u"no_record", Manner::NoRecord},
        {u"with_info", Manner::WithInfo},
        {u"no_data", Manner::NoData},
        {u"breaks_link", Manner::BreaksLink},
        {u"loses_link", Manner::LosesLink},
        {u"small_blocks", Manner::SmallBlocks},
        {u"long_cell", Manner::LongCell},
        {u"refuses_connect", Manner::RefusesConnect},
        {u"hangs_in_fetch", Manner::HangsInFetch},
        {u"spoilt_row", Manner::SpoiltRow},
        {u"fails_in_fetch", Manner::FailsInFetch},
        {u"reads_committed", Manner::ReadsCommitted},
    }};
    for (const auto& [word, manner] : kWords) {
        if (connect.find(word) != std::u16string::npos) return manner;
    }
    return Manner::Obedient;
}

std::vector<std::u16string> RowsOf(Manner manner) {
    if (manner == Manner::SmallBlocks) return {u"one", u"\u03A9", u"\x7F", u"\x80", u"five"};
    if (manner == Manner::SpoiltRow) return {u"one", u"two"};
    if (manner == Manner::LongCell) return {std::u16string(5000, u'\u4E2D')};
    return {};
}

}  // namespace ventlock::mock

using ventlock::mock::State;

void MockRelease() {
    const std::lock_guard lock(State().mutex);
    State().released = true;
    State().changed.notify_all();
}

void MockReset() {
    const std::lock_guard lock(State().mutex);
    State().released = false;
    State().cancels = 0;
    State().executions = 0;
    State().readOnlyConnections = 0;
}

void MockWaitForHanging(int calls) {
    std::unique_lock lock(State().mutex);
    State().changed.wait(lock, [calls] { return State().hanging == calls; });
}

int MockCancels() {
    const std::lock_guard lock(State().mutex);
    return State().cancels;
}

int MockExecutions() {
    const std::lock_guard lock(State().mutex);
    return State().executions;
}

int MockReadOnlyConnections() {
    const std::lock_guard lock(State().mutex);
    return State().readOnlyConnections;
}
