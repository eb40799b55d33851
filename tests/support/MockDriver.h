#pragma once

#include <string>

namespace ventlock::test {

/// The mock driver, loaded for the life of a test. Its destructor lets every call that hangs go on and waits
/// for all of them, so that no thread of one test is left to the next.
class MockDriver {
 public:
    /// @param library  the path of the driver's library
    explicit MockDriver(std::string library);
    ~MockDriver();
    MockDriver(const MockDriver&) = delete;
    MockDriver& operator=(const MockDriver&) = delete;

    /// What the program connects with to reach a new data source of the driver that answers in this manner,
    /// e.g. "hangs_in_connect".
    std::string ConnectString(const std::string& manner);

    void Release();
    void WaitForHanging(int calls);
    int Cancels();
    int Executions();
    int ReadOnlyConnections();

 private:
    template <class Function>
    Function* Find(const char* name);

    std::string library_;
    void* handle_ = nullptr;
};

}  // namespace ventlock::test
