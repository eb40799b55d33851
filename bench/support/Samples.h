#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "support/Upsert.h"

namespace ventlock::bench {

/// How names are spelled. Git's own form takes neither blanks nor underlines in a key, and no digit first.
enum class Spelling { Own, Git };

/// A target file and the entry that goes into it.
struct Sample {
    std::string file;             ///< bytes before
    std::string entry;            ///< the entry as an entry file
    std::vector<Upsert> upserts;  ///< the same as keys of the target file
    std::size_t devices = 0;      ///< entries that the file has before
};

/// A tidy "Pyx.ini" of so many lines, and a new device for it.
Sample PyxSample(std::size_t lines, Spelling spelling = Spelling::Own);

/// A tidy "Ddinstal.ini" of so many lines, and a device of its last manufacturer: a new one, or the last one
/// that it has with another name and other files.
Sample DDInstallSample(std::size_t lines, bool isKnown, Spelling spelling = Spelling::Own);

/// Small files with what people leave in them: lines that are neither header nor key, comments, mixed line
/// ends, blanks, equal sections and keys, bytes above 127, an open last line.
Sample OddPyxSample(Spelling spelling = Spelling::Own);
Sample OddDDInstallSample(Spelling spelling = Spelling::Own);

}  // namespace ventlock::bench
