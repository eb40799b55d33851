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

/// Reads all entry files, in the order of `paths`. A folder stands for its entry files, sorted by the bytes
/// of their names: those named *.ini, but for hidden files, "Pyx.ini", "Ddinstal.ini" and "desktop.ini". One
/// that is another program's by its content is left out, which the console tells.
/// @throws CliError 2 for what cannot be read and for a folder without entry files.
std::vector<LoadedEntryFile> LoadEntryFiles(Services& services, const std::vector<std::string>& paths,
                                            Console& console);

/// A profile file of the target's encoding, to tell what can be written to it; what else it holds does not
/// count. @throws CliError when the target cannot be read.
ProfileFile EncodingOfTarget(Services& services, const std::string& path);

/// Whether resource files stand beside an entry file.
std::function<bool(const std::string&)> ResourcesBeside(Services& services, const std::string& entryFile);

/// The exit code for a file that cannot be used.
ExitCode CodeOf(const RunTimeError& error);

}  // namespace ventlock
