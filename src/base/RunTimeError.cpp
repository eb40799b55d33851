#include "base/RunTimeError.h"

#include <utility>

namespace ventlock {

std::string_view DescriptionOf(ErrorNumber number) {
    switch (number) {
        case ErrorNumber::InvalidProcedureCall:
            return "Invalid procedure call or argument";
        case ErrorNumber::Overflow:
            return "Overflow";
        case ErrorNumber::OutOfMemory:
            return "Out of memory";
        case ErrorNumber::TypeMismatch:
            return "Type mismatch";
        case ErrorNumber::InternalError:
            return "Internal error";
        case ErrorNumber::BadFileName:
            return "Bad file name or number";
        case ErrorNumber::FileNotFound:
            return "File not found";
        case ErrorNumber::DeviceIoError:
            return "Device I/O error";
        case ErrorNumber::DiskFull:
            return "Disk full";
        case ErrorNumber::TooManyFiles:
            return "Too many files";
        case ErrorNumber::DeviceUnavailable:
            return "Device unavailable";
        case ErrorNumber::PermissionDenied:
            return "Permission denied";
        case ErrorNumber::DiskNotReady:
            return "Disk not ready";
        case ErrorNumber::PathFileAccessError:
            return "Path/File access error";
        case ErrorNumber::PathNotFound:
            return "Path not found";
        case ErrorNumber::ObjectVariableNotSet:
            return "Object variable or With block variable not set";
        case ErrorNumber::InvalidUseOfNull:
            return "Invalid use of Null";
        case ErrorNumber::ObjectRequired:
            return "Object required";
        case ErrorNumber::CannotCreateObject:
            return "ActiveX component can't create object";
        case ErrorNumber::KeyAlreadyAssociated:
            return "This key is already associated with an element of this collection";
        case ErrorNumber::NoCurrentRecord:
            return "No current record.";
        case ErrorNumber::OdbcCallFailed:
            return "ODBC--call failed.";
        case ErrorNumber::ItemNotFound:
            return "Item not found in this collection.";
        case ErrorNumber::ObjectInvalid:
            return "Object invalid or no longer set.";
    }
    return "Internal error";
}

namespace {

std::string WithDetail(ErrorNumber number, std::string_view detail) {
    std::string text(DescriptionOf(number));
    if (!detail.empty()) {
        text += ' ';
        text += detail;
    }
    return text;
}

}  // namespace

RunTimeError::RunTimeError(ErrorNumber number) : RunTimeError(number, {}) {}

RunTimeError::RunTimeError(ErrorNumber number, std::string_view detail)
    : std::runtime_error(WithDetail(number, detail)), number_(number) {}

RunTimeError RunTimeError::OdbcCallFailed(std::vector<std::string> diagnostics) {
    RunTimeError error(ErrorNumber::OdbcCallFailed,
                       diagnostics.empty() ? std::string_view() : diagnostics.front());
    error.diagnostics_ = std::move(diagnostics);
    return error;
}

}  // namespace ventlock
