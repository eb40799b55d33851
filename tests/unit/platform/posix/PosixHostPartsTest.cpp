#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <syslog.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <clocale>
#include <csignal>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "platform/CodePage.h"
#include "platform/Host.h"
#include "platform/posix/PosixClock.h"
#include "platform/posix/PosixEventLog.h"
#include "platform/posix/PosixProcess.h"
#include "support/TempFolder.h"
#include "support/posix/NoMoreThreads.h"
#include "unit/platform/posix/ProcessState.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

std::time_t SecondsOf(const LocalTime& time) {
    std::tm parts{};
    parts.tm_year = time.year - 1900;
    parts.tm_mon = time.month - 1;
    parts.tm_mday = time.day;
    parts.tm_hour = time.hour;
    parts.tm_min = time.minute;
    parts.tm_sec = time.second;
    return timegm(&parts);
}

TEST(PosixClock, TellsTheTimeOfTheUsersZone) {
    constexpr std::time_t kAhead = 5 * 3600 + 30 * 60;
    {
        const EnvironmentVariable elsewhere("TZ", "ABC+8");
        PosixClock().Now();  // the zone of an earlier call must not stay
    }
    const EnvironmentVariable zone("TZ", "XYZ-5:30");
    const std::time_t before = std::time(nullptr);
    const std::time_t told = SecondsOf(PosixClock().Now()) - kAhead;
    const std::time_t after = std::time(nullptr);
    EXPECT_GE(told, before);
    EXPECT_LE(told, after);
}

/// A socket that listens where the system log would.
class LogSocket {
 public:
    explicit LogSocket(const std::string& path) : socket_(socket(AF_UNIX, SOCK_DGRAM, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.copy(address.sun_path, sizeof(address.sun_path) - 1);
        EXPECT_EQ(bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    }
    ~LogSocket() { close(socket_); }
    LogSocket(const LogSocket&) = delete;
    LogSocket& operator=(const LogSocket&) = delete;

 private:
    int socket_;
};

std::vector<std::pair<int, std::string>>& Received() {
    static std::vector<std::pair<int, std::string>> entries;
    return entries;
}

void Receive(int priority, const char* text) {
    Received().emplace_back(priority, text);
}

TEST(PosixEventLog, EveryTypeHasItsPriorityAndACarriageReturnBecomesABlank) {
    TempFolder folder;
    const LogSocket socket(folder / "log");
    PosixEventLog log(folder / "log", Receive);
    Received().clear();
    EXPECT_TRUE(log.Write("text\rLine: x\rFile: y", 1));
    EXPECT_TRUE(log.Write("100 % sure\n", 2));
    EXPECT_TRUE(log.Write("c", 4));
    EXPECT_TRUE(log.Write("d", 0));
    EXPECT_TRUE(log.Write("e", 16));
    EXPECT_EQ(Received(), (std::vector<std::pair<int, std::string>>{{LOG_ERR, "text Line: x File: y"},
                                                                    {LOG_WARNING, "100 % sure\n"},
                                                                    {LOG_INFO, "c"},
                                                                    {LOG_ERR, "d"},
                                                                    {LOG_ERR, "e"}}));
}

TEST(PosixEventLog, RefusesWithoutASocket) {
    TempFolder folder;
    WriteBytes(folder / "log", "");
    Received().clear();
    EXPECT_FALSE(PosixEventLog(folder / "log", Receive).Write("text", 1));
    EXPECT_FALSE(PosixEventLog(folder / "missing", Receive).Write("text", 1));
    EXPECT_TRUE(Received().empty());
}

/// An executable script.
void WriteScript(const std::string& path, const std::string& text) {
    WriteBytes(path, text);
    fs::permissions(path, fs::perms(0755));
}

/// True when the process is gone, not even left as a zombie, within ten seconds.
bool IsGone(pid_t process) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (kill(process, 0) == 0) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::yield();
    }
    return errno == ESRCH;
}

