#pragma once

#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <vector>

#include "cli/CliError.h"
#include "entry/EntryFile.h"

namespace ventlock {

/// A document as text. Texts from drivers may hold anything; the document is valid all the same.
std::string DocumentText(const nlohmann::ordered_json& document);

/// Where a command's answer goes: lines for people, or one JSON document. Data goes to `out`, all else to
/// `err`. In lines, control characters other than line ends and tabs are written out, "\x1B" for one, so that
/// no name or path commands the terminal.
class Console {
 public:
    Console(std::ostream& out, std::ostream& err, bool isTerminal)
        : out_(out), err_(err), isTerminal_(isTerminal) {}

    bool isJson = false;   ///< one JSON document on `out` instead of lines
    bool isQuiet = false;  ///< errors only

    /// The document of a JSON answer; a command fills it in either case.
    nlohmann::ordered_json document;

    /// A line of data. Nothing with isJson; lines of success are left out with isQuiet by WriteNews.
    void WriteLine(const std::string& line);

    /// A line that only says what was done. It is on its way when this returns, into a pipe too, so that what
    /// becomes of the program afterwards takes nothing back.
    void WriteNews(const std::string& line);

    /// A line about a problem.
    void WriteProblem(const std::string& line);

    /// What went well and may surprise: a line about a problem, and in the document's list "warnings". Only
    /// the latter with isJson, and with isQuiet.
    void WriteWarning(const std::string& text);

    /// An error in full, and in the document.
    void WriteError(const CliError& error);

    /// An error in full that has a place of its own in the document.
    void TellError(const CliError& error);

    /// A finding as an object of the document.
    static nlohmann::ordered_json FindingJson(const std::string& path, const Finding& finding);

    /// How far long work has come, on a terminal only; the next line of any kind wipes it, as ClearProgress
    /// does.
    void ShowProgress(std::size_t done, std::size_t all);
    void ClearProgress();

    /// Ends the answer: prints the document with isJson.
    void Finish(ExitCode code);

 private:
    std::ostream& out_;
    std::ostream& err_;
    bool isTerminal_;
    bool hasProgress_ = false;
};

}  // namespace ventlock
