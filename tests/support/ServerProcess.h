#pragma once

#include <signal.h>
#include <sys/types.h>

#include <string>
#include <thread>
#include <vector>

namespace ventlock::test {

/// The account that a server runs under when the tests have the superuser's rights, which servers refuse; the
/// tests' own account otherwise.
class ServerAccount {
 public:
    explicit ServerAccount(std::string name) : name_(std::move(name)) {}

    /// The command line that runs `command` under the account and ends it together with the test program.
    [[nodiscard]] std::vector<std::string> Running(const std::vector<std::string>& command) const;

    /// Makes a folder that belongs to the account.
    void MakeFolder(const std::string& path) const;

 private:
    std::string name_;
};

/// Where a server's temporary folder is to be made: in memory where there is room, because its files need not
/// outlive a power cut and most of a server's time would go into waiting for the disk.
std::string ServerFolders();

/// Runs a command to its end; a failure fails the test with what the command wrote.
void RunToEnd(const std::vector<std::string>& command);

/// A server that runs until it is ended, by its destructor at the latest.
class ServerProcess {
 public:
    /// Starts the command and returns when it has written `ready`; fails the test when it ends before.
    ServerProcess(const std::vector<std::string>& command, const std::string& ready);
    ~ServerProcess();
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;

    void Send(int signal) const;

    /// Sends the signal and waits until the server has ended.
    void End(int signal);

 private:
    pid_t process_ = -1;
    int output_ = -1;
    std::thread drain_;  // so that a talkative server never waits for its reader
};

}  // namespace ventlock::test
