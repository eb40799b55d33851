#include <gtest/gtest.h>

#include <memory>

#include "support/OdbcFolder.h"

namespace ventlock::test {
namespace {

/// The driver manager reads where its files are when it is first asked for anything, and keeps to it:
/// whatever test comes first, the tests' own files must be there.
class OwnDriverManager final : public ::testing::Environment {
 public:
    void SetUp() override { OdbcFolder::Get(); }
};

const ::testing::Environment* const kOwnDriverManager =
    ::testing::AddGlobalTestEnvironment(std::make_unique<OwnDriverManager>().release());

}  // namespace
}  // namespace ventlock::test
