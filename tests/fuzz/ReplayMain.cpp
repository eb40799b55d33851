// Tries every file of the folders that the call names, in the order of their names. A broken rule ends the
// program.

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "fuzz/Fields.h"

int main(int argc, char** argv) {
    std::vector<std::filesystem::path> paths;
    for (int i = 1; i < argc; ++i) {
        for (const auto& file : std::filesystem::directory_iterator(argv[i])) paths.push_back(file.path());
    }
    if (paths.empty()) {
        std::fputs("There is nothing to try.\n", stderr);
        return 1;
    }
    std::sort(paths.begin(), paths.end());
    for (const auto& path : paths) {
        std::ifstream file(path, std::ios::binary);
        if (!file) {
            std::fprintf(stderr, "Cannot read %s\n", path.c_str());
            return 1;
        }
        const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
        std::fprintf(stderr, "%s\n", path.c_str());
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    }
}
