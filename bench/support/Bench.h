#pragma once

#include <functional>
#include <string>

#include "support/Outcome.h"
#include "support/Starter.h"
#include "support/Usage.h"
#include "support/Workplace.h"

namespace ventlock::bench {

/// One of those that do the same work side by side.
struct Candidate {
    std::string name;                ///< "ventlock", "limit" or that of a peer
    std::function<void()> prepare;   ///< fresh input; not timed
    std::function<Usage()> run;      ///< throws when it fails
    std::function<Outcome()> check;  ///< what came of it; not timed. Empty for work that changes no file
    bool mayFail = false;            ///< a peer that is asked for more than it promises: noted, no mistake
    bool isSlow = false;             ///< takes seconds: few rounds
    int mostRounds = 0;              ///< when it takes so long that not even those are run
};

/// All works, registered as "<work>/<size>/<candidate>": one round each of all of them in random order, then
/// the next round.
class Bench {
 public:
    /// Both must outlive it.
    Bench(const Workplace& place, const Starter& programs, int rounds)
        : place_(place), programs_(programs), rounds_(rounds) {}

    [[nodiscard]] const Workplace& Place() const noexcept { return place_; }
    [[nodiscard]] const Starter& Programs() const noexcept { return programs_; }

    /// @param size  lines of a file, or what else the work grows with; a word for a work without
    void Add(const std::string& work, const std::string& size, const Candidate& candidate);

    /// True when a candidate has failed or has changed what it must not.
    [[nodiscard]] bool IsWrong() const noexcept { return isWrong_; }

 private:
    const Workplace& place_;
    const Starter& programs_;
    int rounds_;
    bool isWrong_ = false;
};

}  // namespace ventlock::bench
