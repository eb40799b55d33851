#pragma once

#include <future>
#include <string>
#include <vector>

#include "e2e/RunProgram.h"
#include "support/outside/Node.h"

namespace ventlock::test {

/// A program with windows on the display, driven from outside. It is ended with this when it has not ended
/// before; the nodes it has given are of no use then.
class Program {
 public:
    /// Starts it and waits for nothing: for one that shows something else before its window.
    explicit Program(const ProgramCall& call);

    /// Starts it and waits for its window of this title. What it needs to appear on the display is added to
    /// the call's environment.
    Program(const ProgramCall& call, const std::string& title);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// All that it shows.
    [[nodiscard]] const Node& Everything() const { return everything_; }

    /// A frame or a dialog that is shown. Message boxes do not go by their titles, see MessageBox().
    [[nodiscard]] Node Window(const std::string& title) const;

    [[nodiscard]] Node Field(const std::string& label) const { return everything_.Field(label); }
    [[nodiscard]] Node Button(const std::string& name) const { return everything_.Button(name); }

    /// Brings a notebook's page to the front.
    void ShowPage(const std::string& name) const;

    /// A menu of the menu bar: Menu("File").Pick("Exit"). Its items can be found in it while it is closed.
    [[nodiscard]] Node Menu(const std::string& name) const {
        return everything_.Find("menu bar").Find("menu", name);
    }

    /// The message box that is open. The toolkit names it after its icon, "Information" or "Error": the
    /// caption that it was given is not to be seen from outside.
    [[nodiscard]] Node MessageBox() const { return everything_.Find("alert"); }

    /// Waits for a message box, presses keys in it and waits until it has gone.
    /// \return its texts, a line each
    std::string DismissMessageBox(const std::string& keys = "Return") const;

    /// Waits for the file dialog of this title, enters a path, which is to be a whole one, and waits until
    /// the dialog has gone.
    void ChooseFile(const std::string& title, const std::string& path) const;

    /// Lets files go over the middle of its window, as a file manager does, and waits until it has taken
    /// them.
    void TakeFiles(const std::vector<std::string>& paths) const;

    /// Wishes that it end, as the host does when its session ends.
    void AskToEnd() const;

    [[nodiscard]] bool HasEnded() const;

    /// Waits until the program, which has been told to, has ended.
    ProgramResult WaitForEnd() const;

 private:
    /// Its windows, or how it has ended.
    [[nodiscard]] std::string Told() const;

    RunningProgram running_;
    int process_;
    std::shared_future<ProgramResult> result_;  // what it writes is read all the while
    Node everything_;
};

}  // namespace ventlock::test
