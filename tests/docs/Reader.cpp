#include "docs/Reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kAny = "...";

/// What a reader has done who has registered devices before.
constexpr const char* kPreparation =
    "ventlock-cli database create --file ~/pyx.db --dsn PYX --quiet\n"
    "ventlock-cli settings set INIPath \"$PWD/Pyx.ini\" --quiet\n"
    "ventlock-cli settings set DDInstallPath \"$PWD/Ddinstal.ini\" --quiet\n"
    "ventlock-cli register flow.ini devices/level.ini --all --quiet\n";

/// One thing that the reader does.
struct Step {
    enum class Kind { Command, Script, File };

    Kind kind = Kind::Command;
    int line = 0;
    std::string text;  ///< the command, the script or the file's content
    std::string file;
    std::string shown;  ///< what the command prints, as the document says
};

std::string Where(int line) {
    return "line " + std::to_string(line) + ": ";
}

std::vector<Step> StepsOf(const Block& block) {
    if (!block.file.empty()) return {{Step::Kind::File, block.line, block.text, block.file, ""}};
    if (block.language == "sh") return {{Step::Kind::Script, block.line, block.text, "", ""}};
    std::vector<Step> steps;
    std::istringstream lines(block.text);
    int number = block.line;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        if (line.starts_with("$ ")) {
            steps.push_back({Step::Kind::Command, number, line.substr(2) + "\n", "", ""});
        } else if (line.starts_with("> ") && !steps.empty() && steps.back().shown.empty()) {
            steps.back().text += line.substr(2) + "\n";
        } else if (!steps.empty()) {
            steps.back().shown += line + "\n";
        }
    }
    return steps;
}

void ReplaceAll(std::string& text, std::string_view from, std::string_view to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
}

std::vector<std::string> TrimmedLines(std::string_view text) {
    std::vector<std::string> lines;
    std::istringstream in{std::string(text)};
    for (std::string line; std::getline(in, line);) {
        line.erase(line.find_last_not_of(" \t\r") + 1);
        lines.push_back(line);
    }
    return lines;
}

/// Whether a line has the pieces that stand between the marks for any text, in their order.
bool IsLineAs(std::string_view line, std::string_view shown) {
    const std::size_t mark = shown.find(kAny);
    if (mark == std::string_view::npos) return line == shown;
    if (!line.starts_with(shown.substr(0, mark))) return false;
    line.remove_prefix(mark);
    shown.remove_prefix(mark + kAny.size());
    for (std::size_t at = 0; at <= line.size(); ++at) {
        if (IsLineAs(line.substr(at), shown)) return true;
    }
    return false;
}

using LineAt = std::vector<std::string>::const_iterator;

bool AreLinesAs(LineAt line, LineAt end, LineAt shown, LineAt shownEnd) {
    if (shown == shownEnd) return line == end;
    if (*shown != kAny) {
        return line != end && IsLineAs(*line, *shown) && AreLinesAs(line + 1, end, shown + 1, shownEnd);
    }
    for (;; ++line) {
        if (AreLinesAs(line, end, shown + 1, shownEnd)) return true;
        if (line == end) return false;
    }
}

/// What is to be done; what is not goes into the trial.
std::vector<Step> StepsOf(const Document& document, Trial& trial) {
    std::vector<Step> steps;
    for (const Block& block : document.blocks) {
        if (!block.untried.empty()) {
            trial.untried.push_back(Where(block.line) + block.untried);
            continue;
        }
        if (block.language != "console" && block.language != "sh" && block.file.empty()) continue;
        for (Step& step : StepsOf(block)) {
            if (step.text == "ventlock\n") {
                trial.untried.push_back(Where(step.line) + "it opens the window");
            } else {
                steps.push_back(std::move(step));
            }
        }
    }
    return steps;
}

/// What came of a step.
struct Outcome {
    std::string code;  ///< as a line
    std::string printed;
    bool isCodeShown = false;  ///< the document tells the exit code
};

void Judge(const Step& step, const Outcome& outcome, Trial& trial) {
    if (step.kind != Step::Kind::File && step.line != 0) {
        ++trial.commands;
        trial.printed.push_back(outcome.printed);
    }
    const std::string where = Where(step.line) + step.text;
    if (outcome.code != "0\n" && !outcome.isCodeShown) {
        trial.breaches.push_back(where + "ends with " + outcome.code + outcome.printed);
    } else if (!step.shown.empty() && !IsShownAs(outcome.printed, step.shown)) {
        trial.breaches.push_back(where + "prints:\n" + outcome.printed + "and is shown as:\n" + step.shown);
    }
}

