#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/Display.h"
#include "support/Starter.h"
#include "support/Workplace.h"

namespace ventlock::bench {

/// The stored settings of a window with a filled entry, by name. @param place  where its files lie, as a path
/// of the program's system, with the character that ends a folder
std::vector<std::pair<std::string, std::string>> StoredEntry(const std::string& place);

/// Whether stored settings are those of a window that held the entry when it was closed: it completes a file
/// name that the entry leaves short. @param settings  any form in which texts are found as they are
bool HoldsEntry(std::string_view settings);

/// What the window program needs to start as it does every day: a program folder, a device database with its
/// data source, and the settings of a run before, which hold a filled entry. It is made for the first round
/// that needs it: not at all when other works are measured.
class WindowWorld {
 public:
    /// In the workplace: the window program, and the one that drives the same window from inside.
    static constexpr const char* kProgram = "window/program/ventlock";
    static constexpr const char* kDriver = "window/program/window_driver";

    /// Both must outlive the world.
    WindowWorld(const Workplace& place, const Starter& programs) : place_(place), programs_(programs) {}

    /// Before each round: stores the settings again, which lead to a data source, and gives the programs an
    /// empty home.
    void Refresh(const std::string& dataSource = kOwnDataSource);

    [[nodiscard]] std::string Database() const { return place_.Path("window/device.db"); }

    /// Whether the window held the entry when it was closed.
    [[nodiscard]] bool HasKeptEntry() const;

    /// That of all programs with a window.
    [[nodiscard]] const std::vector<std::string>& Environment() const noexcept { return environment_; }

    /// The same with the data sources of another file.
    [[nodiscard]] std::vector<std::string> Environment(const std::string& dataSources) const;

    [[nodiscard]] const Starter& Programs() const noexcept { return programs_; }
    [[nodiscard]] Display& Screen() { return display_.value(); }

    /// A file of the home of a round.
    [[nodiscard]] std::string Home(const std::string& name) const { return place_.Target("home/" + name); }

    /// A file that a program leaves what it found in.
    [[nodiscard]] std::string Answer() const { return place_.Target("answer.txt"); }

 private:
    static constexpr const char* kOwnDataSource = "PYX";

    void Make();
    void CopyPrograms() const;
    void MakeEnvironment();
    void MakeDatabase() const;
    void StoreEntry() const;
    [[nodiscard]] std::string Store() const { return place_.Path("window/registry.ini"); }

    const Workplace& place_;
    const Starter& programs_;
    std::optional<Display> display_;
    std::string settings_;  ///< what the store holds before each round
    std::vector<std::string> environment_;
};

}  // namespace ventlock::bench
