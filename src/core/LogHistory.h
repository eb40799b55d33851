#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <utility>

#include "platform/IClock.h"

namespace ventlock {

/// The entries that the log has taken in this run, the last ones of them.
class LogHistory {
 public:
    /// How many are kept; the oldest goes for one more.
    static constexpr std::size_t kMost = 500;

    struct Entry {
        LocalTime time;
        std::string text;
    };

    /// Takes an entry and tells whoever follows.
    void Add(Entry entry);

    /// Oldest first.
    [[nodiscard]] const std::deque<Entry>& Entries() const noexcept { return entries_; }

    /// Has `onAdd` run behind each entry from now on, in place of who followed before; an empty one ends it.
    void Follow(std::function<void()> onAdd) { onAdd_ = std::move(onAdd); }

 private:
    std::deque<Entry> entries_;
    std::function<void()> onAdd_;
};

}  // namespace ventlock
