#include "cli/GuideTables.h"

#include <array>
#include <functional>
#include <sstream>
#include <stdexcept>

#include "cli/OwnPlaces.h"

namespace ventlock {
namespace {

/// A text in a cell, where some signs would mean something else.
std::string Cell(std::string_view text) {
    std::string cell;
    for (const char c : text) {
        if (c == '*' || c == '|' || c == '<') cell += '\\';
        cell += c;
    }
    return cell;
}

std::string Code(std::string_view text) {
    return "`" + std::string(text) + "`";
}

std::string Row(const std::string& first, const std::string& second) {
    return "| " + first + " | " + second + " |\n";
}

std::string Heading(const std::string& first, const std::string& second) {
    return Row(first, second) + "|---|---|\n";
}

bool IsHelp(const OptionDescription& option) {
    return option.names.front() == "--help";
}

std::string OptionName(const OptionDescription& option) {
    std::string text;
    for (const std::string& name : option.names) {
        const bool isLast = &name == &option.names.back();
        const std::string value = isLast && option.value ? " " + option.value->name : "";
        text += (text.empty() ? "" : ", ") + Code(name + value);
    }
    return text;
}

/// ": `a`, `b` or `c`"; nothing for a value that may be anything.
std::string Words(const ValueDescription& value) {
    std::string text = value.words.empty() ? "" : ":";
    for (const std::string& word : value.words) {
        const bool isFirst = &word == &value.words.front();
        const bool isLast = &word == &value.words.back();
        text += (isFirst ? " " : isLast ? " or " : ", ") + Code(word);
    }
    return text;
}

std::string OptionText(const OptionDescription& option) {
    if (!option.value || option.value->words.empty()) return Cell(option.text);
    const std::string text = Cell(option.text) + Words(*option.value);
    return option.defaultValue.empty() ? text : text + "; without it " + Code(option.defaultValue);
}

std::string OptionRows(const CommandDescription& command) {
    std::string rows;
    for (const OptionDescription& option : command.options) {
        if (!IsHelp(option)) rows += Row(OptionName(option), OptionText(option));
    }
    return rows;
}

/// A command as it is typed, with what it cannot go without.
std::string Call(const CommandDescription& command, const std::string& path) {
    std::string call = path;
    for (const OptionDescription& option : command.options) {
        if (!option.isRequired) continue;
        call += " " + option.names.front();
        if (option.value) call += " " + option.value->name;
    }
    for (const ArgumentDescription& argument : command.arguments) {
        call += " " + argument.value.name + (argument.isRepeated ? "..." : "");
    }
    return call;
}

using Visit = std::function<void(const CommandDescription& command, const std::string& path)>;

/// The commands that do something.
void ForEachCommand(const CommandDescription& command, const std::string& path, const Visit& visit) {
    if (command.commands.empty()) visit(command, path);
    for (const CommandDescription& part : command.commands) {
        ForEachCommand(part, path.empty() ? part.name : path + " " + part.name, visit);
    }
}

std::string CommandTable(const CommandDescription& program) {
    std::string table = Heading("Command", "What it does");
    ForEachCommand(program, "", [&](const CommandDescription& command, const std::string& path) {
        std::string text = Cell(command.text);
        for (const ArgumentDescription& argument : command.arguments) text += Words(argument.value);
        table += Row(Code(Call(command, path)), text);
    });
    return table;
}

std::string OptionTables(const CommandDescription& program) {
    std::string text = "All commands:\n\n" + Heading("Option", "Meaning") + OptionRows(program);
    ForEachCommand(program, "", [&](const CommandDescription& command, const std::string& path) {
        const std::string rows = OptionRows(command);
        if (!rows.empty()) text += "\n" + Code(path) + ":\n\n" + Heading("Option", "Meaning") + rows;
    });
    return text;
}

std::string ExitCodeTable(const CommandDescription& /*program*/) {
    std::string table = "| Code | Meaning | Examples |\n|---|---|---|\n";
    for (const ExitMeaning& meaning : ExitMeanings()) {
        table.append("| ").append(std::to_string(static_cast<int>(meaning.code)));
        table.append(" | ").append(meaning.text).append(" | ").append(meaning.examples).append(" |\n");
    }
    return table;
}

std::string PlaceTable(const std::string& heading, std::span<const Place> places) {
    std::string table = Heading(heading, "What it is");
    for (const Place& place : places) table += Row(Code(place.name), std::string(place.text));
    return table;
}

std::string EnvironmentTable(const CommandDescription& /*program*/) {
    return PlaceTable("Variable", EnvironmentVariables());
}

std::string FileTable(const CommandDescription& /*program*/) {
    return PlaceTable("Path", KeptFiles());
}

struct Table {
    std::string_view name;
    std::string (*make)(const CommandDescription& program);
};

constexpr auto kTables = std::to_array<Table>({{"commands", CommandTable},
                                               {"options", OptionTables},
                                               {"exit codes", ExitCodeTable},
                                               {"environment", EnvironmentTable},
                                               {"files", FileTable}});

constexpr std::string_view kBegin = "<!-- table: ";
constexpr std::string_view kBeginEnd = " -->";
constexpr std::string_view kEnd = "<!-- end of table -->";

const Table& RequireTable(std::string_view name) {
    for (const Table& table : kTables) {
        if (table.name == name) return table;
    }
    throw std::runtime_error("there is no table \"" + std::string(name) + "\"");
}

}  // namespace

std::string WithTables(std::string_view document, const CommandDescription& program) {
    std::istringstream lines{std::string(document)};
    std::string text;
    for (std::string line; std::getline(lines, line);) {
        text += line + "\n";
        if (!line.starts_with(kBegin) || !line.ends_with(kBeginEnd)) continue;
        const std::string_view named(line);
        const Table& table =
            RequireTable(named.substr(kBegin.size(), named.size() - kBegin.size() - kBeginEnd.size()));
        text += table.make(program);
        while (line != kEnd) {
            if (!std::getline(lines, line)) {
                throw std::runtime_error("the table \"" + std::string(table.name) + "\" has no end");
            }
        }
        text += line + "\n";
    }
    return text;
}

}  // namespace ventlock
