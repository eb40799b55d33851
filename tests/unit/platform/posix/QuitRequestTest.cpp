#include "platform/QuitRequest.h"

#include <gtest/gtest.h>

#include <csignal>
#include <ostream>
#include <string>

#include "support/RowName.h"
#include "unit/platform/posix/Children.h"

namespace ventlock::test {
namespace {

constexpr int kAsked = 10;
constexpr int kNotAsked = 20;
constexpr int kAskedTooEarly = 30;

struct Wish {
    std::string name;
    int signal;
};

void PrintTo(const Wish& row, std::ostream* out) {
    *out << row.name;
}

class QuitWish : public testing::TestWithParam<Wish> {};

TEST_P(QuitWish, IsRememberedAndTheProgramGoesOn) {
    Child program([] {
        WatchQuitRequests();
        if (QuitRequested()) return kAskedTooEarly;
        raise(GetParam().signal);
        return QuitRequested() ? kAsked : kNotAsked;
    });
    EXPECT_EQ(program.ExitCode(), kAsked);
}

TEST_P(QuitWish, MayComeAgainBeforeTheProgramHasEnded) {
    Child program([] {
        WatchQuitRequests();
        raise(GetParam().signal);
        raise(GetParam().signal);
        return QuitRequested() ? kAsked : kNotAsked;
    });
    EXPECT_EQ(program.ExitCode(), kAsked);
}

TEST_P(QuitWish, StaysIgnoredWhereTheStarterWantsItIgnored) {
    Child program([] {
        std::signal(GetParam().signal, SIG_IGN);
        WatchQuitRequests();
        raise(GetParam().signal);
        return QuitRequested() ? kAsked : kNotAsked;
    });
    EXPECT_EQ(program.ExitCode(), kNotAsked);
}

TEST_P(QuitWish, LetsACallInProgressGoOn) {
    Child program([] {
        WatchQuitRequests();
        struct sigaction action {};
        sigaction(GetParam().signal, nullptr, &action);
        return (action.sa_flags & SA_RESTART) != 0 ? kAsked : kNotAsked;
    });
    EXPECT_EQ(program.ExitCode(), kAsked);
}

TEST_P(QuitWish, EndsAProgramThatDoesNotWatch) {
    Child program([] {
        raise(GetParam().signal);
        return kAsked;
    });
    EXPECT_EQ(program.ExitCode(), -1);
}

INSTANTIATE_TEST_SUITE_P(Of, QuitWish,
                         testing::Values(Wish{"Termination", SIGTERM}, Wish{"HangUp", SIGHUP},
                                         Wish{"Interrupt", SIGINT}),
                         RowName());

TEST(QuitRequest, IsNoneWhenOtherSignalsCome) {
    Child program([] {
        WatchQuitRequests();
        signal(SIGUSR1, SIG_IGN);
        raise(SIGUSR1);
        return QuitRequested() ? kAsked : kNotAsked;
    });
    EXPECT_EQ(program.ExitCode(), kNotAsked);
}

}  // namespace
}  // namespace ventlock::test
