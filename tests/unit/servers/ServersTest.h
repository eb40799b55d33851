#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/DatabaseServer.h"
#include "unit/odbc/OdbcTest.h"

namespace ventlock::test {

/// The running server of a product that has one; one of each is started for the whole program.
DatabaseServer& ServerOf(Product product);

/// A test that runs on every server.
class OnServer : public ::testing::TestWithParam<Product> {
 protected:
    [[nodiscard]] bool IsPostgresql() const { return GetParam() == Product::Postgresql; }
    [[nodiscard]] DatabaseServer& Server() const { return ServerOf(GetParam()); }
};

std::string SuffixOf(const ::testing::TestParamInfo<Product>& info);

}  // namespace ventlock::test
