#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "platform/IClock.h"

namespace ventlock {

/// One result of a run, as reports tell it: an entry in one of its targets, a finding, or what ended the run.
struct ReportCase {
    enum class Outcome : std::uint8_t { Passed, Failed, Skipped };

    std::string file;  ///< entry file as the run names it, "" for the run itself
    int line = 0;      ///< of the entry or finding
    std::string name;  ///< tells it from the file's other results, the same from run to run
    Outcome outcome = Outcome::Passed;
    std::string status;              ///< the word for it: "written", for one
    std::vector<std::string> lines;  ///< what was said about it, advice last
};

/// The name of a target by its key in a document: "Pyx.ini" for "ini".
std::string_view TargetName(std::string_view key);

/// What is said about a file of a folder that is not taken for an entry file.
inline constexpr const char* kNoEntryKey = "it holds no key of an entry";

/// The files of a folder that the run did not take for entry files.
std::vector<std::string> LeftOut(const nlohmann::ordered_json& document);

/// What became of the transaction of all entries, "committed" for one; "" for a run without.
std::string TransactionStatus(const nlohmann::ordered_json& document);

/// "2026-01-02", what is between, "03:04:05"
std::string TimeText(const LocalTime& time, char between);

/// All results that a command's document tells, in its order.
std::vector<ReportCase> ReportCases(const nlohmann::ordered_json& document);

}  // namespace ventlock
