#include <exception>
#include <iostream>

#include "cli/CommandLine.h"
#include "platform/ConsoleMain.h"
#include "platform/Host.h"
#include "platform/Terminal.h"

int ventlock::ConsoleMain(const std::vector<std::string>& arguments) {
    try {
        // All programs of the family share the window's files, so the INI file is named after that one.
        const auto host = CreateHost("ventlock");
        const ExitCode code = RunCommandLine(arguments, *host, std::cout, std::cerr, IsErrorTerminal());
        if (std::cout.flush() || code != ExitCode::Done) return static_cast<int>(code);
        std::cerr << "ventlock-cli: everything was done, but the answer could not be written to stdout\n"
                     "  Check where stdout leads to, for example whether its disk is full.\n";
        return static_cast<int>(ExitCode::TargetFailed);
    } catch (const std::exception& error) {
        std::cerr << "ventlock-cli: " << error.what() << '\n';
        return static_cast<int>(ExitCode::TargetFailed);
    }
}
