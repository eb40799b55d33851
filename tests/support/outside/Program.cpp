#include "support/outside/Program.h"

#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <cstdlib>

#include "support/outside/FileDrag.h"
#include "support/outside/Keyboard.h"
#include "support/outside/Waiting.h"

namespace ventlock::test {
namespace {

/// What with_display.sh has set and a program needs to appear on the display.
constexpr const char* kDisplayVariables[] = {"DISPLAY",       "XDG_RUNTIME_DIR",  "DBUS_SESSION_BUS_ADDRESS",
                                             "GDK_BACKEND",   "GDK_SCALE",        "GTK_USE_PORTAL",
                                             "GTK_IM_MODULE", "GSETTINGS_BACKEND"};

ProgramCall OnTheDisplay(ProgramCall call) {
    for (const char* const name : kDisplayVariables) {
        const char* const value = std::getenv(name);
        if (value != nullptr) call.environment.push_back(std::string(name) + "=" + value);
    }
    return call;
}

std::optional<Accessible> OfProcess(int process) {
    for (const Accessible& program : Accessible::Registry().Children()) {
        try {
            if (program.Process() == process) return program;
        } catch (const Gone&) {
            // Another program that is just ending.
        }
    }
    return {};
}

}  // namespace

Program::Program(const ProgramCall& call)
    : running_(OnTheDisplay(call)),
      process_(running_.Process()),
      result_(std::async(std::launch::async, [this] { return running_.Wait(); })),
      everything_(
          call.command.front(), [process = process_] { return OfProcess(process); },
          [this] { return Told(); }) {}

Program::Program(const ProgramCall& call, const std::string& title) : Program(call) {
    const Node window = Window(title);
    const bool came = ComesTrue([&] { return HasEnded() || window.Exists(); });
    if (!came || HasEnded()) StopTest("There is no window \"" + title + "\". " + Told());
}

Program::~Program() {
    if (!HasEnded()) kill(process_, SIGKILL);
}

std::string Program::Told() const {
    if (HasEnded()) {
        return "The program has ended with exit code " + std::to_string(result_.get().exitCode) + ":\n" +
               result_.get().err;
    }
    try {
        const std::optional<Accessible> program = OfProcess(process_);
        return program ? "There is:\n" + program->Tree() : "The program shows nothing.";
    } catch (const Gone& gone) {
        return std::string("Nothing is known of the program: ") + gone.what();
    }
}

void Program::TakeFiles(const std::vector<std::string>& paths) const {
    DropFiles(process_, paths);
}

void Program::AskToEnd() const {
    kill(process_, SIGTERM);
}

bool Program::HasEnded() const {
    return result_.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

ProgramResult Program::WaitForEnd() const {
    if (result_.wait_for(kPatience) != std::future_status::ready)
        StopTest("The program does not end. " + Told());
    return result_.get();
}

Node Program::Window(const std::string& title) const {
    const auto find = [process = process_, title]() -> std::optional<Accessible> {
        const std::optional<Accessible> program = OfProcess(process);
        if (!program) return {};
        for (const Accessible& window : program->Children()) {
            if (window.Name() == title && window.Is(ATSPI_STATE_SHOWING)) return window;
        }
        return {};
    };
    return {"window \"" + title + "\"", find, [this] { return Told(); }};
}

void Program::ShowPage(const std::string& name) const {
    everything_.Find("page tab list").Select(name);
}

std::string Program::DismissMessageBox(const std::string& keys) const {
    const Node box = MessageBox().This();
    std::string texts;
    for (const std::string& text : box.Labels()) texts += (texts.empty() ? "" : "\n") + text;
    box.Press(keys);
    box.ExpectHidden();
    return texts;
}

void Program::ChooseFile(const std::string& title, const std::string& path) const {
    const Node dialog = Window(title).This();
    dialog.Press("ctrl+l");  // to where a path can be typed
    const Node location = dialog.Find("text");
    location.Press("ctrl+a");
    Keyboard().Type(path);  // the dialog completes names as they are typed
    location.ExpectText(path);
    location.Press("Return");
    dialog.ExpectHidden();
}

}  // namespace ventlock::test