/// The shell's script: each step leaves its exit code and what it printed, and hands the code on to the next.
std::string Script(const std::vector<Step>& steps, const std::string& folder) {
    std::string script;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const std::string step = folder + "/" + std::to_string(i);
        const std::string kept = "' >'" + step + ".out' 2>&1 </dev/null\n";
        switch (steps[i].kind) {
            case Step::Kind::Command:
                script += ". '" + step + kept;
                break;
            case Step::Kind::Script:
                script += "bash -euo pipefail '" + step + kept;
                break;
            case Step::Kind::File:
                script += "install -D -m 644 '" + step + "' '" + steps[i].file + kept;
                break;
        }
        script += "code=$?; echo $code >'" + step + ".code'; (exit $code)\n";
    }
    return script;
}

/// Commands and scripts as they are, but with the source in the place of what the Debian package installs.
std::string Runnable(std::string text) {
    ReplaceAll(text, "/usr/share/doc/ventlock/examples", VENTLOCK_SOURCE_FOLDER "/data/sample");
    ReplaceAll(text, "/usr/share/ventlock", VENTLOCK_SOURCE_FOLDER "/data");
    return text;
}

}  // namespace

bool IsShownAs(std::string_view printed, std::string_view shown) {
    const std::vector<std::string> lines = TrimmedLines(printed);
    const std::vector<std::string> wanted = TrimmedLines(shown);
    return AreLinesAs(lines.begin(), lines.end(), wanted.begin(), wanted.end());
}

Reader::Reader() {
    fs::create_directory(world_.Path("../bin"));
    fs::create_symlink(VENTLOCK_CLI, world_.Path("../bin/ventlock-cli"));
    const std::string sample = ReadBytes(VENTLOCK_SOURCE_FOLDER "/data/sample/flow-transmitter.ini");
    world_.Write("flow.ini", sample);
}

void Reader::Prepare() const {
    fs::create_directory(world_.Path("devices"));
    world_.Write("devices/flow.ini", world_.Read("flow.ini"));
    world_.Write("devices/level.ini",
                 "[Level]\nManID=26\nManName=Acme\nManDesc=Acme Inc\nProtocol=HART\nDevID=8\nDevName=Level\n"
                 "DLLName=Level.dll\nTemplateName=level.mrg\n");
    world_.Write("Pyx.ini", ReadBytes(VENTLOCK_SOURCE_FOLDER "/data/sample/Pyx.ini"));
}

std::string Reader::Told(std::string text) const {
    const std::string work = world_.Path("");
    const std::string folder = work.substr(0, work.size() - std::string_view("entry/").size());
    ReplaceAll(text, folder + "entry", "/home/me/flow");
    ReplaceAll(text, folder + "home", "/home/me");
    return text;
}

/// How the reader's shell is started on a script.
ProgramCall Reader::Shell(const std::string& script) const {
    ProgramCall call = world_.Call("/bin/bash", {"-c", script});
    // A reader's environment names none of the program's own folders.
    std::erase_if(call.environment, [](const std::string& variable) {
        return variable.starts_with("XDG_") || variable.starts_with("VENTLOCK_REGISTRY=");
    });
    for (std::string& variable : call.environment) {
        if (variable.starts_with("PATH=")) variable.insert(sizeof("PATH=") - 1, world_.Path("../bin") + ":");
    }
    return call;
}

Trial Reader::Run(const Document& document) {
    Trial trial;
    std::vector<Step> steps = StepsOf(document, trial);
    const auto first = std::find_if(steps.begin(), steps.end(), [](const Step& step) {
        return step.text.find("ventlock-cli ") != std::string::npos;
    });
    const bool makesDatabase =
        first != steps.end() && first->text.find("database create") != std::string::npos;
    if (!makesDatabase) {
        Prepare();
        steps.insert(steps.begin(), {Step::Kind::Script, 0, kPreparation, "", ""});
    }
    const TempFolder notes;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const bool isFile = steps[i].kind == Step::Kind::File;
        WriteBytes(notes / std::to_string(i), isFile ? steps[i].text : Runnable(steps[i].text));
    }
    RunProgram(Shell(Script(steps, notes.Path())));
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const std::string path = notes / std::to_string(i);
        if (!fs::exists(path + ".code")) {
            trial.breaches.push_back(Where(steps[i].line) + "the shell ended here:\n" + steps[i].text);
            break;
        }
        const bool isCodeShown = i + 1 < steps.size() && steps[i + 1].text == "echo $?\n";
        Judge(steps[i], {ReadBytes(path + ".code"), Told(ReadBytes(path + ".out")), isCodeShown}, trial);
    }
    return trial;
}

}  // namespace ventlock::test
