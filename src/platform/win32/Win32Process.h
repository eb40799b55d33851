#pragma once

#include "platform/IProcess.h"

namespace ventlock {

/// Starts programs with none of this program's handles.
class Win32Process final : public IProcess {
 public:
    /// `path` is a path, not a name to be looked for in PATH, and leads to a program: a batch file, which
    /// only a shell can run, is none.
    bool Start(const std::string& path) override;
};

}  // namespace ventlock
