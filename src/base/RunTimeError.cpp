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
        case ErrorNumber::CannotOpenClipboard:
            return "Can't open Clipboard";
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

std::string Joined(std::string_view text, std::string_view more) {
    std::string joined(text);
    if (!more.empty()) joined.append(" ").append(more);
    return joined;
}

}  // namespace

RunTimeError::RunTimeError(ErrorNumber number, std::string description, const std::string& circumstance)
    : std::runtime_error(Joined(description, circumstance)),
      number_(number),
      description_(std::move(description)) {}

RunTimeError::RunTimeError(ErrorNumber number) : RunTimeError(number, std::string_view()) {}

RunTimeError::RunTimeError(ErrorNumber number, std::string_view detail)
    : RunTimeError(number, Joined(DescriptionOf(number), detail), "") {}

RunTimeError RunTimeError::OfFile(ErrorNumber number, const std::string& circumstance) {
    return {number, std::string(DescriptionOf(number)), circumstance};
}

RunTimeError RunTimeError::OdbcCallFailed(std::vector<std::string> diagnostics) {
    RunTimeError error(ErrorNumber::OdbcCallFailed,
                       diagnostics.empty() ? std::string_view() : diagnostics.front());
    error.diagnostics_ = std::move(diagnostics);
    return error;
}

}  // namespace ventlock
