#include <cstddef>
#include <cstdlib>
#include <stdexcept>
#include <string_view>

#include "support/Databases.h"
#include "support/DeviceRows.h"
#include "support/Files.h"
#include "support/Starter.h"
#include "works/Works.h"

namespace ventlock::bench {
namespace {

constexpr std::size_t kAlmostFull = 31000;  // numbers end at 32,767
constexpr const char* kEntry = "entry.ini";
constexpr const char* kLines = "devices.txt";
constexpr const char* kAnswer = "answer.txt";
constexpr const char* kQuery = "SELECT * FROM MfrProtocols";
constexpr const char* kPython = "/usr/bin/python3";

using Command = std::vector<std::string>;

/// The seconds that a program of ReadRows took; its rows are looked at.
double SecondsOf(const std::string& answer, std::size_t devices) {
    const std::size_t end = answer.find('\n');
    if (end == std::string::npos || answer.substr(end + 1) != ExpectedRows(1, devices)[1])
        throw std::runtime_error("other rows than expected");
    return std::stod(answer);
}

void AddReading(Bench& bench, Databases& databases, bool isSqlite, std::size_t devices, bool isWithPeers) {
    const auto add = [&](const std::string& name, const Command& program) {
        Candidate candidate;
        candidate.name = name;
        candidate.prepare = [&databases, isSqlite, devices] {
            isSqlite ? databases.StoreSqlite(devices) : void(databases.ReadOnlyPostgres(devices));
        };
        candidate.run = [&bench, &databases, isSqlite, devices, program] {
            Command command = program;
            const std::string answer = bench.Place().Path(kAnswer);
            command.insert(
                command.end(),
                {isSqlite ? Databases::kSqlite : databases.ReadOnlyPostgres(devices), kQuery, answer});
            Usage usage = bench.Programs().Run({command}, bench.Place().Environment());
            usage.seconds = SecondsOf(ReadBytes(answer), devices);
            return usage;
        };
        bench.Add(isSqlite ? "read-sqlite" : "read-postgresql", std::to_string(devices), candidate);
    };
    add("ventlock", {VENTLOCK_READ_RECORDSET});
    add("limit", {VENTLOCK_READ_LIMIT});
    if (!isWithPeers) return;
    add("SOCI", {VENTLOCK_SOCI_READ});
    add("pyodbc", {kPython, VENTLOCK_BENCH_SOURCE "/peers/pyodbc_read.py"});
}

/// `count` new devices into tables that have `devices`.
struct Registering {
    std::string work;
    std::size_t devices = 0;
    std::size_t count = 0;
    bool isOneTransaction = false;
};

/// False in a run that leaves out what takes minutes and has one round of what takes seconds.
bool IsLong() {
    const char* const isLong = std::getenv("VENTLOCK_BENCH_LONG");
    return isLong == nullptr || std::string_view(isLong) != "0";
}

/// How often the script runs; once, and only in a long run, when it takes minutes.
enum class Script { None, Few, Once };

void AddRegistering(Bench& bench, Databases& databases, const Registering& what, bool isBySize,
                    Script script) {
    const Workplace& place = bench.Place();
    const std::size_t last = what.devices + what.count;
    const auto add = [&](const std::string& name, const Command& command, int rounds) {
        Candidate candidate;
        candidate.name = name;
        candidate.prepare = [&place, &databases, what, last] {
            databases.StoreSqlite(what.devices);
            StoreBytes(place.Path(kEntry), EntriesOf(what.devices + 1, last));
            StoreBytes(place.Path(kLines), LinesOf(what.devices + 1, last));
        };
        candidate.run = [&place, &starter = bench.Programs(), command] {
            return starter.Run({command}, place.Environment());
        };
        candidate.check = [&databases, last] {
            databases.RequireSqlite(last);
            return Outcome{true, 0};
        };
        candidate.mostRounds = rounds;
        bench.Add(what.work, std::to_string(isBySize ? what.devices : what.count), candidate);
    };
    const auto with = [&](Command command, const char* argument) {
        if (what.isOneTransaction) command.emplace_back(argument);
        return command;
    };
    const int few = IsLong() ? 3 : 1;
    add("ventlock",
        with({VENTLOCK_CLI, "register", place.Path(kEntry), "--db", "--dsn", Databases::kSqlite},
             "--one-transaction"),
        what.isOneTransaction ? 0 : few);
    add("limit", with({VENTLOCK_REGISTER_LIMIT, Databases::kSqlite, place.Path(kLines)}, "at-once"),
        what.isOneTransaction ? 0 : few);
    if (script == Script::None || (script == Script::Once && !IsLong())) return;
    add("pyodbc",
        with({kPython, VENTLOCK_BENCH_SOURCE "/peers/pyodbc_register.py", Databases::kSqlite,
              place.Path(kLines)},
             "at-once"),
        script == Script::Once ? 1 : few);
}

}  // namespace

void AddReadRows(Bench& bench, Databases& databases) {
    for (const bool isSqlite : {true, false}) {
        for (const std::size_t devices : {1000, 32000}) AddReading(bench, databases, isSqlite, devices, true);
        for (const std::size_t devices : {4000, 8000, 16000})
            AddReading(bench, databases, isSqlite, devices, false);
    }
}

void AddRegisterDb(Bench& bench, Databases& databases) {
    for (const std::size_t count : {125, 250, 500, 1000}) {
        AddRegistering(bench, databases, {"register-db", 0, count, false}, false,
                       count == 1000 ? Script::Few : Script::None);
        AddRegistering(bench, databases, {"register-db-at-once", 0, count, true}, false,
                       count == 1000 ? Script::Few : Script::None);
    }
    for (const std::size_t devices : {kAlmostFull / 8, kAlmostFull / 4, kAlmostFull / 2, kAlmostFull}) {
        AddRegistering(bench, databases, {"register-db-full", devices, 30, false}, true,
                       devices == kAlmostFull ? Script::Few : Script::None);
        AddRegistering(bench, databases, {"register-db-at-once-full", devices, 1000, true}, true,
                       devices == kAlmostFull ? Script::Once : Script::None);
    }
}

}  // namespace ventlock::bench