TEST(PosixProcess, StartsAProgramWithoutArgumentsAndLeavesNoZombie) {
    TempFolder folder;
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    const std::string program = folder / "my viewer; echo";
    WriteScript(program, "#!/bin/sh\necho \"$$ $# $0\" > '" + folder / "pipe" + "'\n");
    EXPECT_TRUE(PosixProcess().Start(program));
    std::ifstream pipe(folder / "pipe");
    pid_t process = 0;
    int arguments = -1;
    std::string name;
    pipe >> process >> arguments;
    pipe.get();
    std::getline(pipe, name);
    EXPECT_EQ(arguments, 0);
    EXPECT_EQ(name, program);
    ASSERT_GT(process, 0);
    EXPECT_TRUE(IsGone(process));
}

TEST(PosixProcess, DoesNotWaitForTheProgram) {
    TempFolder folder;
    ASSERT_EQ(mkfifo((folder / "begin").c_str(), 0600), 0);
    ASSERT_EQ(mkfifo((folder / "end").c_str(), 0600), 0);
    WriteScript(folder / "viewer",
                "#!/bin/sh\necho $$ > '" + folder / "begin" + "'\nread line < '" + folder / "end" + "'\n");
    EXPECT_TRUE(PosixProcess().Start(folder / "viewer"));
    pid_t process = 0;
    std::ifstream(folder / "begin") >> process;
    ASSERT_GT(process, 0);
    EXPECT_EQ(kill(process, 0), 0);  // it waits for us, not we for it
    std::ofstream(folder / "end") << "done\n";
    EXPECT_TRUE(IsGone(process));
}

TEST(PosixProcess, TheProgramGetsNoneOfOurOpenFiles) {
    TempFolder folder;
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    const int ours = fcntl(STDERR_FILENO, F_DUPFD, 100);  // one that a start would hand on
    ASSERT_GE(ours, 100);
    WriteScript(folder / "viewer", "#!/bin/sh\nif [ -e /proc/$$/fd/" + std::to_string(ours) +
                                       " ]; then echo open; else echo closed; fi > '" + folder / "pipe" +
                                       "'\n");
    EXPECT_TRUE(PosixProcess().Start(folder / "viewer"));
    std::string answer;
    std::ifstream(folder / "pipe") >> answer;
    EXPECT_EQ(answer, "closed");
    close(ours);
}

TEST(PosixProcess, TheProgramRunsInASessionOfItsOwnAndHearsEverySignal) {
    TempFolder folder;
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    WriteScript(folder / "viewer",
                "#!/bin/sh\nread -r facts < /proc/$$/stat\nset -- $facts\n{ echo $$ $6; "
                "sed -n 's/^Sig\\(Blk\\|Ign\\):.//p' /proc/$$/status; } > '" +
                    folder / "pipe" + "'\n");
    sigset_t held;
    sigset_t before;
    sigemptyset(&held);
    sigaddset(&held, SIGUSR1);
    ASSERT_EQ(pthread_sigmask(SIG_BLOCK, &held, &before), 0);
    const auto handler = std::signal(SIGUSR2, SIG_IGN);
    EXPECT_TRUE(PosixProcess().Start(folder / "viewer"));
    std::signal(SIGUSR2, handler);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    std::ifstream pipe(folder / "pipe");
    pid_t process = 0;
    pid_t session = 0;
    std::uint64_t heldBack = ~0ULL;
    std::uint64_t ignored = ~0ULL;
    pipe >> process >> session >> std::hex >> heldBack >> ignored;
    EXPECT_EQ(session, process);
    const auto bit = [](int signal) { return 1ULL << (signal - 1); };
    EXPECT_EQ(heldBack & bit(SIGUSR1), 0U);
    EXPECT_EQ(ignored & bit(SIGUSR2), 0U) << "the thread library ignores two of its own";
}

