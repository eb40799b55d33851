#include "platform/odbc/DriverAnswers.h"

#include <algorithm>

#include "platform/Casing.h"
#include "platform/odbc/DriverLibrary.h"

namespace ventlock::odbc {

bool Mention(const std::vector<std::string>& diagnostics, std::initializer_list<std::string_view> texts) {
    return std::any_of(diagnostics.begin(), diagnostics.end(), [&](const std::string& record) {
        const std::string folded = UpperCase(record);
        return std::any_of(texts.begin(), texts.end(), [&](std::string_view text) {
            return folded.find(UpperCase(text)) != std::string::npos;
        });
    });
}

bool TellOtherWordSize(const std::vector<std::string>& diagnostics) {
    return std::any_of(diagnostics.begin(), diagnostics.end(), [](const std::string& record) {
        return record.starts_with("[IM014]") || NamesLibraryOfOtherWordSize(record);
    });
}

bool TellDuplicate(const std::vector<std::string>& diagnostics) {
    // A server may answer in the language of its country and quotes what users typed: PostgreSQL is known by
    // its state, MariaDB by its own code. Other servers have one state for all kinds of constraints.
    return Mention(diagnostics, {"[23505]", "(1062)", "UNIQUE constraint failed"}) ||
           (Mention(diagnostics, {"[23000]"}) && Mention(diagnostics, {"duplicate"}));
}

bool TellNoTransactions(const std::vector<std::string>& diagnostics) {
    return Mention(diagnostics, {"[HYC00]"});
}

bool TellGivenUp(const std::vector<std::string>& diagnostics) {
    // MariaDB has a state for a deadlock, and none for a row that has changed since it was read.
    return Mention(diagnostics, {"[40001]", "[40P01]", "(1213)", "(1020)"});
}

}  // namespace ventlock::odbc
