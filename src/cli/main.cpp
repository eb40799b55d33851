#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "cli/CommandLine.h"
#include "platform/Host.h"
#include "platform/Terminal.h"

int main(int argc, char** argv) {
    try {
        // All programs of the family share the window's files, so the INI file is named after that one.
        const auto host = ventlock::CreateHost("ventlock");
        const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
        const auto code =
            ventlock::RunCommandLine(arguments, *host, std::cout, std::cerr, ventlock::IsErrorTerminal());
        if (std::cout.flush() || code != ventlock::ExitCode::Done) return static_cast<int>(code);
        std::cerr << "ventlock-cli: everything was done, but the answer could not be written to stdout\n"
                     "  Check where stdout leads to, for example whether its disk is full.\n";
        return static_cast<int>(ventlock::ExitCode::TargetFailed);
    } catch (const std::exception& error) {
        std::cerr << "ventlock-cli: " << error.what() << '\n';
        return static_cast<int>(ventlock::ExitCode::TargetFailed);
    }
}
