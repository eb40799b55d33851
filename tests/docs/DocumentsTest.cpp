// Every command that the documents show is run, and prints what they say.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iostream>

#include "docs/Paths.h"
#include "docs/Reader.h"

namespace ventlock::test {
namespace {

void Tell(const std::string& path, const Trial& trial) {
    std::cout << path << ": " << trial.commands << " commands tried, " << trial.untried.size()
              << " blocks not tried\n";
    for (const std::string& block : trial.untried) std::cout << "  " << path << ": " << block << '\n';
    for (const std::string& breach : trial.breaches) ADD_FAILURE() << path << ": " << breach;
}

class EveryDocument : public testing::TestWithParam<std::string> {};

TEST_P(EveryDocument, ShowsWhatTheProgramDoes) {
    const std::string path = GetParam();
    const Document document = ParseDocument(ReadBytes(InSource(path)));
    for (const std::string& problem : document.problems) ADD_FAILURE() << path << ": " << problem;
    Tell(path, Reader().Run(document));
}

INSTANTIATE_TEST_SUITE_P(Docs, EveryDocument, testing::ValuesIn(DocumentPaths()), NameOfPath);

class EveryManual : public testing::TestWithParam<std::string> {};

TEST_P(EveryManual, HasExamplesThatWork) {
    const std::string path = GetParam();
    const Document page = ParseManual(ReadBytes(VENTLOCK_MANUALS "/" + path));
    EXPECT_FALSE(page.blocks.empty()) << path << " has no example";
    for (const Block& block : page.blocks) Tell(path, Reader().Run({{block}, {}}));
}

INSTANTIATE_TEST_SUITE_P(Docs, EveryManual, testing::Values("ventlock.1", "ventlock-cli.1"), NameOfPath);

}  // namespace
}  // namespace ventlock::test
