#include "platform/IFiles.h"

#include "base/RunTimeError.h"

namespace ventlock {

std::optional<std::string> IFiles::ReadIfThere(const std::string& path) {
    try {
        return ReadAll(path);
    } catch (const RunTimeError& error) {
        const bool isMissing =
            error.Number() == ErrorNumber::FileNotFound || error.Number() == ErrorNumber::PathNotFound;
        if (!isMissing) throw;
        return std::nullopt;
    }
}

std::string IFiles::ReadBeginning(const std::string& path, std::size_t most) {
    return ReadAll(path).substr(0, most);
}

}  // namespace ventlock
