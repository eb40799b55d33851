#include "works/FileWork.h"

#include "limits/UpsertLimit.h"
#include "peers/SimpleIniPeer.h"
#include "support/Files.h"
#include "support/Starter.h"
#include "support/Stopwatch.h"
#include "works/PyxWriter.h"

namespace ventlock::bench {
namespace {

constexpr const char* kEntry = "entry.ini";
constexpr const char* kUpserts = "upserts.txt";
constexpr const char* kMerged = "merged.ini";

/// What all candidates of a work have in common.
Candidate Common(Bench& bench, const FileWork& work, const std::string& name, const SharedSample& sample) {
    const Workplace& place = bench.Place();
    Candidate candidate;
    candidate.name = name;
    const std::string target = place.Target(work.fileName);
    candidate.prepare = [&place, target, sample] {
        StoreBytes(target, sample->file);
        StoreBytes(place.Path(kEntry), sample->entry);
        StoreBytes(place.Path(kUpserts), ToLines(sample->upserts));
        StoreBytes(place.Path(kMerged), ToIni(sample->upserts));
    };
    const Compared compared = work.compared;
    candidate.check = [target, sample, compared] {
        return Compare(sample->file, ReadBytes(target), sample->upserts, compared);
    };
    return candidate;
}

using Command = std::vector<std::string>;

std::vector<Command> GitCommands(const std::string& target, const SharedSample& sample) {
    std::vector<Command> commands;
    for (const Upsert& upsert : sample->upserts) {
        std::string name = upsert.section;  // [device "x"] is device.x to Git
        std::erase(name, '"');
        if (const std::size_t blank = name.find(' '); blank != std::string::npos) name[blank] = '.';
        commands.push_back({"git", "config", "--file", target, name + "." + upsert.key, upsert.value});
    }
    return commands;
}

}  // namespace

void AddPrograms(Bench& bench, const FileWork& work) {
    const Workplace& place = bench.Place();
    const std::string target = place.Target(work.fileName);
    const auto add = [&](const std::string& name, std::vector<Command> commands, const SharedSample& sample,
                         bool isPeer, bool isSlow) {
        Candidate candidate = Common(bench, work, name, sample);
        candidate.run = [&place, &starter = bench.Programs(), commands = std::move(commands)] {
            return starter.Run(commands, place.Environment());
        };
        candidate.mayFail = isPeer && work.isOdd;
        candidate.isSlow = isSlow || work.isOdd;
        bench.Add(work.name, work.size, candidate);
    };
    const bool isPyx = work.fileName == "Pyx.ini";
    const SharedSample& sample = work.sample;
    add("ventlock",
        {{VENTLOCK_CLI, "register", place.Path(kEntry), isPyx ? "--ini" : "--ddinstall",
          isPyx ? "--ini-path" : "--ddinstall-path", target}},
        sample, false, false);
    if (!work.isOdd)
        add("limit", {{VENTLOCK_UPSERT_LIMIT, target, place.Path(kUpserts)}}, sample, false, false);
    if (!work.isWithPeers) return;
    add("SimpleIni", {{VENTLOCK_SIMPLEINI, target, place.Path(kUpserts)}}, sample, true, false);
    add("git config", GitCommands(target, work.gitSample), work.gitSample, true, true);
    add("configparser",
        {{"/usr/bin/python3", VENTLOCK_BENCH_SOURCE "/peers/configparser_upsert.py", target,
          place.Path(kUpserts)}},
        sample, true, true);
    const std::string merge =
        "exec crudini --merge --ini-options=nospace '" + target + "' <'" + place.Path(kMerged) + "'";
    add("crudini", {{"sh", "-c", merge}}, sample, true, true);
}

void AddInProcess(Bench& bench, const FileWork& work) {
    const std::string target = bench.Place().Target(work.fileName);
    const auto add = [&](const std::string& name, std::function<void()> doIt) {
        Candidate candidate = Common(bench, work, name, work.sample);
        candidate.run = [label = work.name + "/" + work.size + "/" + name, doIt = std::move(doIt)] {
            return Timed(label, doIt);
        };
        bench.Add(work.name, work.size, candidate);
    };
    const std::vector<Upsert> upserts = work.sample->upserts;
    add("ventlock", [target, writer = std::make_shared<PyxWriter>(target)] { writer->Write(); });
    add("limit", [target, upserts] { UpsertAtTheLimit(target, upserts); });
    if (work.isWithPeers) add("SimpleIni", [target, upserts] { UpsertBySimpleIni(target, upserts); });
}

}  // namespace ventlock::bench
