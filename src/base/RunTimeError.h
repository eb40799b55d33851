#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace ventlock {

/// The classic run-time error numbers; each has one description, see DescriptionOf.
enum class ErrorNumber : int {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    TypeMismatch = 13,
    InternalError = 51,
    BadFileName = 52,
    FileNotFound = 53,
    DeviceIoError = 57,
    DiskFull = 61,
    TooManyFiles = 67,
    DeviceUnavailable = 68,
    PermissionDenied = 70,
    DiskNotReady = 71,
    PathFileAccessError = 75,
    PathNotFound = 76,
    ObjectVariableNotSet = 91,
    InvalidUseOfNull = 94,
    ObjectRequired = 424,
    CannotCreateObject = 429,
    KeyAlreadyAssociated = 457,
    CannotOpenClipboard = 521,
    NoCurrentRecord = 3021,
    OdbcCallFailed = 3146,
    ItemNotFound = 3265,
    ObjectInvalid = 3420,
};

/// The exact description of a number, e.g. "Invalid use of Null" for 94.
std::string_view DescriptionOf(ErrorNumber number);

/// What every procedure below the public ones raises. Public procedures never let it out: their guard turns
/// it into one log entry "tag-step: description (number)" and the procedure's failure value.
class RunTimeError : public std::runtime_error {
 public:
    /// The description is the number's own text.
    explicit RunTimeError(ErrorNumber number);

    /// The description is the number's own text, one blank and `detail` (a field's text, a driver's message).
    RunTimeError(ErrorNumber number, std::string_view detail);

    /// A failed database call: 3146, "ODBC--call failed.", one blank and the first of `diagnostics`.
    /// All of `diagnostics` stay readable in Diagnostics(); empty gives the bare text.
    static RunTimeError OdbcCallFailed(std::vector<std::string> diagnostics);

    /// A failed file operation. The description is the number's own text; `circumstance` (which file, the
    /// system's own words) is told by what() only.
    static RunTimeError OfFile(ErrorNumber number, const std::string& circumstance);

    [[nodiscard]] ErrorNumber Number() const noexcept { return number_; }

    /// The text that goes into the log; what() may tell more.
    [[nodiscard]] const std::string& Description() const noexcept { return description_; }

    /// Every record that a driver left, "[state] text (native code)" each, in the driver's order.
    [[nodiscard]] const std::vector<std::string>& Diagnostics() const noexcept { return diagnostics_; }

 private:
    RunTimeError(ErrorNumber number, std::string description, const std::string& circumstance);

    ErrorNumber number_;
    std::string description_;
    std::vector<std::string> diagnostics_;
};

}  // namespace ventlock
