#include "support/Starter.h"
#include "works/Works.h"

namespace ventlock::bench {

void AddVersion(Bench& bench) {
    const auto add = [&](const std::string& name, const std::vector<std::string>& command) {
        Candidate candidate;
        candidate.name = name;
        candidate.run = [&bench, command] {
            return bench.Programs().Run({command}, bench.Place().Environment());
        };
        bench.Add("version", "start", candidate);
    };
    add("ventlock", {VENTLOCK_CLI, "--version"});
    add("limit", {VENTLOCK_START_LIMIT});
}

}  // namespace ventlock::bench
