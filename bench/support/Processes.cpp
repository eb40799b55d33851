#include "support/Processes.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <thread>

namespace ventlock::bench {

namespace fs = std::filesystem;
namespace {

constexpr std::chrono::milliseconds kLook{50};
constexpr int kRest = 6;            // looks in a row without work
constexpr int kPatience = 400;      // looks
constexpr double kNothing = 0.001;  // seconds a look: a timer that finds nothing to do

std::string Folder(int process) {
    return "/proc/" + std::to_string(process);
}

/// A line of what the system tells of its memory.
long Memory(int process, std::string_view name) {
    std::ifstream file(Folder(process) + "/status");
    for (std::string line; std::getline(file, line);) {
        long size = 0;
        if (line.starts_with(name) && std::istringstream(line.substr(name.size())) >> size) return size;
    }
    throw std::runtime_error("nothing is known of its memory");
}

}  // namespace

double ProcessorSeconds(int process) {
    double sum = 0;
    for (const auto& thread : fs::directory_iterator(Folder(process) + "/task")) {
        std::ifstream file(thread.path() / "schedstat");
        double nanoseconds = 0;
        if (file >> nanoseconds) sum += nanoseconds / 1e9;
    }
    return sum;
}

void AwaitIdle(int process) {
    double before = ProcessorSeconds(process);
    int rests = 0;
    for (int look = 0; look < kPatience; ++look) {
        std::this_thread::sleep_for(kLook);
        const double now = ProcessorSeconds(process);
        rests = now - before < kNothing ? rests + 1 : 0;
        if (rests == kRest) return;
        before = now;
    }
    throw std::runtime_error("it never rests");
}

long ResidentKiB(int process) {
    return Memory(process, "VmRSS:");
}

long PeakKiB(int process) {
    return Memory(process, "VmHWM:");
}

void ForgetPeak(int process) {
    std::ofstream file(Folder(process) + "/clear_refs");
    if (!(file << 5).flush()) throw std::runtime_error("the most it had in memory cannot be forgotten");
}

bool HasOpen(int process, const std::string& path) {
    for (const auto& descriptor : fs::directory_iterator(Folder(process) + "/fd")) {
        std::error_code closedSince;
        if (fs::read_symlink(descriptor.path(), closedSince) == path) return true;
    }
    return false;
}

}  // namespace ventlock::bench
