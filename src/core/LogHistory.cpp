#include "core/LogHistory.h"

namespace ventlock {

void LogHistory::Add(Entry entry) {
    if (entries_.size() == kMost) entries_.pop_front();
    entries_.push_back(std::move(entry));
    if (onAdd_) onAdd_();
}

}  // namespace ventlock
