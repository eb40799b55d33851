#pragma once

#include <string_view>

namespace ventlock::test {

/// The database products that the program is tested with.
enum class Product { Sqlite, Postgresql, Mariadb };

/// The product's name as its driver tells it.
constexpr std::string_view NameOf(Product product) {
    switch (product) {
        case Product::Sqlite:
            return "SQLite";
        case Product::Postgresql:
            return "PostgreSQL";
        case Product::Mariadb:
            return "MariaDB";
    }
    return {};
}

}  // namespace ventlock::test
