#include "docs/Paths.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace ventlock::test {
namespace {

void AddFiles(const std::string& folder, std::string_view ending, std::vector<std::string>& paths) {
    for (const auto& entry : std::filesystem::directory_iterator(InSource(folder))) {
        const std::string name = entry.path().filename().string();
        if (name.ends_with(ending)) paths.push_back(folder + "/" + name);
    }
    std::sort(paths.begin(), paths.end());
}

}  // namespace

std::string InSource(const std::string& path) {
    return VENTLOCK_SOURCE_FOLDER "/" + path;
}

std::vector<std::string> DocumentPaths() {
    std::vector<std::string> paths = {"CHANGELOG.md", "README.md", "SECURITY.md"};
    AddFiles("docs", ".md", paths);
    return paths;
}

std::vector<std::string> HelpPages() {
    std::vector<std::string> paths;
    for (const char* const folder : {"data/help/de", "data/help/en"}) AddFiles(folder, ".html", paths);
    return paths;
}

std::string NameOfPath(const testing::TestParamInfo<std::string>& path) {
    std::string name;
    for (const char c : path.param) name += std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
    return name;
}

}  // namespace ventlock::test
