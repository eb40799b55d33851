// Links between the documents lead to what is there.

#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <set>
#include <sstream>

#include "docs/Paths.h"
#include "support/TempFolder.h"

namespace ventlock::test {
namespace {

/// The name by which a heading is led to: small letters, digits and dashes.
std::string Anchor(const std::string& heading) {
    std::string anchor;
    for (const char c : heading) {
        const auto letter = static_cast<unsigned char>(c);
        if (std::isalnum(letter) != 0 || c == '_') anchor += static_cast<char>(std::tolower(letter));
        if (c == ' ' || c == '-') anchor += '-';
    }
    return anchor;
}

std::set<std::string> AnchorsOf(const std::string& markdown) {
    std::set<std::string> anchors;
    std::istringstream lines(markdown);
    bool isInBlock = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("```")) isInBlock = !isInBlock;
        const std::size_t text = line.find_first_not_of('#');
        if (isInBlock || text == 0 || text == std::string::npos || line[text] != ' ') continue;
        anchors.insert(Anchor(line.substr(text + 1)));
    }
    return anchors;
}

/// Where the document's links lead, those to the network left out.
std::vector<std::string> LinksOf(const std::string& markdown) {
    std::vector<std::string> links;
    for (std::size_t at = markdown.find("]("); at != std::string::npos; at = markdown.find("](", at + 1)) {
        const std::string link = markdown.substr(at + 2, markdown.find(')', at) - at - 2);
        if (link.find("://") == std::string::npos) links.push_back(link);
    }
    return links;
}

std::string WrongLink(const std::string& from, const std::string& link) {
    const std::string file = link.substr(0, link.find('#'));
    const auto path = std::filesystem::path(from).parent_path() / file;
    const std::string target = file.empty() ? from : path.lexically_normal().string();
    if (!std::filesystem::exists(InSource(target))) return link + ": there is no " + target;
    if (link.size() == file.size()) return "";
    const std::string anchor = link.substr(file.size() + 1);
    return AnchorsOf(ReadBytes(InSource(target))).contains(anchor) ? "" : link + ": no heading of " + target;
}

TEST(Links, AWrongOneIsSeen) {
    EXPECT_EQ(Anchor("What `register` does, in order"), "what-register-does-in-order");
    EXPECT_EQ(WrongLink("docs/settings.md", "entry-files.md"), "");
    EXPECT_EQ(WrongLink("docs/settings.md", "none.md"), "none.md: there is no docs/none.md");
    EXPECT_EQ(WrongLink("docs/settings.md", "#none"), "#none: no heading of docs/settings.md");
}

class LinksOfDocument : public testing::TestWithParam<std::string> {};

TEST_P(LinksOfDocument, LeadToWhatIsThere) {
    const std::string path = GetParam();
    for (const std::string& link : LinksOf(ReadBytes(InSource(path)))) EXPECT_EQ(WrongLink(path, link), "");
}

INSTANTIATE_TEST_SUITE_P(Docs, LinksOfDocument, testing::ValuesIn(DocumentPaths()), NameOfPath);

/// Every guide can be found from the first page.
TEST(Links, LeadFromTheReadmeToEveryDocument) {
    std::set<std::string> reached = {"README.md"};
    std::vector<std::string> open = {"README.md"};
    while (!open.empty()) {
        const std::string from = open.back();
        open.pop_back();
        for (const std::string& link : LinksOf(ReadBytes(InSource(from)))) {
            const std::string file = link.substr(0, link.find('#'));
            const std::string path =
                (std::filesystem::path(from).parent_path() / file).lexically_normal().string();
            if (path.ends_with(".md") && reached.insert(path).second) open.push_back(path);
        }
    }
    for (const std::string& path : DocumentPaths()) EXPECT_TRUE(reached.contains(path)) << path;
}

}  // namespace
}  // namespace ventlock::test
