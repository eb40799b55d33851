#include "docs/Document.h"

#include <array>
#include <optional>
#include <sstream>
#include <utility>

namespace ventlock::test {
namespace {

constexpr std::string_view kFence = "```";
constexpr std::string_view kUntriedBegin = "*Not tried by the tests: ";

enum class Kind { Run, Shown, NeedsReason };

std::optional<Kind> KindOf(std::string_view language) {
    struct Language {
        std::string_view name;
        Kind kind;
    };
    constexpr auto kLanguages = std::to_array<Language>({{"console", Kind::Run},
                                                         {"sh", Kind::Run},
                                                         {"powershell", Kind::NeedsReason},
                                                         {"yaml", Kind::NeedsReason},
                                                         {"ini", Kind::Shown},
                                                         {"cpp", Kind::Shown},
                                                         {"cmake", Kind::Shown},
                                                         {"sql", Kind::Shown},
                                                         {"text", Kind::Shown}});
    for (const Language& known : kLanguages) {
        if (known.name == language) return known.kind;
    }
    return std::nullopt;
}

std::vector<std::string> LinesOf(std::string_view text) {
    std::istringstream in{std::string(text)};
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

bool IsBlank(std::string_view line) {
    return line.find_first_not_of(" \t") == std::string_view::npos;
}

/// The reason in the last line with text above line `at`.
std::string ReasonAbove(const std::vector<std::string>& lines, std::size_t at) {
    while (at > 0 && IsBlank(lines[at - 1])) --at;
    if (at == 0 || !lines[at - 1].starts_with(kUntriedBegin) || !lines[at - 1].ends_with(".*")) return {};
    const std::string& line = lines[at - 1];
    return line.substr(kUntriedBegin.size(), line.size() - kUntriedBegin.size() - 2);
}

class Parser {
 public:
    explicit Parser(std::string_view markdown) : lines_(LinesOf(markdown)) {}

    Document Parse() {
        bool isInList = false;
        for (at_ = 0; at_ < lines_.size(); ++at_) {
            const std::string& line = lines_[at_];
            if (line.starts_with(kFence)) {
                TakeBlock();
                continue;
            }
            if (!IsBlank(line) && line[0] != ' ')
                isInList = line[0] == '-' || (line[0] >= '0' && line[0] <= '9');
            const bool isIndented = line.starts_with("    ") && (at_ == 0 || IsBlank(lines_[at_ - 1]));
            if (isIndented && !isInList) Tell(at_, "a block made by indentation; put it between fences");
            if (line.find(kFence) != std::string::npos) Tell(at_, "a fence that does not begin its line");
        }
        return std::move(document_);
    }

 private:
    void Tell(std::size_t at, const std::string& problem) {
        document_.problems.push_back("line " + std::to_string(at + 1) + ": " + problem);
    }

    void TakeBlock() {
        const std::size_t begin = at_;
        Block block;
        block.line = static_cast<int>(begin) + 1;
        std::istringstream words(lines_[begin].substr(kFence.size()));
        words >> block.language >> block.file;
        block.untried = ReasonAbove(lines_, begin);
        for (++at_; at_ < lines_.size() && lines_[at_] != kFence; ++at_) block.text += lines_[at_] + "\n";
        if (at_ == lines_.size()) Tell(begin, "a block without end");
        const auto kind = KindOf(block.language);
        if (!kind) {
            Tell(begin, "a block in no known language: \"" + block.language + "\"");
        } else if (kind == Kind::NeedsReason && block.untried.empty()) {
            Tell(begin, "a block that no test can run, without the line " + std::string(kUntriedBegin) +
                            "reason.* above it");
        }
        document_.blocks.push_back(std::move(block));
    }

    std::vector<std::string> lines_;
    std::size_t at_ = 0;
    Document document_;
};

/// A line of a manual page as the reader sees it.
std::string Unescaped(std::string_view line) {
    std::string text;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '\\' && i + 1 < line.size()) {
            if (line[++i] == '&') continue;
            text += line[i] == 'e' ? '\\' : line[i];
        } else {
            text += line[i];
        }
    }
    return text;
}

}  // namespace

Document ParseDocument(std::string_view markdown) {
    return Parser(markdown).Parse();
}

Document ParseManual(std::string_view page) {
    constexpr std::string_view kLine = ".Dl $ ";
    Document document;
    std::optional<Block> display;
    int number = 0;
    for (const std::string& line : LinesOf(page)) {
        ++number;
        if (line.starts_with(".Bd -literal")) {
            display = Block{number, "console", "", "", ""};
        } else if (line == ".Ed" && display) {
            document.blocks.push_back(*std::exchange(display, std::nullopt));
        } else if (display) {
            display->text += Unescaped(line) + "\n";
        } else if (line.starts_with(kLine)) {
            document.blocks.push_back(
                {number, "console", "", "$ " + Unescaped(line.substr(kLine.size())) + "\n", ""});
        }
    }
    return document;
}

std::vector<std::string> CodeSpans(std::string_view markdown) {
    std::vector<std::string> spans;
    bool isInBlock = false;
    for (const std::string& line : LinesOf(markdown)) {
        if (line.starts_with(kFence)) isInBlock = !isInBlock;
        if (isInBlock || line.starts_with(kFence)) continue;
        for (std::size_t begin = line.find('`'); begin != std::string::npos; begin = line.find('`', begin)) {
            const std::size_t end = line.find('`', begin + 1);
            if (end == std::string::npos) break;
            spans.push_back(line.substr(begin + 1, end - begin - 1));
            begin = end + 1;
        }
    }
    return spans;
}

}  // namespace ventlock::test
