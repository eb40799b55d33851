#pragma once

#include <string>
#include <utility>
#include <vector>

namespace ventlock {

/// A file that was dropped onto the window.
struct DroppedFile {
    std::string path;
    bool isFile = true;          ///< False: a folder, or nothing that can be looked at
    bool holdsEntryKey = false;  ///< see HoldsEntryKey
};

enum class DropRefusal {
    NoFile,   ///< a folder, or not there
    Unknown,  ///< neither by its name nor by its content one of the three
    Several,  ///< another one of its kind was dropped with it
};

/// What becomes of dropped files; a path is empty when there is nothing to do.
struct DropPlan {
    std::string ini;                                           ///< for the field of "Pyx.ini"
    std::string ddInstall;                                     ///< for the field of "Ddinstal.ini"
    std::string entry;                                         ///< to be opened
    std::vector<std::pair<std::string, DropRefusal>> refused;  ///< paths, in their order
};

/// "Pyx.ini" and "Ddinstal.ini" are told by their names, in any case; any other file that holds a key of an
/// entry is an entry file. Files of one kind stand in each other's way and are all refused; they keep nothing
/// else from being done.
DropPlan PlanDrop(const std::vector<DroppedFile>& files);

}  // namespace ventlock
