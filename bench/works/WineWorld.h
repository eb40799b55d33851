#pragma once

#include <string>
#include <vector>

#include "works/WindowWorld.h"

namespace ventlock::bench {

/// The Windows programs under Wine, in a prefix of their own whose server stays up between the rounds.
/// Database and entry are those of the window's world. It is made for the first round that needs it.
class WineWorld {
 public:
    /// Both must outlive it.
    WineWorld(const Workplace& place, WindowWorld& window) : place_(place), window_(window) {}
    ~WineWorld();
    WineWorld(const WineWorld&) = delete;
    WineWorld& operator=(const WineWorld&) = delete;

    /// Before each round: as WindowWorld::Refresh. @throws std::runtime_error when there are no Windows
    /// programs
    void Refresh();

    /// Whether the window held the entry when it was closed.
    [[nodiscard]] bool HasKeptEntry() const;

    /// The words that start the window program and the bare window.
    [[nodiscard]] std::vector<std::string> Program() const;
    [[nodiscard]] static std::vector<std::string> Limit();

    [[nodiscard]] const std::vector<std::string>& Environment() const noexcept { return environment_; }
    [[nodiscard]] WindowWorld& Window() const noexcept { return window_; }

 private:
    void Make();
    void Run(const std::vector<std::string>& command) const;
    [[nodiscard]] std::string Folder() const { return place_.Path("wine"); }
    [[nodiscard]] std::string CommandLine() const { return Folder() + "/program/ventlock-cli.exe"; }

    const Workplace& place_;
    WindowWorld& window_;
    std::vector<std::string> environment_;
};

}  // namespace ventlock::bench
