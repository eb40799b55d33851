#pragma once

#include <string>
#include <string_view>

namespace ventlock::test {

/// The functions by which a driver takes text whole.
enum class ProbeText {
    Wide,   ///< UTF-16
    Bytes,  ///< UTF-8
};

/// A plain connection for setting tests up and for looking at what they left. It shares no code with the
/// engine that is tested. Every failure fails the test with the driver's message.
class OdbcProbe {
 public:
    /// @param connect  a connect string of the driver manager
    OdbcProbe(const std::string& connect, ProbeText text);
    ~OdbcProbe();
    OdbcProbe(const OdbcProbe&) = delete;
    OdbcProbe& operator=(const OdbcProbe&) = delete;

    void Execute(std::string_view sql);

    /// The rows of a query: "a|b|NULL\n" each, no line for no rows.
    std::string Rows(std::string_view sql);

    /// All statements of a file, each ended by ";" and a line end; lines that begin with "--" are left out.
    void RunScript(const std::string& path);

 private:
    void Fail(short handleType, void* handle, std::string_view what);
    short ExecuteDirectly(void* statement, const std::string& sql);
    void* Run(std::string_view sql);

    ProbeText text_;
    void* environment_ = nullptr;
    void* connection_ = nullptr;
};

}  // namespace ventlock::test
