#pragma once

#include <string>
#include <vector>

#include "e2e/RunProgram.h"
#include "support/TempFolder.h"

namespace ventlock::test {

/// The two programs in a program folder of their own, with the versions 5.0, 6.0 and 7.0 to offer, and the
/// settings of a machine on which nothing was set. The settings' key is the machine's own: tests that use it
/// run one after another, and it is taken away before and after.
class InstalledProgram {
 public:
    InstalledProgram();
    ~InstalledProgram();
    InstalledProgram(const InstalledProgram&) = delete;
    InstalledProgram& operator=(const InstalledProgram&) = delete;

    /// A file of the folder that the programs work in; target and entry files stand there.
    [[nodiscard]] std::string Path(const std::string& name) const;

    /// Makes the data source the one that the window connects to when it starts.
    void UseDataSource(const std::string& name) const;

    [[nodiscard]] ProgramCall WindowCall() const;

    /// Runs the command line.
    [[nodiscard]] ProgramResult Run(const std::vector<std::string>& arguments) const;

    /// The error log, "" when there is none.
    [[nodiscard]] std::string Log() const;

 private:
    TempFolder folder_;
};

}  // namespace ventlock::test
