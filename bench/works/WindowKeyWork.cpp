#include <chrono>
#include <csignal>
#include <sstream>
#include <stdexcept>

#include "support/Databases.h"
#include "support/Files.h"
#include "works/WindowWorld.h"
#include "works/Works.h"

namespace ventlock::bench {
namespace {

constexpr int kFew = 7;                      // rounds
constexpr std::chrono::seconds kToEnd{120};  // under callgrind, too

/// The numbers that a program which is driven from inside has left.
std::vector<double> Numbers(const WindowWorld& world, std::size_t count) {
    std::istringstream answer(ReadBytes(world.Answer()));
    std::vector<double> numbers;
    for (double number = 0; answer >> number;) numbers.push_back(number);
    if (numbers.size() != count) throw std::runtime_error("no answer");
    return numbers;
}

/// Ends the program when it does not, as one whose window never comes: behind a message box.
void Run(const WindowWorld& world, const std::vector<std::string>& command,
         const std::vector<std::string>& environment) {
    const int process = world.Programs().Start(command, environment);
    if (!world.Programs().EndsWithin(kToEnd)) kill(process, SIGKILL);
    world.Programs().Finish(command.front());
}

}  // namespace

void AddKeyPress(Bench& bench, WindowWorld& world) {
    const auto add = [&](const std::string& name, bool isPainted, const std::vector<std::string>& command) {
        Candidate candidate;
        candidate.name = name;
        candidate.prepare = [&world] { world.Refresh(); };
        candidate.run = [&world, isPainted, command] {
            std::vector<std::string> whole = command;
            whole.push_back(world.Answer());
            Run(world, whole, world.Environment());
            const std::vector<double> nanoseconds = Numbers(world, 2);
            return Usage{.seconds = nanoseconds[isPainted ? 1 : 0] / 1e9};
        };
        candidate.mostRounds = kFew;
        bench.Add("window-key", isPainted ? "painted" : "handled", candidate);
    };
    for (const bool isPainted : {false, true}) {
        add("ventlock", isPainted, {bench.Place().Path(WindowWorld::kDriver), "key"});
        add("limit", isPainted, {VENTLOCK_KEY_LIMIT});
    }
}

void AddWindowWrite(Bench& bench, WindowWorld& world, Databases& databases) {
    for (const std::size_t devices : {3875, 31000}) {
        Candidate candidate;
        candidate.name = "ventlock";
        candidate.prepare = [&world, &databases, devices] {
            databases.StoreSqlite(devices);
            world.Refresh(Databases::kSqlite);
        };
        candidate.run = [&world, &place = bench.Place()] {
            Run(world, {place.Path(WindowWorld::kDriver), "write", world.Answer()},
                world.Environment(place.Path("odbc.ini")));
            const std::vector<double> numbers = Numbers(world, 3);
            return Usage{.seconds = numbers[0] / 1e9,
                         .peakKiB = static_cast<long>(numbers[2]),
                         .idleKiB = static_cast<long>(numbers[1])};
        };
        candidate.mostRounds = kFew;
        bench.Add("window-write", std::to_string(devices), candidate);
    }
}

}  // namespace ventlock::bench
