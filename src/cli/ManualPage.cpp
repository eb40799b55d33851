#include "cli/ManualPage.h"

#include <sstream>
#include <stdexcept>
#include <vector>

#include "cli/OwnPlaces.h"

namespace ventlock {
namespace {

constexpr std::size_t kWidth = 78;  // of the page's lines

/// A sentence as lines of text of which no part can be taken for a request of the formatter.
std::string Sentence(std::string_view text) {
    std::istringstream words{std::string(text)};
    std::string lines;
    std::size_t width = 0;
    for (std::string word; words >> word;) {
        std::string plain = lines.empty() ? "" : " ";
        if (!lines.empty() && width + 1 + word.size() > kWidth) {
            plain = "\n";
            width = 0;
        }
        if (width == 0 && (word.starts_with('.') || word.starts_with('\''))) plain += "\\&";
        for (const char c : word) plain.append(c == '\\' ? "\\e" : std::string(1, c));
        lines += plain;
        width += plain.size();
    }
    return lines + (text.ends_with('.') ? "\n" : ".\n");
}

/// The same with a capital at its beginning.
std::string CapitalSentence(std::string_view text) {
    std::string capital(text);
    if (!capital.empty() && capital[0] >= 'a' && capital[0] <= 'z') capital[0] += 'A' - 'a';
    return Sentence(capital);
}

/// A text without the backquotes round its names.
std::string WithoutQuotation(std::string_view text) {
    std::string plain(text);
    std::erase(plain, '`');
    return plain;
}

/// A literal argument of a macro: no macro itself, and with dashes that can be copied.
std::string Literal(std::string_view word) {
    std::string literal = "\\&";
    for (const char c : word) literal.append(c == '-' ? "\\-" : std::string(1, c));
    return literal;
}

std::string Alternatives(const std::vector<std::string>& words) {
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (i > 0) text += i + 1 < words.size() ? ", " : " or ";
        text += words[i];
    }
    return text;
}

/// What a value may be, and what it is when it is not given.
std::string ValueText(const ValueDescription& value, const std::string& defaultValue) {
    if (value.words.empty()) return "";
    std::string text = value.name + " is " + Alternatives(value.words);
    if (!defaultValue.empty()) text += "; " + defaultValue + " when it is not given";
    return Sentence(text);
}

bool IsHelp(const OptionDescription& option) {
    return option.names.front() == "--help";
}

std::string Item(const OptionDescription& option) {
    std::string line = ".It";
    for (std::size_t i = 0; i < option.names.size(); ++i) {
        line.append(i == 0 ? " Fl " : " , Fl ").append(Literal(option.names[i].substr(1)));
    }
    if (option.value) line += " Ar " + Literal(option.value->name);
    line += '\n' + Sentence(option.text);
    if (option.value) line += ValueText(*option.value, option.defaultValue);
    return line;
}

/// The options of a command other than `--help`, which all of them have.
std::string OptionsOf(const CommandDescription& command) {
    std::string items;
    for (const OptionDescription& option : command.options) {
        if (!IsHelp(option)) items += Item(option);
    }
    return items.empty() ? "" : ".Bl -tag -width Ds -compact\n" + items + ".El\n";
}

/// What a call of the command looks like, without the options that it may go without.
std::string Call(const CommandDescription& command, const std::string& path) {
    std::string line = ".It Cm " + Literal(path);
    bool hasOptions = false;
    for (const OptionDescription& option : command.options) {
        if (option.isRequired) {
            line += " Fl " + Literal(option.names.front().substr(1));
            if (option.value) line += " Ar " + Literal(option.value->name);
        } else {
            hasOptions = hasOptions || !IsHelp(option);
        }
    }
    if (hasOptions) line += " Oo Ar option ... Oc";
    for (const ArgumentDescription& argument : command.arguments) {
        line += " Ar " + Literal(argument.value.name);
        if (argument.isRepeated) line += " ...";
    }
    return line + '\n';
}

/// The commands below `command` that do something, each with its options.
std::string Commands(const CommandDescription& command, const std::string& path) {
    if (command.commands.empty()) {
        std::string item = Call(command, path) + Sentence(command.text);
        for (const ArgumentDescription& argument : command.arguments) {
            item += ValueText(argument.value, "");
        }
        return item + OptionsOf(command);
    }
    std::string items;
    for (const CommandDescription& part : command.commands) {
        items += Commands(part, path.empty() ? part.name : path + ' ' + part.name);
    }
    return items;
}

std::string ExitStatus() {
    std::string items = ".Bl -tag -width Ds -compact\n";
    for (const ExitMeaning& meaning : ExitMeanings()) {
        items.append(".It " + std::to_string(static_cast<int>(meaning.code)) + '\n')
            .append(CapitalSentence(meaning.text))
            .append(CapitalSentence(WithoutQuotation(meaning.examples)));
    }
    return items + ".El\n";
}

std::string ExampleCalls() {
    std::string text;
    for (const Example& example : Examples()) {
        text.append(text.empty() ? "" : ".Pp\n").append(Sentence(example.text));
        text.append(".Dl $ ").append(Literal(example.call)).append("\n");
    }
    return text;
}

std::string Places(std::span<const Place> places, const std::string& macro) {
    std::string items = ".Bl -tag -width Ds\n";
    for (const Place& place : places) {
        items += ".It " + macro + " ";
        for (const char c : place.name) items.append(c == ',' ? " ," : std::string(1, c));
        items += "\n";
        items.append(Sentence(WithoutQuotation(place.text)));
    }
    return items + ".El\n";
}

struct Part {
    std::string line;
    std::string text;
};

/// The outline with each part in the place of its line.
std::string WithParts(std::string_view outline, const std::vector<Part>& parts) {
    std::istringstream lines{std::string(outline)};
    std::vector<bool> areThere(parts.size(), false);
    std::string page;
    for (std::string line; std::getline(lines, line);) {
        bool isPart = false;
        for (std::size_t i = 0; i < parts.size(); ++i) {
            if (line != parts[i].line) continue;
            page += parts[i].text;
            areThere[i] = isPart = true;
        }
        if (!isPart) page += line + '\n';
    }
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (!areThere[i]) throw std::runtime_error("the outline lacks the line " + parts[i].line);
    }
    return page;
}

}  // namespace

std::string ManualPage(std::string_view outline, const CommandDescription& program) {
    return WithParts(outline, {{"%COMMANDS%", ".Bl -tag -width Ds\n" + Commands(program, "") + ".El\n"},
                               {"%OPTIONS%", OptionsOf(program)},
                               {"%EXIT STATUS%", ExitStatus()},
                               {"%EXAMPLES%", ExampleCalls()}});
}

std::string WithPlaces(std::string_view outline) {
    return WithParts(outline, {{"%ENVIRONMENT%", Places(EnvironmentVariables(), "Ev")},
                               {"%FILES%", Places(KeptFiles(), "Pa")}});
}

}  // namespace ventlock
