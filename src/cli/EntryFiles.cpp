#include "cli/EntryFiles.h"

#include <utility>

#include "base/Utf.h"
#include "cli/Advice.h"
#include "cli/CliError.h"

namespace ventlock {

std::vector<LoadedEntryFile> LoadEntryFiles(Services& services, const std::vector<std::string>& paths) {
    std::vector<LoadedEntryFile> files;
    for (const std::string& path : paths) {
        try {
            files.push_back({path, ParseEntryFile(services.Files().ReadAll(services.Absolute(path)))});
        } catch (const RunTimeError& error) {
            throw CliError(ExitCode::WrongCall, "entry file " + path + ": " + error.what(), {},
                           FileAdvice(error.Number()));
        }
    }
    return files;
}

ProfileFile EncodingOfTarget(Services& services, const std::string& path) {
    IFiles& files = services.Files();
    try {
        std::string mark = files.Exists(path) ? files.ReadBeginning(path, kUtf16Mark.size()) : std::string();
        // Whether UTF-16 text is whole shows at its end.
        return {mark == kUtf16Mark ? files.ReadAll(path) : std::move(mark), services.Profiles().Page()};
    } catch (const RunTimeError& error) {
        throw CliError(CodeOf(error), path + ": " + error.what(), {}, FileAdvice(error.Number()));
    }
}

std::function<bool(const std::string&)> ResourcesBeside(Services& services, const std::string& entryFile) {
    const std::string path = services.Absolute(entryFile);
    const std::string folder = path.substr(0, path.find_last_of("/\\"));
    return [&services, folder](const std::string& name) {
        return services.Files().Exists(services.Machine().Paths().Join(folder, name));
    };
}

ExitCode CodeOf(const RunTimeError& error) {
    switch (error.Number()) {
        case ErrorNumber::PathNotFound:
        case ErrorNumber::DeviceUnavailable:
        case ErrorNumber::DiskNotReady:
            return ExitCode::Unreachable;
        default:
            return ExitCode::TargetFailed;
    }
}

}  // namespace ventlock
