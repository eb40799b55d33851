#pragma once

#include <string>

namespace ventlock {

/// Flags of a file question.
inline constexpr int kAskBeforeReplacing =
    2;                                   ///< a new file may be named, and an existing one is asked about
inline constexpr int kHideReadOnly = 4;  ///< no box for opening read-only
inline constexpr int kFileMustExist = 0x1000;  ///< only an existing file can be chosen

/// What the user is asked.
struct FileQuestion {
    int flags = 0;
    std::string filters;  ///< description|pattern|description|pattern ..., valid
    int preselected = 1;  ///< filter shown first, counted from 1, valid
    std::string start;    ///< current path; not used when it leads nowhere
    std::string title;
};

class IFileDialog {
 public:
    virtual ~IFileDialog() = default;

    /// The path of the file that the user chooses; a new one only without kFileMustExist, and a question
    /// about overwriting is asked only with kAskBeforeReplacing. "" when the user cancels.
    virtual std::string Open(const FileQuestion& question) = 0;
};

}  // namespace ventlock
