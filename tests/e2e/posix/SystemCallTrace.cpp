#include "e2e/posix/SystemCallTrace.h"

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <sstream>

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

}  // namespace

std::vector<SystemCall> TracedCalls(const World& world, const std::vector<std::string>& arguments) {
    const TempFolder folder;
    const ProgramResult result =
        RunTraced(world, arguments, {"-o", folder / "trace", "-e", std::string("trace=") + kFileCalls});
    EXPECT_EQ(result.exitCode, 0) << result.err;

    const std::string place = world.Path("").substr(0, world.Path("").size() - 1);
    static const std::regex kCall(R"(^(\d+) +(\w+)\()");
    std::vector<SystemCall> calls;
    std::map<std::string, std::size_t> counts;
    std::set<std::string> processes;
    std::istringstream lines(ReadBytes(folder / "trace"));
    for (std::string line; std::getline(lines, line);) {
        std::smatch parts;
        if (!std::regex_search(line, parts, kCall)) continue;
        processes.insert(parts[1]);
        const std::string name = parts[2];
        const std::size_t ordinal = ++counts[name];
        const bool isNamed = line.find("\"" + place + "/") != std::string::npos ||
                             line.find("\"" + place + "\"") != std::string::npos;
        static const std::regex kDescriptor(R"(\(\d+<([^>]*)>)");
        std::smatch file;
        const bool isOpen = std::regex_search(line, file, kDescriptor) && file[1].str().starts_with(place);
        if (isNamed || isOpen) calls.push_back({name, ordinal, line});
    }
    // The tracer counts calls for each thread; an ordinal means something only when there is one.
    EXPECT_EQ(processes.size(), 1U);
    return calls;
}

ProgramResult RunWithFault(const World& world, const std::vector<std::string>& arguments,
                           const SystemCall& call, const std::string& error) {
    return RunTraced(world, arguments,
                     {"-o", "/dev/null", "-e", "trace=" + call.name, "-e",
                      "inject=" + call.name + ":error=" + error + ":when=" + std::to_string(call.ordinal)});
}

}  // namespace ventlock::test
