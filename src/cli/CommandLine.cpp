#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <functional>
#include <sstream>

#include "cli/CliError.h"
#include "cli/Completion.h"
#include "cli/Console.h"
#include "cli/Grammar.h"
#include "cli/Report.h"
#include "cli/Services.h"

namespace ventlock {
namespace {

/// Runs a part of a call; an error that ends it is told.
ExitCode Told(Console& console, const std::function<ExitCode()>& work) {
    try {
        return work();
    } catch (const CliError& error) {
        console.WriteError(error);
        return error.Code();
    } catch (const RunTimeError& error) {
        console.WriteError(CliError(ExitCode::TargetFailed, error.what(), error.Diagnostics()));
    } catch (const std::exception& error) {
        console.WriteError(CliError(ExitCode::TargetFailed, error.what()));
    }
    return ExitCode::TargetFailed;
}

ExitCode RunCommand(const Grammar& grammar, Host& host, Console& console) {
    const Options& given = grammar.Given();
    ServiceOptions options;
    options.mode = grammar.Mode();
    if (given.timeLimit > 0) {
        options.timeLimits = {std::chrono::seconds(given.timeLimit), std::chrono::seconds(given.timeLimit)};
    }
    Services services(host, options);
    if (given.dataSource) services.Settings().DSN = *given.dataSource;
    return grammar.Wanted()(services, console);
}

ExitCode RunWanted(Grammar& grammar, Host& host, Console& console) {
    console.document["command"] = grammar.Name();
    Report* report = nullptr;
    const ExitCode refused = Told(console, [&] {
        report = grammar.MakeReport();
        if (report != nullptr) report->RequireWritable(grammar.Given().files);
        return ExitCode::Done;
    });
    if (refused != ExitCode::Done) return refused;
    const ExitCode code = Told(console, [&] { return RunCommand(grammar, host, console); });
    if (report == nullptr) return code;
    return Told(console, [&] { return report->Write(console, code); });
}

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

}  // namespace

ExitCode RunCommandLine(const std::vector<std::string>& arguments, Host& host, std::ostream& out,
                        std::ostream& err, bool isTerminal) {
    Console console(out, err, isTerminal);
    console.document["version"] = 1;  // of the document's form
    // A call that cannot be understood is answered in the form it asked for all the same.
    console.isJson = std::find(arguments.begin(), arguments.end(), "--json") != arguments.end();
    Grammar grammar(host);
    if (!arguments.empty() && arguments.front() == kCompleteCommand) {
        WriteCompletions(grammar.Describe(), {arguments.begin() + 1, arguments.end()}, out);
        return ExitCode::Done;
    }
    try {
        grammar.Parse(arguments);
    } catch (const CLI::Success& asked) {
        std::ostringstream text;
        grammar.App().exit(asked, text, text);
        if (!console.isJson) out << text.str();
        console.document["text"] = text.str();
        console.Finish(ExitCode::Done);
        return ExitCode::Done;
    } catch (const CLI::ParseError& error) {
        console.WriteError(CliError(ExitCode::WrongCall, WrongCallText(grammar.App(), arguments, error), {},
                                    "See \"ventlock-cli --help\"."));
        console.Finish(ExitCode::WrongCall);
        return ExitCode::WrongCall;
    }
    console.isJson = grammar.Given().isJson;
    console.isQuiet = grammar.Given().isQuiet;
    const ExitCode code = RunWanted(grammar, host, console);
    console.Finish(code);
    return code;
}

}  // namespace ventlock
