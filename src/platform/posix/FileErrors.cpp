#include "platform/posix/FileErrors.h"

#include <cerrno>
#include <cstring>

namespace ventlock {

ErrorNumber FileErrorNumber(int code) {
    switch (code) {
        case ENOENT:
            return ErrorNumber::FileNotFound;
        case ENOTDIR:
            return ErrorNumber::PathNotFound;
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
        case ELOOP:
            return ErrorNumber::PathFileAccessError;
        case EBUSY:
        case ETXTBSY:
        case EAGAIN:
        case ENOLCK:
            return ErrorNumber::PermissionDenied;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return ErrorNumber::DiskFull;
        case EMFILE:
        case ENFILE:
            return ErrorNumber::TooManyFiles;
        case ENAMETOOLONG:
        case EILSEQ:
        case EINVAL:
            return ErrorNumber::BadFileName;
        case ENXIO:
        case ENODEV:
            return ErrorNumber::DeviceUnavailable;
        case ENOMEM:
            return ErrorNumber::OutOfMemory;
        default:
            return ErrorNumber::DeviceIoError;
    }
}

RunTimeError FileError(ErrorNumber number, const std::string& path, int code) {
    const char* const words = strerrordesc_np(code);
    return RunTimeError::OfFile(
        number, "\"" + path + "\": " + (words != nullptr ? words : "error " + std::to_string(code)));
}

RunTimeError FileError(const std::string& path, int code) {
    return FileError(FileErrorNumber(code), path, code);
}

}  // namespace ventlock
