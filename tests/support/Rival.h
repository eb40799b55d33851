#pragma once

#include <future>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "support/OdbcProbe.h"

namespace ventlock::test {

/// Another program's connection to the database that is tested. One of its statements may wait for a lock
/// while the test goes on. A failing statement fails the test.
class Rival {
 public:
    explicit Rival(std::unique_ptr<OdbcProbe> connection) : connection_(std::move(connection)) {}

    /// Runs a statement to its end.
    void Execute(std::string_view sql) { connection_->Execute(sql); }

    /// Sends a statement that may have to wait; AwaitAnswer comes before the next one.
    void Send(std::string sql) {
        answer_ = std::async(std::launch::async, [connection = connection_.get(), sql = std::move(sql)] {
            connection->Execute(sql);
        });
    }

    /// Returns when the statement that was sent has ended.
    void AwaitAnswer() { answer_.get(); }

 private:
    std::unique_ptr<OdbcProbe> connection_;
    std::future<void> answer_;  // waits in its destructor, before the connection goes
};

}  // namespace ventlock::test
