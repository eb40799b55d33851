#pragma once

#include <gtest/gtest.h>

#include <string>

namespace ventlock::test {

/// Names the rows of a parametrised test after their member `name`.
struct RowName {
    template <class Row>
    std::string operator()(const testing::TestParamInfo<Row>& row) const {
        return std::string(row.param.name);
    }
};

}  // namespace ventlock::test
