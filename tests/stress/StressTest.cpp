// Random sequences of what users do. Without a crash, a hang, a sanitizer's report or a failed assertion of
// the toolkit, and with every control in the state that the rules ask for after each action.
//
// VENTLOCK_SEED repeats one sequence; VENTLOCK_SEQUENCES, VENTLOCK_ACTIONS and VENTLOCK_LIMIT_MS ask for
// another number of sequences, of actions in each, and limit to the time of an action.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <map>

#include "gui/Input.h"
#include "stress/Actions.h"
#include "stress/Desktop.h"
#include "stress/Watchdog.h"

namespace ventlock::test {
namespace {

using std::chrono::milliseconds;

constexpr int kFirstSeed = 20'211;
constexpr int kUsualSequences = 2;
constexpr int kUsualActions = 60;
constexpr int kUsualLimitMs = 10'000;
constexpr std::size_t kNotedLength = 60;  // of a message

int Asked(const char* name, int usual) {
    const char* const given = std::getenv(name);
    return given == nullptr ? usual : std::stoi(given);
}

class Stress : public testing::Test {
 protected:
    static int Failures() {
        return testing::UnitTest::GetInstance()->current_test_info()->result()->total_part_count();
    }

    /// A sequence ends with its first failure.
    void Play(std::uint32_t seed) {
        const int failuresBefore = Failures();
        Dice dice(seed);
        Trail trail(seed);
        trail.Add("start");
        StressWorld world(dice);
        User user(world, dice, trail);
        checks_ += world.Model().Check();
        for (int i = 0; i < actionsEach_ && Failures() == failuresBefore; ++i) {
            const Action& action = NextAction(dice);
            trail.Add(action.name);
            Do(action, user);
        }
        if (Failures() != failuresBefore) {
            trail.Print(std::cerr);
        } else {
            ++passed_;
            if (isRepeated_) trail.Print(std::cout);
        }
    }

    void Do(const Action& action, User& user) {
        StressWorld& world = user.World();
        std::vector<FakeMessageBox::Message>& messages = world.Machine().messages.messages;
        messages.clear();
        watchdog_.Begin();
        action.run(user);
        Pump();
        for (const auto& message : messages) user.Note("[" + message.text.substr(0, kNotedLength) + "]");
        if (user.Window().IsUnloading()) {
            user.Note("and start again");
            world.ExpectSavedAndStartAgain();
            world.ExpectConnection();
            Pump();
        }
        const milliseconds lasted = watchdog_.End();
        EXPECT_LT(lasted, limit_) << "the window's thread was busy for too long";
        EXPECT_FALSE(user.Window().IsBusy());
        EXPECT_FALSE(wxIsBusy());
        checks_ += world.Model().Check();
        ++actions_;
        milliseconds& longest = longest_[action.name];
        longest = std::max(longest, lasted);
    }

    void PrintSummary() {
        std::cout << "sequences " << passed_ << " of " << sequences_ << ", actions " << actions_
                  << ", checks " << checks_;
        const auto longest =
            std::max_element(longest_.begin(), longest_.end(),
                             [](const auto& a, const auto& b) { return a.second < b.second; });
        if (longest != longest_.end())
            std::cout << ", longest action " << longest->second.count() << " ms (" << longest->first << ")";
        std::cout << '\n';
        for (const auto& [name, lasted] : longest_)
            RecordProperty(name + ", longest in ms", static_cast<int>(lasted.count()));
    }

    const bool isRepeated_ =
        std::getenv("VENTLOCK_SEED") != nullptr && std::getenv("VENTLOCK_SEQUENCES") == nullptr;
    const int sequences_ = isRepeated_ ? 1 : Asked("VENTLOCK_SEQUENCES", kUsualSequences);
    const int actionsEach_ = Asked("VENTLOCK_ACTIONS", kUsualActions);
    const milliseconds limit_{Asked("VENTLOCK_LIMIT_MS", kUsualLimitMs)};
    Watchdog watchdog_;
    int passed_ = 0;
    int actions_ = 0;
    long checks_ = 0;
    std::map<std::string, milliseconds> longest_;
};

TEST_F(Stress, LeavesEveryControlAsTheRulesAsk) {
    FailOnCriticals();
    const int firstSeed = Asked("VENTLOCK_SEED", kFirstSeed);
    for (int i = 0; i < sequences_; ++i) Play(static_cast<std::uint32_t>(firstSeed + i));
    PrintSummary();
}

}  // namespace
}  // namespace ventlock::test
