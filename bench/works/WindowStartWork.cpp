#include <csignal>
#include <filesystem>
#include <stdexcept>

#include "support/Files.h"
#include "support/Processes.h"
#include "works/WindowWorld.h"
#include "works/Works.h"

namespace ventlock::bench {
namespace {

constexpr const char* kOurs = "ventlock";
constexpr std::chrono::seconds kToCome{120};  // under callgrind, too
constexpr std::chrono::seconds kToEnd{60};

/// A program with a window.
struct WindowProgram {
    std::string name;
    std::vector<std::string> command;
    std::string title;  ///< what its main window's begins with
    bool isSlow = false;
};

/// Without it the program greets its user in a dialog before anything else.
void StoreFileZillaSettings(const WindowWorld& world) {
    std::filesystem::create_directories(world.Home("config/filezilla"));
    StoreBytes(world.Home("config/filezilla/filezilla.xml"),
               "<?xml version=\"1.0\"?><FileZilla3><Settings>"
               "<Setting name=\"Greeting version\">99.0.0</Setting>"
               "<Setting name=\"Greeting resources\"></Setting>"
               "<Setting name=\"Update Check\">0</Setting>"
               "</Settings></FileZilla3>");
}

/// From its start until its window is mapped; then it rests, is looked at and closed as its user would.
Usage Measure(WindowWorld& world, const WindowProgram& program, const std::vector<std::string>& environment) {
    Display& display = world.Screen();
    display.Forget();
    const auto begin = std::chrono::steady_clock::now();
    const int process = world.Programs().Start(program.command, environment);
    const auto window = display.AwaitWindow(program.title, kToCome);
    Usage usage;
    bool isConnected = false;
    if (window) {
        usage.seconds = std::chrono::duration<double>(window->mappedAt - begin).count();
        usage.userSeconds = ProcessorSeconds(process);
        isConnected = HasOpen(process, world.Database());
        AwaitIdle(process);
        usage.idleKiB = ResidentKiB(process);
        display.Close(*window);
    }
    if (!world.Programs().EndsWithin(window ? kToEnd : std::chrono::seconds{0})) kill(process, SIGKILL);
    usage.peakKiB = world.Programs().Finish(program.command.back()).peakKiB;
    if (!window) throw std::runtime_error("no window has come");
    if (program.name == kOurs && !isConnected)
        throw std::runtime_error("the window came without its database");
    return usage;
}

}  // namespace

void AddWindowStart(Bench& bench, WindowWorld& world) {
    const auto add = [&](const WindowProgram& program) {
        Candidate candidate;
        candidate.name = program.name;
        candidate.isSlow = program.isSlow;
        candidate.prepare = [&world, program] {
            world.Refresh();
            if (program.name == "FileZilla") StoreFileZillaSettings(world);
        };
        candidate.run = [&world, program] { return Measure(world, program, world.Environment()); };
        if (program.name == kOurs)
            candidate.check = [&world] { return Outcome{.hasEntry = world.HasKeptEntry()}; };
        bench.Add("window-start", "start", candidate);
    };
    add({kOurs, {bench.Place().Path(WindowWorld::kProgram)}, "Ventlock"});
    add({"limit", {VENTLOCK_WINDOW_LIMIT}, "Bare window"});
    add({"DB Browser for SQLite", {"sqlitebrowser"}, "DB Browser for SQLite", true});
    add({"FileZilla", {"filezilla"}, "FileZilla", true});
    add({"Poedit", {"poedit"}, "Welcome to Poedit", true});
}

void AddWineStart(Bench& bench, WineWorld& world) {
    const auto add = [&](const std::string& name, const std::string& title, const auto& command) {
        Candidate candidate;
        candidate.name = name;
        candidate.isSlow = true;
        candidate.prepare = [&world] { world.Refresh(); };
        candidate.run = [&world, name, title, command] {
            return Measure(world.Window(), {name, command(), title}, world.Environment());
        };
        if (name == kOurs) candidate.check = [&world] { return Outcome{.hasEntry = world.HasKeptEntry()}; };
        bench.Add("window-start-wine", "start", candidate);
    };
    add(kOurs, "Ventlock", [&world] { return world.Program(); });
    add("limit", "Bare window", [] { return WineWorld::Limit(); });
}

}  // namespace ventlock::bench
