#include "support/Files.h"

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace ventlock::bench {
namespace {

void Flush(const std::string& path) {
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const bool isFlushed = descriptor >= 0 && fsync(descriptor) == 0;
    if (descriptor >= 0) close(descriptor);
    if (!isFlushed) throw std::runtime_error(path + " cannot be brought to the disk");
}

}  // namespace

std::string ReadBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error(path + " cannot be read");
    return {std::istreambuf_iterator<char>(file), {}};
}

void StoreBytes(const std::string& path, std::string_view bytes) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) throw std::runtime_error(path + " cannot be written");
    Flush(path);
    Flush(std::filesystem::path(path).parent_path().string());
}

}  // namespace ventlock::bench
