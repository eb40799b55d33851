#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

namespace ventlock::test {
namespace fs = std::filesystem;

fs::path PathOf(std::string_view utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

std::string Utf8Of(const fs::path& path) {
    const std::u8string utf8 = path.u8string();
    return {utf8.begin(), utf8.end()};
}

TempFolder::TempFolder(const fs::path& parent) {
    std::random_device random;
    for (int attempt = 0; attempt < 100; ++attempt) {
        const fs::path candidate =
            parent / ("ventlock-test-" + std::to_string(random()) + std::to_string(random()));
        if (fs::create_directory(candidate)) {
            path_ = Utf8Of(fs::canonical(candidate));
            return;
        }
    }
    ADD_FAILURE() << "no temporary folder could be made";
}

TempFolder::~TempFolder() {
    std::error_code
        ignored;  // a test may have made the folder read-only; what is left is the system's to clean
    fs::remove_all(PathOf(path_), ignored);
}

std::string TempFolder::Listing() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(PathOf(path_))) {
        names.push_back(Utf8Of(entry.path().filename()));
    }
    std::sort(names.begin(), names.end());
    std::string text;
    for (const auto& name : names) text += (text.empty() ? "" : " ") + name;
    return text;
}

std::string ReadBytes(const std::string& path) {
    std::ifstream in(PathOf(path), std::ios::binary);
    EXPECT_TRUE(in.good()) << path << " cannot be read";
    return {std::istreambuf_iterator<char>(in), {}};
}

void WriteBytes(const std::string& path, std::string_view bytes) {
    std::ofstream out(PathOf(path), std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    EXPECT_TRUE(out.good()) << path << " cannot be written";
}

std::string CrLf(std::string_view lines) {
    std::string text;
    for (const char c : lines) {
        if (c == '\n') text += '\r';
        text += c;
    }
    return text;
}

}  // namespace ventlock::test
