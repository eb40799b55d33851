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
#include "cli/WrongCall.h"

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
        console.WriteError(WrongCall(grammar.App(), error));
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
