#include "cli/DatabaseScript.h"

namespace ventlock {

std::vector<std::string> SplitStatements(std::string_view script) {
    constexpr std::string_view kSpace = " \t\r\n";
    std::vector<std::string> statements;
    std::string current;
    const auto finish = [&] {
        const std::size_t first = current.find_first_not_of(kSpace);
        if (first != std::string::npos) {
            statements.push_back(current.substr(first, current.find_last_not_of(kSpace) - first + 1));
        }
        current.clear();
    };
    bool isQuoted = false;
    for (std::size_t i = 0; i < script.size(); ++i) {
        if (!isQuoted && script.substr(i).starts_with("--")) {
            i = std::min(script.find('\n', i), script.size());
            current += '\n';
            continue;
        }
        if (script[i] == '\'') isQuoted = !isQuoted;
        if (script[i] == ';' && !isQuoted) {
            finish();
        } else {
            current += script[i];
        }
    }
    finish();
    return statements;
}

}  // namespace ventlock
