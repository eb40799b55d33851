// What is left when the program is killed at any moment of its work.

#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <random>
#include <sstream>
#include <thread>

#include "e2e/World.h"
#include "load/LoadEntry.h"
#include "load/LoadSize.h"
#include "load/WholeFiles.h"

namespace ventlock::test {
namespace {

using std::chrono::microseconds;
using std::chrono::steady_clock;

constexpr int kEntriesEach = 4;    // of one run of the program
constexpr int kRunsPerFile = 125;  // so that no file outgrows what the tidy pass takes

/// Runs of the program, each of which registers new entries in all three targets.
class Runs {
 public:
    explicit Runs(unsigned seed) : random_(seed) { world_.MakeDatabase(); }

    /// One run; it is killed unless it has ended by itself before. Files and database are looked at after it.
    void Next() {
        const int run = runs_++;
        for (int i = 0; i < kEntriesEach; ++i) entries_.emplace_back(run * kEntriesEach + i);
        std::string text;
        for (int i = 0; i < kEntriesEach; ++i) text += entries_[run * kEntriesEach + i].Text();
        world_.Write(EntryFile(run), text);

        const bool isMeasured = run % kRunsPerFile == 0;  // the length grows with the files
        const auto begin = steady_clock::now();
        RunningProgram program(world_.Call(Arguments(run, {EntryFile(run)})));
        if (!isMeasured) {
            std::uniform_int_distribution<microseconds::rep> moment(0, length_.count());
            std::this_thread::sleep_for(microseconds(moment(random_)));
            kill(program.Process(), SIGKILL);
        }
        const ProgramResult result = program.Wait();
        if (result.exitCode == -1) {
            ++kills_;
        } else {
            EXPECT_EQ(result.exitCode, 0) << result.err;
            length_ = std::chrono::duration_cast<microseconds>(steady_clock::now() - begin);
        }
        KeepAcknowledged(run, result.out);
        ExpectWhole(run / kRunsPerFile);
    }

    /// Registers all entries once more, to the end. Whatever a killed run has left must not stand in the way.
    void RegisterAllOnceMore() {
        for (int first = 0; first < runs_; first += kRunsPerFile) {
            std::vector<std::string> files;
            for (int run = first; run < std::min(first + kRunsPerFile, runs_); ++run) {
                files.push_back(EntryFile(run));
            }
            const ProgramResult result = world_.Run(Arguments(first, files));
            EXPECT_EQ(result.exitCode, 0) << result.err;
            EXPECT_EQ(result.err, "");
            const int group = first / kRunsPerFile;
            Devices expected;
            for (std::size_t i = first * kEntriesEach;
                 i < std::min<std::size_t>(entries_.size(), (first + kRunsPerFile) * kEntriesEach); ++i) {
                expected.insert(entries_[i].Manufacturer() + "." + entries_[i].DeviceType());
            }
            EXPECT_EQ(DevicesOfWholePyxIni(world_.Read(PyxIni(group))), expected);
            EXPECT_EQ(DevicesOfWholeDdinstal(world_.Read(Ddinstal(group))), expected);
        }
        std::vector<std::string> names;
        for (const LoadEntry& entry : entries_) names.push_back(entry.DeviceName());
        std::sort(names.begin(), names.end());
        EXPECT_EQ(DevicesOfDatabase(), names);
        EXPECT_EQ(Temporaries("."), std::vector<std::string>{});
    }

    [[nodiscard]] unsigned Kills() const { return kills_; }
    [[nodiscard]] std::size_t Acknowledged() const { return acknowledged_; }
    [[nodiscard]] std::size_t Lost() const { return lost_; }

 private:
    static std::string EntryFile(int run) { return "entry" + std::to_string(run) + ".ini"; }
    static std::string PyxIni(int group) { return "Pyx" + std::to_string(group) + ".ini"; }
    static std::string Ddinstal(int group) { return "Ddinstal" + std::to_string(group) + ".ini"; }

    static std::vector<std::string> Arguments(int run, const std::vector<std::string>& files) {
        std::vector<std::string> arguments{"register"};
        arguments.insert(arguments.end(), files.begin(), files.end());
        const int group = run / kRunsPerFile;
        for (const std::string& argument : {std::string("--all"), std::string("--ini-path"), PyxIni(group),
                                            std::string("--ddinstall-path"), Ddinstal(group)}) {
            arguments.push_back(argument);
        }
        return arguments;
    }

