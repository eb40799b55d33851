#pragma once

#include <string>

#include "base/RunTimeError.h"

namespace ventlock::test {

/// The number of the run-time error that `work` raises, 0 when it raises none.
template <class Work>
int NumberRaisedBy(Work work) {
    try {
        work();
    } catch (const RunTimeError& error) {
        return static_cast<int>(error.Number());
    }
    return 0;
}

/// The description of the run-time error that `work` raises, "" when it raises none.
template <class Work>
std::string DescriptionRaisedBy(Work work) {
    try {
        work();
    } catch (const RunTimeError& error) {
        return error.Description();
    }
    return {};
}

/// All that the run-time error tells, its description and the circumstance, "" when `work` raises none.
template <class Work>
std::string TextRaisedBy(Work work) {
    try {
        work();
    } catch (const RunTimeError& error) {
        return error.what();
    }
    return {};
}

}  // namespace ventlock::test
