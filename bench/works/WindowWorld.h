#pragma once

#include <string>
#include <vector>

#include "support/Display.h"
#include "support/Starter.h"
#include "support/Workplace.h"

namespace ventlock::bench {

/// What the window program needs to start as it does every day: a program folder, a device database with its
/// data source, and the settings of a run before, which hold a filled entry.
class WindowWorld {
 public:
    static constexpr const char* kProgram = "window/program/ventlock";  ///< in the workplace

    /// Makes all of it with the command line. Both must outlive the world.
    WindowWorld(const Workplace& place, const Starter& programs);

    /// Stores the settings again, and gives the programs an empty home.
    void Refresh() const;

    [[nodiscard]] const std::string& Database() const noexcept { return database_; }

    /// Whether the settings are those of a window that held the entry when it was closed: it completes a file
    /// name that the entry leaves short.
    [[nodiscard]] bool HasKeptEntry() const;

    /// That of all programs with a window.
    [[nodiscard]] const std::vector<std::string>& Environment() const noexcept { return environment_; }

    [[nodiscard]] const Starter& Programs() const noexcept { return programs_; }
    [[nodiscard]] Display& Screen() noexcept { return display_; }

    /// A file of the home of a round.
    [[nodiscard]] std::string Home(const std::string& name) const { return place_.Target("home/" + name); }

 private:
    void MakeDatabase() const;
    [[nodiscard]] std::string StoreEntry() const;

    const Workplace& place_;
    const Starter& programs_;
    Display display_;
    std::string database_;
    std::string store_;
    std::string settings_;  ///< what the store holds before each round
    std::vector<std::string> environment_;
};

}  // namespace ventlock::bench