    /// Notes what the program said it had written: lines "[E1] entry0.ini:1: target: written", and at the end
    /// the number of entries.
    void KeepAcknowledged(int run, const std::string& out) {
        std::istringstream lines(out);
        for (std::string line; std::getline(lines, line);) {
            if (line.ends_with(" entries written")) continue;
            EXPECT_TRUE(line.ends_with(": written")) << line;
            const LoadEntry& entry = entries_.at(std::stoul(line.substr(2)));
            const std::string device = entry.Manufacturer() + "." + entry.DeviceType();
            const int group = run / kRunsPerFile;
            if (line.find(PyxIni(group)) != std::string::npos) {
                inPyxIni_.insert(device);
            } else if (line.find(Ddinstal(group)) != std::string::npos) {
                inDdinstal_.insert(device);
            } else {
                inDatabase_.push_back(entry.DeviceName());
            }
            ++acknowledged_;
        }
    }

    void ExpectWhole(int group) {
        const auto bytesOf = [&](const std::string& name) {
            return world_.Has(name) ? world_.Read(name) : std::string();
        };
        Miss(inPyxIni_, DevicesOfWholePyxIni(bytesOf(PyxIni(group))), "Pyx.ini");
        Miss(inDdinstal_, DevicesOfWholeDdinstal(bytesOf(Ddinstal(group))), "Ddinstal.ini");
        const std::vector<std::string> stored = DevicesOfDatabase();
        Miss(inDatabase_, std::set<std::string>(stored.begin(), stored.end()), "database");
        // A run takes away what the one before it has left, so that nothing gathers.
        EXPECT_LE(Temporaries("." + PyxIni(group)).size(), 1U);
        EXPECT_LE(Temporaries("." + Ddinstal(group)).size(), 1U);
        if (runs_ % kRunsPerFile == 0) {
            inPyxIni_.clear();
            inDdinstal_.clear();
        }
    }

    template <class Acknowledged>
    void Miss(const Acknowledged& acknowledged, const std::set<std::string>& found, const char* target) {
        for (const std::string& entry : acknowledged) {
            if (found.contains(entry)) continue;
            ADD_FAILURE() << entry << " was acknowledged and is not in the " << target;
            ++lost_;
        }
    }

    /// Names of the devices whose revision is stored too, sorted.
    [[nodiscard]] std::vector<std::string> DevicesOfDatabase() const {
        std::istringstream rows(world_.Rows(
            "SELECT t.Name FROM DeviceTypes t JOIN DeviceRevisions r ON r.TavDevTypeId = t.TavDevTypeId"));
        std::vector<std::string> names;
        for (std::string name; std::getline(rows, name);) names.push_back(name);
        std::sort(names.begin(), names.end());
        return names;
    }

    /// What programs that were killed while they wrote a file have left beside it, locks aside.
    [[nodiscard]] std::vector<std::string> Temporaries(const std::string& begin) const {
        std::istringstream listing(world_.Listing());
        std::vector<std::string> names;
        for (std::string name; listing >> name;) {
            if (name.starts_with(begin) && name.ends_with(".tmp")) names.push_back(name);
        }
        return names;
    }

    World world_;
    std::mt19937 random_;
    std::vector<LoadEntry> entries_;
    int runs_ = 0;
    microseconds length_{};
    unsigned kills_ = 0;
    std::size_t acknowledged_ = 0;
    std::size_t lost_ = 0;
    std::set<std::string> inPyxIni_;
    std::set<std::string> inDdinstal_;
    std::vector<std::string> inDatabase_;
};

TEST(Kill, LosesNothingThatWasAcknowledgedAndLeavesEveryFileWhole) {
    const unsigned wanted = LoadSize();
    Runs runs(LoadSeed());
    unsigned made = 0;
    // A run may end before its moment; many that do would show that the length is not measured any more.
    for (; runs.Kills() < wanted && made < 2 * wanted; ++made) runs.Next();
    runs.RegisterAllOnceMore();
    EXPECT_EQ(runs.Kills(), wanted) << "of " << made << " runs";
    EXPECT_GT(runs.Acknowledged(), 0U);
    EXPECT_EQ(runs.Lost(), 0U);
    std::printf("kills: %u of %u in %u runs of %d entries, acknowledged: %zu, lost: %zu\n", runs.Kills(),
                wanted, made, kEntriesEach, runs.Acknowledged(), runs.Lost());
}

}  // namespace
}  // namespace ventlock::test
