#include "e2e/posix/SystemCallTrace.h"

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <utility>

namespace ventlock::test {
namespace {

constexpr const char* kTracer = "/usr/bin/strace";

/// Every call by which a program can look at, change or make a file.
constexpr const char* kFileCalls =
    "open,openat,openat2,creat,close,read,pread64,readv,write,pwrite64,writev,fsync,fdatasync,ftruncate,"
    "truncate,stat,lstat,fstat,newfstatat,statx,access,faccessat,faccessat2,readlink,readlinkat,chmod,fchmod,"
    "fchmodat,chown,fchown,lchown,fchownat,rename,renameat,renameat2,link,linkat,symlink,unlink,unlinkat,"
    "flock,mkdir,mkdirat,getdents64,utimensat,copy_file_range,sendfile";

ProgramResult RunTraced(const World& world, const std::vector<std::string>& arguments,
                        const std::vector<std::string>& options) {
    ProgramCall call = world.Call(arguments);
    std::vector<std::string> command{kTracer, "-f", "-y", "--seccomp-bpf"};
    command.insert(command.end(), options.begin(), options.end());
    command.insert(command.end(), call.command.begin(), call.command.end());
    call.command = command;
    // The search for leaks stops the program itself, which it cannot while it is traced.
    std::string* sanitizer = nullptr;
    for (std::string& variable : call.environment) {
        if (variable.starts_with("ASAN_OPTIONS=")) sanitizer = &variable;
    }
    if (sanitizer == nullptr) sanitizer = &call.environment.emplace_back("ASAN_OPTIONS=");
    *sanitizer += ":detect_leaks=0";
    return world.Finished(call);
}

/// The path from the working folder, "./Pyx.ini", that a traced call names or has open; "" when it has to do
/// with none in there.
std::string FileOf(const std::string& line, const std::string& place) {
    static const std::regex kText("[\"<](/[^\">]*)[\">]");
    static const std::regex kMadeUp("[0-9a-f]{32}");
    for (std::sregex_iterator text(line.begin(), line.end(), kText), end; text != end; ++text) {
        const std::string path = (*text)[1];
        const bool isWorkingFolderOnly = text->prefix().str().ends_with("AT_FDCWD");
        if (isWorkingFolderOnly || (path != place && !path.starts_with(place + "/"))) continue;
        return "." + std::regex_replace(path.substr(place.size()), kMadeUp, "*");
    }
    return "";
}

std::string PlaceOf(const World& world) {
    return world.Path("").substr(0, world.Path("").size() - 1);
}

struct Trace {
    std::vector<SystemCall> calls;   ///< on the world
    std::vector<SystemCall> failed;  ///< of these, the ones the tracer made fail
    std::set<std::string> processes;
};

Trace ReadTrace(const std::string& text, const std::string& place) {
    static const std::regex kCall(R"(^(\d+) +(\w+)\()");
    Trace trace;
    std::map<std::string, std::size_t> ordinals;
    std::map<std::pair<std::string, std::string>, std::size_t> nths;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::smatch parts;
        if (!std::regex_search(line, parts, kCall)) continue;
        trace.processes.insert(parts[1]);
        const std::string name = parts[2];
        const std::size_t ordinal = ++ordinals[name];
        const std::string file = FileOf(line, place);
        if (file.empty()) continue;
        trace.calls.push_back({name, ordinal, file, ++nths[{name, file}], line});
        if (line.find("(INJECTED)") != std::string::npos) trace.failed.push_back(trace.calls.back());
    }
    return trace;
}

}  // namespace

std::vector<SystemCall> TracedCalls(const World& world, const std::vector<std::string>& arguments) {
    const TempFolder folder;
    const ProgramResult result =
        RunTraced(world, arguments, {"-o", folder / "trace", "-e", std::string("trace=") + kFileCalls});
    EXPECT_EQ(result.exitCode, 0) << result.err;

    Trace trace = ReadTrace(ReadBytes(folder / "trace"), PlaceOf(world));
    // The tracer counts calls for each thread; an ordinal means something only when there is one.
    EXPECT_EQ(trace.processes.size(), 1U);
    return std::move(trace.calls);
}

std::optional<ProgramResult> RunWithFault(const World& world, const std::vector<std::string>& arguments,
                                          const SystemCall& call, const std::string& error) {
    const TempFolder folder;
    ProgramResult result =
        RunTraced(world, arguments,
                  {"-o", folder / "trace", "-e", "trace=" + call.name, "-e",
                   "inject=" + call.name + ":error=" + error + ":when=" + std::to_string(call.ordinal)});
    const Trace trace = ReadTrace(ReadBytes(folder / "trace"), PlaceOf(world));
    const bool isHit = trace.failed.size() == 1 && trace.failed.front().file == call.file &&
                       trace.failed.front().nth == call.nth;
    if (!isHit) return std::nullopt;
    return result;
}

}  // namespace ventlock::test
