#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cli/Console.h"
#include "cli/Services.h"
#include "entry/CheckEntry.h"
#include "entry/EntryFile.h"

namespace ventlock {

/// An entry file by the path it was named by.
struct LoadedEntryFile {
    std::string path;
    EntryFile content;
};

/// Findings of one file.
struct FileFindings {
    std::string path;
    std::vector<Finding> findings;
};

/// Reads all entry files. @throws CliError 2 for one that cannot be read.
std::vector<LoadedEntryFile> LoadEntryFiles(Services& services, const std::vector<std::string>& paths);

/// A profile file of the target's encoding, to tell what can be written to it; what else it holds does not
/// count. @throws CliError when the target cannot be read.
ProfileFile EncodingOfTarget(Services& services, const std::string& path);

/// Whether resource files stand beside an entry file.
std::function<bool(const std::string&)> ResourcesBeside(Services& services, const std::string& entryFile);

/// The exit code for a file that cannot be used.
ExitCode CodeOf(const RunTimeError& error);

}  // namespace ventlock
