#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "docs/Document.h"
#include "e2e/World.h"

namespace ventlock::test {

/// What became of a document's blocks.
struct Trial {
    int commands = 0;                   ///< that were run
    std::vector<std::string> printed;   ///< by each of them
    std::vector<std::string> untried;   ///< "line N: reason" of each block that was not
    std::vector<std::string> breaches;  ///< "line N: ..." of each that does otherwise than the document says
};

/// A reader at a machine of their own who types what a document shows, from its first line to its last, in
/// one shell: variables, folder and exit code live on from command to command.
///
/// The home folder is told as /home/me, and the folder that the shell begins in as /home/me/flow; both lie in
/// the world. A document whose first call makes a device database finds the sample alone; any other finds a
/// database, both files, the settings that name them and a few entry files. The folders that the Debian
/// package makes stand for those of the source.
class Reader {
 public:
    Reader();

    /// Runs the blocks in their order: commands of `console`, which must end with 0 unless the next command
    /// is `echo $?` and print what is shown below them, where something is; scripts of `sh`, which must end
    /// with 0; and blocks with a file's name, whose text becomes that file. In what is shown, a line `...`
    /// stands for any lines, and `...` within a line for any text.
    Trial Run(const Document& document);

 private:
    void Prepare() const;
    [[nodiscard]] ProgramCall Shell(const std::string& script) const;
    [[nodiscard]] std::string Told(std::string text) const;

    World world_;
};

/// Whether `printed` is what the lines `shown` say; blanks at the ends of lines do not count.
bool IsShownAs(std::string_view printed, std::string_view shown);

}  // namespace ventlock::test
