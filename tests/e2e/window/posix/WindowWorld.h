#pragma once

#include <string>
#include <vector>

#include "e2e/World.h"
#include "support/outside/Program.h"

namespace ventlock::test {

/// A world with the window program in a program folder of its own, so that its log, its dictionaries and its
/// own INI file are nobody else's.
class WindowWorld : public World {
 public:
    /// Copies the program; the versions 5.0, 6.0 and 7.0 may be offered.
    WindowWorld();

    /// How the window program is started.
    [[nodiscard]] ProgramCall WindowCall() const { return Call(ProgramFile("ventlock"), {}); }

    [[nodiscard]] std::string ProgramFile(const std::string& name) const {
        return ProgramFolder() + "/" + name;
    }

    /// A setting as the command line stores it.
    void Set(const std::string& name, const std::string& value) const;

    /// The error log, "" when there is none.
    [[nodiscard]] std::string Log() const;
};

}  // namespace ventlock::test