TEST(PosixProcess, StartsAProgramThoughNoThreadCanWaitForIt) {
    TempFolder folder;
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    WriteScript(folder / "viewer", "#!/bin/sh\necho $$ > '" + folder / "pipe" + "'\n");
    {
        const NoMoreThreads none;
        EXPECT_TRUE(PosixProcess().Start(folder / "viewer"));
    }
    pid_t process = 0;
    std::ifstream(folder / "pipe") >> process;
    ASSERT_GT(process, 0);
    EXPECT_EQ(waitpid(process, nullptr, 0), process);  // nobody else has
}

TEST(PosixProcess, AProgramThatCannotBeStartedIsFalse) {
    TempFolder folder;
    WriteBytes(folder / "plain", "#!/bin/sh\nexit 0\n");
    fs::permissions(folder / "plain", fs::perms(0644));
    WriteScript(folder / "nonsense", "no program at all");
    PosixProcess process;
    EXPECT_FALSE(process.Start(""));
    EXPECT_FALSE(process.Start("   "));
    EXPECT_FALSE(process.Start(folder / "missing"));
    EXPECT_FALSE(process.Start(folder.Path()));
    EXPECT_FALSE(process.Start(folder / "plain"));
    EXPECT_FALSE(process.Start(folder / "nonsense"));
    EXPECT_FALSE(process.Start("true"));  // no search in PATH
    EXPECT_FALSE(process.Start("/bin/true -x"));
    for (const std::string start : {"/bin/true; ", "$(", "`", "| ", "&& "}) {
        EXPECT_FALSE(process.Start(start + "touch " + folder / "shell"));  // no shell
    }
    EXPECT_FALSE(fs::exists(folder / "shell"));
    EXPECT_FALSE(process.Start(std::string("/bin/true\0", 10)));
}

TEST(CodePage, OfFilesThatSayNothingIsTheWesternOne) {
    EXPECT_EQ(CodePage::SystemDefault().Number(), 1252);
}

TEST(CodePage, OfAsciiIsNotThatOfTheUsersLanguage) {
    const std::string before = std::setlocale(LC_CTYPE, nullptr);
    ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
    std::optional<std::string> bytes = "none";
    std::thread([&] { bytes = CodePage(20127).Encode("ü"); }).join();  // another thread knows no page yet
    EXPECT_EQ(bytes, std::nullopt);
    std::setlocale(LC_CTYPE, before.c_str());
}

TEST(Host, GivesItsPartsAndTouchesNoFile) {
    TempFolder folder;
    const EnvironmentVariable store("VENTLOCK_REGISTRY", folder / "store/registry.ini");
    const EnvironmentVariable home("HOME", folder.Path());
    const EnvironmentVariable config("XDG_CONFIG_HOME", std::nullopt);
    const std::unique_ptr<Host> host = CreateHost("ventlock");
    EXPECT_EQ(host->Paths().ExeName(), "ventlock");
    EXPECT_EQ(host->Paths().WindowsDirectory(), folder / ".config/ventlock");
    EXPECT_EQ(host->AppInfo().Title(), "Ventlock");
    EXPECT_FALSE(host->Files().Exists(folder / "a.ini"));
    EXPECT_GE(host->Clock().Now().year, 2024);
    EXPECT_FALSE(host->Locale().LanguageName().empty());
    EXPECT_FALSE(host->Processes().Start(folder / "missing"));
    EXPECT_EQ(folder.Listing(), "");

    testing::internal::CaptureStderr();
    host->ConsoleMessages().Show("text", "", std::nullopt);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Ventlock: text\n");

    std::unique_ptr<IRegistryKey> key;
    ASSERT_EQ(host->Registry().CreateKey(RegistryRoot::CurrentUser, "Tool", key), kRegistrySuccess);
    EXPECT_EQ(key->Set("Name", kRegistryString, "a"), kRegistrySuccess);
    EXPECT_EQ(ReadBytes(folder / "store/registry.ini"), CrLf("[HKEY_CURRENT_USER\\Tool]\nName=text:\"a\"\n"));
}

}  // namespace
}  // namespace ventlock::test
