#include <memory>

#include "support/MariadbServer.h"
#include "support/PostgresServer.h"
#include "unit/servers/ServersTest.h"

namespace ventlock::test {
namespace {

// Starts the servers before the first test and ends them after the last.
class Servers final : public ::testing::Environment {
 public:
    void SetUp() override {
        postgres_ = std::make_unique<PostgresServer>();
        mariadb_ = std::make_unique<MariadbServer>();
    }
    void TearDown() override {
        postgres_.reset();
        mariadb_.reset();
    }
    DatabaseServer& Of(Product product) {
        if (product == Product::Postgresql) return *postgres_;
        return *mariadb_;
    }

 private:
    std::unique_ptr<PostgresServer> postgres_;
    std::unique_ptr<MariadbServer> mariadb_;
};

Servers* const kServers = [] {
    auto servers = std::make_unique<Servers>();
    return static_cast<Servers*>(::testing::AddGlobalTestEnvironment(servers.release()));
}();

}  // namespace

DatabaseServer& ServerOf(Product product) {
    return kServers->Of(product);
}

std::string SuffixOf(const ::testing::TestParamInfo<Product>& info) {
    return info.param == Product::Postgresql ? "Postgresql" : "Mariadb";
}

}  // namespace ventlock::test
