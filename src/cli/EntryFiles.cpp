#include "cli/EntryFiles.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "base/Utf.h"
#include "cli/Advice.h"
#include "cli/CliError.h"
#include "cli/ReportCases.h"
#include "platform/Casing.h"

namespace ventlock {
namespace {

/// True for the name of what may be an entry file in a folder.
bool IsEntryFileName(std::string_view name) {
    constexpr std::string_view kEnding = ".ini";
    if (name.starts_with('.') || name.size() < kEnding.size()) return false;
    for (const char* const other : {"Pyx.ini", "Ddinstal.ini", "desktop.ini"}) {
        if (EqualIgnoringCase(name, other)) return false;
    }
    return EqualIgnoringCase(name.substr(name.size() - kEnding.size()), kEnding);
}

class Loader {
 public:
    Loader(Services& services, Console& console) : services_(services), console_(console) {}

    std::vector<LoadedEntryFile> Load(const std::vector<std::string>& paths) {
        for (const std::string& path : paths) {
            if (auto names = NamesIn(path)) {
                LoadFolder(path, std::move(*names));
            } else {
                files_.push_back({path, ParseEntryFile(Read(path))});
            }
        }
        return std::move(files_);
    }

 private:
    std::optional<std::vector<std::string>> NamesIn(const std::string& path) {
        try {
            return services_.Files().FilesIn(services_.Absolute(path));
        } catch (const RunTimeError& error) {
            throw CliError(ExitCode::WrongCall, "folder " + path + ": " + error.what(), {},
                           "Check that you may read the folder.");
        }
    }

    std::string Read(const std::string& path) {
        try {
            return services_.Files().ReadAll(services_.Absolute(path));
        } catch (const RunTimeError& error) {
            throw CliError(ExitCode::WrongCall, "entry file " + path + ": " + error.what(), {},
                           FileAdvice(error.Number()));
        }
    }

    void LoadFolder(const std::string& folder, std::vector<std::string> names) {
        std::sort(names.begin(), names.end());
        const std::size_t before = files_.size();
        for (const std::string& name : names) {
            if (!IsEntryFileName(name)) continue;
            const std::string path = services_.Machine().Paths().Join(folder, name);
            const std::string bytes = Read(path);
            if (MayBeEntryFile(bytes)) {
                files_.push_back({path, ParseEntryFile(bytes)});
            } else {
                LeaveOut(path);
            }
        }
        if (files_.size() != before) return;
        throw CliError(ExitCode::WrongCall, "folder " + folder + ": there is no entry file in it", {},
                       "Entry files are named *.ini; \"Pyx.ini\", \"Ddinstal.ini\", hidden files and folders "
                       "below it do not count.");
    }

    void LeaveOut(const std::string& path) {
        console_.document["leftOut"].push_back(path);
        if (console_.isJson || console_.isQuiet) return;
        console_.WriteProblem(path + ": left out: " + kNoEntryKey);
    }

    Services& services_;
    Console& console_;
    std::vector<LoadedEntryFile> files_;
};

}  // namespace

std::vector<LoadedEntryFile> LoadEntryFiles(Services& services, const std::vector<std::string>& paths,
                                            Console& console) {
    return Loader(services, console).Load(paths);
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
