#pragma once

#include "platform/IProcess.h"

namespace ventlock {

/// Starts programs in a session of their own, with none of this program's files but the standard streams. A
/// thread waits for each, so that none is left behind as a zombie.
class PosixProcess final : public IProcess {
 public:
    /// `path` is a path, not a name to be looked for in PATH.
    bool Start(const std::string& path) override;
};

}  // namespace ventlock
