#include "cli/WrongCall.h"

#include <algorithm>
#include <optional>

#include "base/NearWord.h"

namespace ventlock {
namespace {

/// Why a call could not be understood: a word that should be a command is named, all else is as the parser
/// says it.
std::string WrongCallText(const CLI::App& app, const std::vector<std::string>& arguments,
                          const CLI::ParseError& error) {
    const auto first = std::find_if(arguments.begin(), arguments.end(),
                                    [](const std::string& argument) { return !argument.starts_with('-'); });
    if (first == arguments.end()) return error.what();
    std::string names;
    for (const CLI::App* command : app.get_subcommands(nullptr)) {
        if (command->get_name() == *first) return error.what();
        names.append(names.empty() ? "" : ", ").append(command->get_name());
    }
    return "\"" + *first + "\" is no command; the commands are " + names;
}

/// The command that the call got to, the whole program when to none.
const CLI::App& CommandOf(const CLI::App& app) {
    const CLI::App* command = &app;
    while (!command->get_subcommands().empty()) command = command->get_subcommands().front();
    return *command;
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

CliError WrongCall(const CLI::App& app, const std::vector<std::string>& arguments,
                   const CLI::ParseError& error) {
    const CLI::App& command = CommandOf(app);
    const auto meant = MeantOption(app, command);
    return {ExitCode::WrongCall,
            WrongCallText(app, arguments, error),
            {},
            (meant ? "Did you mean " + *meant + "? " : "") + "See \"" + CallOf(command) + " --help\"."};
}

}  // namespace ventlock
