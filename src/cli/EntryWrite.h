#pragma once

#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "cli/Console.h"
#include "cli/EntryObjects.h"
#include "cli/RegisterCommand.h"
#include "cli/RegisterPlan.h"
#include "cli/Services.h"

namespace ventlock {

/// What the entries of one call have in common; all of it outlives them.
struct RegisterRun {
    Services& services;
    const RegisterOptions& options;
    RegisterPlan& plan;
    Console& console;
};

/// How one target of one entry came out.
struct TargetResult {
    bool isWritten = false;
    bool staysAsItIs = false;           ///< of a file in a dry run, which has what would be written
    std::vector<std::string> messages;  ///< what was logged on the way, driver records last
    std::string advice;
};

/// One entry on its way into its targets. Its records and writers are its own, because they keep what they
/// found.
class EntryWrite {
 public:
    EntryWrite(RegisterRun& run, const PlannedEntry& entry);

    /// One start of the entry in the database, with fresh records and writers.
    /// @param takesOverLeftRow  a row in "Manufacturers" to which nothing leads is in the way of the entry's
    ///                          own; it becomes the entry's
    TargetResult TryDatabase(bool takesOverLeftRow);

    /// True when the last start failed where another one could choose other numbers.
    [[nodiscard]] bool MayStartAnew() const;

    /// In place of TryDatabase for an entry that goes into files only.
    void GatherForFiles();

    /// Names the entry, in a dry run.
    void TellTitle();

    /// Tells how the database came out, with the statements of all starts.
    void TellDatabase(const TargetResult& result, int restarts);

    /// Puts the database into the document and tells nothing.
    void NoteDatabase(std::string_view status, const TargetResult& result, int restarts);

    /// Writes the files that were asked for, one after the other as long as all goes well, and tells of each.
    /// @param isWritten  the database, if it was asked for, has the entry; else the files are skipped
    /// @return True when the entry is in all its targets
    bool WriteFiles(bool isWritten);

    /// The entry's part of the document. The entry is done then.
    nlohmann::ordered_json TakeDocument();

    /// "[name] file:line"
    [[nodiscard]] const std::string& Title() const noexcept { return title_; }

 private:
    using Json = nlohmann::ordered_json;

    void MakeObjects();
    void TakeOverLeftManufacturer();
    void NoteStatements();
    static void NoteResult(Json& json, std::string_view status, const TargetResult& result);
    template <class Work>
    TargetResult WriteFile(const std::string& path, Json& json, Work&& work);
    void Tell(const std::string& place, const TargetResult& result);

    RegisterRun& run_;
    const PlannedEntry& entry_;
    std::string title_;
    Json targets_ = Json::object();
    Json statements_ = Json::array();
    std::unique_ptr<EntryObjects> objects_;  ///< of the last start
};

}  // namespace ventlock
