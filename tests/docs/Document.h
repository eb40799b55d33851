#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ventlock::test {

/// A fenced block of a document.
struct Block {
    int line = 0;          ///< of the fence that opens it
    std::string language;  ///< first word behind the fence
    std::string file;      ///< second word: the block is this file's content
    std::string text;      ///< with a line end behind each line
    std::string untried;   ///< why no test runs it; told in the line above the fence
};

/// A document of people, as far as tests ask for it.
struct Document {
    std::vector<Block> blocks;
    std::vector<std::string> problems;  ///< "line N: what is wrong", in the order of lines
};

/// Takes a Markdown document apart. A block whose language is `console` (commands behind "$ " and what they
/// print) or `sh` (a script) is run by the tests unless the line above it is `*Not tried by the tests:
/// reason.*`; one in a language that no test here can run must have that line. Blocks without a language, in
/// an unknown one, and blocks made by indentation are problems, so that no command escapes.
Document ParseDocument(std::string_view markdown);

/// The examples of a manual page (mdoc): each `.Dl $ call` is a block of its own, and so is each literal
/// display. The language of all is `console`.
Document ParseManual(std::string_view page);

/// What stands in code spans of the running text, outside of fenced blocks.
std::vector<std::string> CodeSpans(std::string_view markdown);

}  // namespace ventlock::test
