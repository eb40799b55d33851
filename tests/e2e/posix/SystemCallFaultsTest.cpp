// The program from outside, with one of its system calls on its files made to fail at a time: whatever way
// they take through it, none of them may cost anybody a file.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <sstream>

#include "e2e/posix/SystemCallTrace.h"

namespace ventlock::test {
namespace {

constexpr std::array<const char*, 5> kErrors{"ENOSPC", "EIO", "EACCES", "EROFS", "EMFILE"};

/// What the program says of them.
constexpr std::array<const char*, 5> kCauses{"Disk full", "Device I/O error", "Path/File access error",
                                             "Path/File access error", "Too many files"};

/// With all reasons for each call; an ordinary run has time for one.
bool IsThorough() {
    return std::getenv("VENTLOCK_LOAD") != nullptr;
}

const std::string kOldPyxIni = CrLf(
    "[Devices]\n"
    "000011.0001.01=000011/0001\n"
    "[000011.0001.01]\n"
    "Description=Old\n");
const std::string kOldDdinstal = CrLf(
    "[General]\n"
    "NumOfMfg=1\n"
    "[Mfg1]\n"
    "ID=000011\n"
    "NumOfDev=0\n"
    "Name=Best\n");

/// A registration in one file that exists.
struct Registration {
    std::string file;
    std::string old;
    std::string untidied;  ///< what it may also be left as with a message of its own; "" for nothing
    std::vector<std::string> arguments;
};

void Prepare(const World& world, const Registration& registration) {
    world.Write("entry.ini", kFlowEntry);
    world.Write(registration.file, registration.old);
    world.Write(registration.file + ".bak", "older");
}

std::vector<std::string> NamesIn(const World& world) {
    std::istringstream listing(world.Listing());
    return {std::istream_iterator<std::string>(listing), {}};
}

class SystemCallFaults {
 public:
    explicit SystemCallFaults(Registration registration) : registration_(std::move(registration)) {
        const World world;
        Prepare(world, registration_);
        calls_ = TracedCalls(world, registration_.arguments);
        whole_ = world.Read(registration_.file);
        wholeBackup_ = world.Read(registration_.file + ".bak");
        EXPECT_EQ(world.Listing(), registration_.file + " " + registration_.file + ".bak entry.ini");
    }

    /// Fails every call, each for one reason or, in a thorough run, for all.
    void FailEveryCall() {
        std::size_t cases = 0;
        for (std::size_t i = 0; i < calls_.size(); ++i) {
            for (std::size_t k = 0; k < kErrors.size(); ++k) {
                if (!IsThorough() && k != i % kErrors.size()) continue;
                SCOPED_TRACE(calls_[i].line + " fails with " + kErrors.at(k));
                Fail(calls_[i], k);
                ++cases;
            }
        }
        std::printf("system call faults: %s: %zu calls, %zu cases, another call failed: %zu\n",
                    registration_.file.c_str(), calls_.size(), cases, others_);
    }

    [[nodiscard]] std::size_t CallCount() const { return calls_.size(); }

 private:
    /// Tries it in new worlds until it is this call that failed.
    void Fail(const SystemCall& call, std::size_t error) {
        constexpr int kTries = 40;
        for (int i = 0; i < kTries; ++i) {
            const World world;
            Prepare(world, registration_);
            const std::optional<ProgramResult> result =
                RunWithFault(world, registration_.arguments, call, kErrors.at(error));
            if (result) return Expect(world, *result, call, error);
            ++others_;
        }
        ADD_FAILURE() << "it was another call in each of " << kTries << " runs";
    }

    void Expect(const World& world, const ProgramResult& result, const SystemCall& call,
                std::size_t error) const {
        const std::string bytes = world.Read(registration_.file);
        const std::string backup = world.Read(registration_.file + ".bak");
        EXPECT_TRUE(backup == wholeBackup_ || backup == "older") << backup;
        if (result.exitCode != 0) {
            EXPECT_TRUE(bytes == registration_.old || bytes == whole_) << bytes;
            ExpectCause(result, error);
        } else if (!result.err.empty()) {
            EXPECT_EQ(bytes, registration_.untidied);
            ExpectCause(result, error);
        } else {
            EXPECT_EQ(bytes, whole_);
        }
        std::vector<std::string> allowed{registration_.file, registration_.file + ".bak", "entry.ini"};
        if (call.name == "unlink") allowed.push_back("." + registration_.file + ".lock");
        EXPECT_THAT(NamesIn(world), testing::IsSubsetOf(allowed));
    }

    /// The message tells what was the matter and with which file.
    static void ExpectCause(const ProgramResult& result, std::size_t error) {
        EXPECT_THAT(result.err, testing::HasSubstr(kCauses.at(error)));
        EXPECT_THAT(result.err, testing::HasSubstr("<world>/entry/"));
    }

    Registration registration_;
    std::vector<SystemCall> calls_;
    std::string whole_;
    std::string wholeBackup_;
    std::size_t others_ = 0;  ///< runs in which another call failed than the one that was meant
};

TEST(SystemCallFaults, LeavePyxIniWholeAndAreTold) {
    SystemCallFaults faults({"Pyx.ini",
                             kOldPyxIni,
                             CrLf("[Devices]\n"
                                  "000011.0001.01=000011/0001\n"
                                  "000026.0007.01=000026/0007\n"
                                  "[000011.0001.01]\n"
                                  "Description=Old\n"
                                  "[000026.0007.01]\n"
                                  "DeviceHelp=000026\\0007\\h.hlp\n"
                                  "BlockHelp_001=000026\\0007\\\n"
                                  "DeviceDLL=000026\\0007\\Dev.dll\n"
                                  "Description=Flow\n"
                                  "HART Protocol Rev=5\n"),
                             {"register", "entry.ini", "--ini", "--ini-path", "Pyx.ini"}});
    faults.FailEveryCall();
    EXPECT_GE(faults.CallCount(), 68U);
}

TEST(SystemCallFaults, LeaveDdinstalWholeAndAreTold) {
    SystemCallFaults faults({"Ddinstal.ini",
                             kOldDdinstal,
                             "",
                             {"register", "entry.ini", "--ddinstall", "--ddinstall-path", "Ddinstal.ini"}});
    faults.FailEveryCall();
    EXPECT_GE(faults.CallCount(), 70U);
}

}  // namespace
}  // namespace ventlock::test
