#include "support/MockDriver.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <utility>

#include "support/MockDriverControl.h"
#include "support/OdbcFolder.h"

namespace ventlock::test {

MockDriver::MockDriver(std::string library) : library_(std::move(library)) {
    handle_ = dlopen(library_.c_str(), RTLD_NOW | RTLD_LOCAL);
    EXPECT_NE(handle_, nullptr) << library_ << " cannot be loaded";
    Find<decltype(MockReset)>("MockReset")();
}

MockDriver::~MockDriver() {
    Release();
    WaitForHanging(0);
    // The library stays loaded: a thread that was given up may still be on its way out of it.
}

std::string MockDriver::ConnectString(const std::string& manner) {
    const std::string name = OdbcFolder::Get().UnusedName() + "_" + manner;
    OdbcFolder::Get().AddDataSource(name, library_, {});
    return "ODBC;UID=sa;PWD=;DSN=" + name;
}

void MockDriver::Release() {
    Find<decltype(MockRelease)>("MockRelease")();
}

void MockDriver::WaitForHanging(int calls) {
    Find<decltype(MockWaitForHanging)>("MockWaitForHanging")(calls);
}

int MockDriver::Cancels() {
    return Find<decltype(MockCancels)>("MockCancels")();
}

int MockDriver::Executions() {
    return Find<decltype(MockExecutions)>("MockExecutions")();
}

int MockDriver::ReadOnlyConnections() {
    return Find<decltype(MockReadOnlyConnections)>("MockReadOnlyConnections")();
}

template <class Function>
Function* MockDriver::Find(const char* name) {
    void* symbol = dlsym(handle_, name);
    EXPECT_NE(symbol, nullptr) << name;
    return reinterpret_cast<Function*>(symbol);
}

}  // namespace ventlock::test
