#include "cli/WrongCall.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "base/NearWord.h"
#include "base/Text.h"

namespace ventlock {
namespace {

/// The command that the call got to, the whole program when to none.
const CLI::App& CommandOf(const CLI::App& app) {
    const CLI::App* command = &app;
    while (!command->get_subcommands().empty()) command = command->get_subcommands().front();
    return *command;
}

/// The names of the commands below this one.
std::vector<std::string> CommandsOf(const CLI::App& command) {
    std::vector<std::string> names;
    for (const CLI::App* part : command.get_subcommands(nullptr)) names.push_back(part->get_name());
    return names;
}

/// What stands in the call where one of these commands should, "" for nothing.
std::string WordForCommand(const CLI::App& app, const std::vector<std::string>& commands) {
    const std::vector<std::string> rest = app.remaining(true);
    const auto word = std::find_if(rest.begin(), rest.end(),
                                   [](const std::string& text) { return !text.starts_with('-'); });
    return commands.empty() || word == rest.end() ? "" : *word;
}

/// The words that a command is called by, the program's name first.
std::string CallOf(const CLI::App& command) {
    const CLI::App* parent = command.get_parent();
    return (parent == nullptr ? "" : CallOf(*parent) + " ") + command.get_name();
}

std::string WithoutDashes(std::string text) {
    std::erase(text, '-');
    return text;
}

/// The option of the command, or of all commands, that the first misspelt one was meant to be.
std::optional<std::string> MeantOption(const CLI::App& app, const CLI::App& command) {
    std::vector<std::string> names;
    std::vector<std::string> known;
    for (const CLI::App* part = &command; part != nullptr; part = part->get_parent()) {
        for (const CLI::Option* option : part->get_options()) {
            for (const std::string& name : option->get_lnames()) {
                names.push_back("--" + name);
                known.push_back(WithoutDashes(name));
            }
        }
    }
    for (const std::string& argument : app.remaining(true)) {
        if (!argument.starts_with('-')) continue;
        const auto near = NearestWord(WithoutDashes(argument.substr(0, argument.find('='))), known);
        if (near) return names[*near];
    }
    return std::nullopt;
}

}  // namespace

CliError WrongCall(const CLI::App& app, const CLI::ParseError& error) {
    const CLI::App& command = CommandOf(app);
    const std::vector<std::string> commands = CommandsOf(command);
    const std::string word = WordForCommand(app, commands);
    const std::string see = "See \"" + CallOf(command) + " --help\".";
    const auto advice = [&](const std::optional<std::string>& meant) {
        return (meant ? "Did you mean " + *meant + "? " : "") + see;
    };
    // All else is as the parser says it.
    if (word.empty()) {
        return {ExitCode::WrongCall, error.what(), {}, advice(MeantOption(app, command))};
    }
    const auto near = NearestWord(word, commands);
    return {ExitCode::WrongCall,
            "\"" + word + "\" is no command; the commands are " + Joined(commands, ", "),
            {},
            advice(near ? std::optional(commands[*near]) : std::nullopt)};
}

}  // namespace ventlock
