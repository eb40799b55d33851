// ventlock-manual <outline> <page>: writes the command line's page of the manual. It runs while the program
// is built.

#include <exception>
#include <fstream>
#include <iostream>
#include <sstream>

#include "cli/ManualPage.h"
#include "platform/ConsoleMain.h"
#include "platform/Host.h"

int ventlock::ConsoleMain(const std::vector<std::string>& arguments) {
    if (arguments.size() != 2) {
        std::cerr << "usage: ventlock-manual <outline> <page>\n";
        return 2;
    }
    try {
        std::ifstream in(arguments[0], std::ios::binary);
        std::ostringstream outline;
        outline << in.rdbuf();
        const auto host = CreateHost("ventlock");
        std::ofstream out(arguments[1], std::ios::binary);
        out << ManualPage(outline.str(), DescribeCommandLine(*host));
        if (out.close(); out.fail()) throw std::runtime_error(arguments[1] + " cannot be written");
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "ventlock-manual: " << arguments[0] << ": " << error.what() << '\n';
        return 1;
    }
}
