// What the program's own description is written into, while it is built and when the guides are made anew:
//   ventlock-manual commands <outline> <page>   the command line's page of the manual
//   ventlock-manual window <outline> <page>     the window's
//   ventlock-manual tables <document>...        the tables of documents, in their places

#include <exception>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>

#include "cli/GuideTables.h"
#include "cli/ManualPage.h"
#include "platform/ConsoleMain.h"
#include "platform/Host.h"

namespace ventlock {
namespace {

std::string Read(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    if (!in) throw std::runtime_error(path + " cannot be read");
    return text.str();
}

void Write(const std::string& path, const std::string& text) {
    std::ofstream out(path, std::ios::binary);
    out << text;
    if (out.close(); out.fail()) throw std::runtime_error(path + " cannot be written");
}

void WriteTables(const std::string& path, const CommandDescription& program) {
    try {
        const std::string before = Read(path);
        const std::string text = WithTables(before, program);
        if (text != before) Write(path, text);
    } catch (const std::exception& error) {
        throw std::runtime_error(path + ": " + error.what());
    }
}

}  // namespace
}  // namespace ventlock

int ventlock::ConsoleMain(const std::vector<std::string>& arguments) {
    const std::string mode = arguments.empty() ? "" : arguments[0];
    const bool isPage = (mode == "commands" || mode == "window") && arguments.size() == 3;
    if (!isPage && mode != "tables") {
        std::cerr << "usage: ventlock-manual commands|window <outline> <page>\n"
                     "       ventlock-manual tables <document>...\n";
        return 2;
    }
    try {
        const CommandDescription program = DescribeCommandLine(*CreateHost("ventlock"));
        if (!isPage) {
            for (std::size_t i = 1; i < arguments.size(); ++i) WriteTables(arguments[i], program);
            return 0;
        }
        const std::string outline = WithPlaces(Read(arguments[1]));
        Write(arguments[2], mode == "commands" ? ManualPage(outline, program) : outline);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "ventlock-manual: " << error.what() << '\n';
        return 1;
    }
}
