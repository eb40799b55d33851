#pragma once

#include "differential/ProfileEngine.h"
#include "differential/ProfileGenerator.h"

namespace ventlock::test {

/// What is compared, the graver kinds first.
enum class ObservationKind {
    Reading,      ///< an answer about the file as it was given
    ReadingBack,  ///< an answer about the file as the editor has written it
    Bytes,        ///< what a write leaves behind
};

struct Observation {
    ObservationKind kind;
    std::string question;
    std::string answer;
};

/// A text with everything but plain signs escaped, long runs shortened.
std::string Shown(std::string_view text);

/// All that one engine shows in one case. `written` is what the editor has made of the file. Two engines
/// answer the same questions in the same order.
std::vector<Observation> Observe(ProfileEngine& engine, const ProfileCase& tried,
                                 const std::optional<std::string>& written);

}  // namespace ventlock::test
