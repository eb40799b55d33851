#pragma once

#include <memory>
#include <string>

#include "support/Bench.h"
#include "support/Samples.h"

namespace ventlock::bench {

using SharedSample = std::shared_ptr<const Sample>;

/// One entry put into one target file by all that can do it.
struct FileWork {
    std::string name;      ///< of the work
    std::string size;      ///< of the file
    std::string fileName;  ///< "Pyx.ini" or "Ddinstal.ini"
    SharedSample sample;
    SharedSample gitSample;  ///< the same as Git spells it
    Compared compared = Compared::Everything;
    bool isOdd = false;  ///< a file that the limit does not take and a peer may refuse
    bool isWithPeers = true;
};

/// Adds the programs: ventlock-cli, the limit and the peers.
void AddPrograms(Bench& bench, const FileWork& work);

/// Adds those that do it in the harness's own process: the writer, the limit and the library that is a peer.
void AddInProcess(Bench& bench, const FileWork& work);

}  // namespace ventlock::bench
