// The editor and the host's own functions on the same files, each difference explained to the last byte.

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>
#include <iostream>
#include <memory>

#include "differential/DeviationTally.h"
#include "differential/EditorEngine.h"
#include "differential/HostEngine.h"
#include "differential/RulesEngine.h"

namespace ventlock::test {
namespace {

constexpr std::uint32_t kCases = 10'000;
constexpr std::uint32_t kUsualSeed = 20'211;

using Observations = std::vector<Observation>;

std::uint32_t Seed() {
    const char* const given = std::getenv("VENTLOCK_SEED");
    return given == nullptr ? kUsualSeed : static_cast<std::uint32_t>(std::stoul(given));
}

Deviations FirstDeviations(std::size_t count) {
    Deviations first;
    for (std::size_t i = 0; i < count; ++i) first.set(i);
    return first;
}

std::string Described(const ProfileCase& tried) {
    std::string text = "file: " + (tried.bytes ? "\"" + Shown(*tried.bytes) + "\"" : std::string("missing"));
    for (const ProfileWrite& write : tried.writes)
        text += "\nwrite: [" + Shown(write.section) + "] " + Shown(write.key) + "=" + Shown(write.value);
    return text;
}

std::string Example(const ProfileCase& tried, const Observation& editor, const Observation& host) {
    std::string file = tried.bytes ? "\"" + Shown(*tried.bytes) + "\"" : std::string("missing");
    if (editor.kind != ObservationKind::Reading) {
        for (const ProfileWrite& write : tried.writes)
            file += " + [" + Shown(write.section) + "] " + Shown(write.key) + "=" + Shown(write.value);
    }
    return file + ": " + Shown(editor.question) + ": ours \"" + Shown(editor.answer) + "\", host's \"" +
           Shown(host.answer) + "\"";
}

testing::AssertionResult SameAnswers(const Observations& expected, const Observations& actual) {
    if (expected.size() != actual.size()) return testing::AssertionFailure() << "other questions";
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (expected[i].answer == actual[i].answer) continue;
        return testing::AssertionFailure()
               << expected[i].question << "\n  expected: " << Shown(expected[i].answer)
               << "\n  actual:   " << Shown(actual[i].answer);
    }
    return testing::AssertionSuccess();
}

/// Adds one deviation after the other to the editor's rules; those that change an answer account for it.
void Explain(const ProfileCase& tried, const std::optional<std::string>& written, const Observations& editor,
             const Observations& host, DeviationTally& tally) {
    std::vector<Deviations> parts(editor.size());
    Observations before = editor;
    for (std::size_t i = 0; i < kDeviations; ++i) {
        RulesEngine rules(FirstDeviations(i + 1));
        Observations now = Observe(rules, tried, written);
        for (std::size_t at = 0; at < editor.size(); ++at)
            parts[at].set(i, before[at].answer != now[at].answer);
        before = std::move(now);
    }
    for (std::size_t at = 0; at < editor.size(); ++at) {
        if (editor[at].answer == host[at].answer) continue;
        tally.Add(parts[at], editor[at].kind, Example(tried, editor[at], host[at]));
    }
}

TEST(ProfileDifferential, EveryDifferenceFromTheHostsFunctionsIsOneOfTheNamedDeviations) {
    ASSERT_EQ(GetACP(), static_cast<UINT>(kPage)) << "the host's functions take another code page";
    const std::uint32_t seed = Seed();
    HostEngine hostEngine;
    EditorEngine editorEngine;
    RulesEngine editorRules{Deviations()};
    RulesEngine hostRules(FirstDeviations(kDeviations));
    DeviationTally tally;
    int different = 0;
    int failures = 0;
    for (std::uint32_t number = 0; number < kCases; ++number) {
        const ProfileCase tried = ProfileGenerator(seed + number).Make();
        const auto report = [&] {
            return "seed " + std::to_string(seed) + ", case " + std::to_string(number) + "\n" +
                   Described(tried);
        };
        editorEngine.Load(tried.bytes);
        for (const ProfileWrite& write : tried.writes) editorEngine.Write(write);
        const std::optional<std::string> written = editorEngine.Bytes();

        const Observations editor = Observe(editorEngine, tried, written);
        const Observations host = Observe(hostEngine, tried, written);
        const auto ours = SameAnswers(Observe(editorRules, tried, written), editor);
        EXPECT_TRUE(ours) << "the editor departs from its rules\n" << report();
        const auto theirs = SameAnswers(Observe(hostRules, tried, written), host);
        EXPECT_TRUE(theirs) << "the host departs from the named deviations\n" << report();
        if (!ours || !theirs) {
            if (++failures == 10) FAIL() << "and so on";
            continue;
        }
        if (SameAnswers(editor, host)) continue;
        ++different;
        Explain(tried, written, editor, host, tally);
    }
    std::cout << kCases << " cases from seed " << seed << ", " << different << " with a difference\n"
              << tally.Table();
    for (std::size_t i = 0; i < kDeviations; ++i)
        EXPECT_GT(tally.Count(static_cast<Deviation>(i)), 0) << kDeviationNames.at(i) << ": never seen";
}

}  // namespace
}  // namespace ventlock::test
