#include <utility>

#include "works/FileWork.h"
#include "works/Works.h"

namespace ventlock::bench {
namespace {

constexpr std::size_t kFullSize = 32000;  // lines; the programs take 32,767
constexpr std::size_t kGrowth[] = {4000, 8000, 16000};

SharedSample Shared(Sample sample) {
    return std::make_shared<const Sample>(std::move(sample));
}

FileWork PyxWork(const std::string& name, std::size_t lines) {
    return {name, std::to_string(lines), "Pyx.ini", Shared(PyxSample(lines)),
            Shared(PyxSample(lines, Spelling::Git))};
}

FileWork DDInstallWork(std::size_t lines, bool isKnown) {
    return {isKnown ? "register-ddinstall-known" : "register-ddinstall-new", std::to_string(lines),
            "Ddinstal.ini", Shared(DDInstallSample(lines, isKnown)),
            Shared(DDInstallSample(lines, isKnown, Spelling::Git))};
}

void AddOdd(Bench& bench, FileWork work) {
    work.size = "odd";
    work.compared = Compared::Contents;
    work.isOdd = true;
    AddPrograms(bench, work);
}

FileWork WithoutPeers(FileWork work) {
    work.isWithPeers = false;
    return work;
}

}  // namespace

void AddUpsertPyx(Bench& bench) {
    for (const std::size_t lines : kGrowth) AddInProcess(bench, WithoutPeers(PyxWork("upsert-pyx", lines)));
    AddInProcess(bench, PyxWork("upsert-pyx", kFullSize));
}

void AddRegisterIni(Bench& bench) {
    const std::string name = "register-ini";
    for (const std::size_t lines : {std::size_t{100}, std::size_t{3000}, kFullSize}) {
        AddPrograms(bench, PyxWork(name, lines));
    }
    for (const std::size_t lines : kGrowth) AddPrograms(bench, WithoutPeers(PyxWork(name, lines)));
    AddOdd(bench, {name, "", "Pyx.ini", Shared(OddPyxSample()), Shared(OddPyxSample(Spelling::Git))});
}

void AddRegisterDDInstall(Bench& bench) {
    for (const bool isKnown : {true, false}) {
        for (const std::size_t lines : {std::size_t{100}, std::size_t{3000}, kFullSize}) {
            AddPrograms(bench, DDInstallWork(lines, isKnown));
        }
        for (const std::size_t lines : kGrowth)
            AddPrograms(bench, WithoutPeers(DDInstallWork(lines, isKnown)));
    }
    AddOdd(bench, {"register-ddinstall-known", "", "Ddinstal.ini", Shared(OddDDInstallSample()),
                   Shared(OddDDInstallSample(Spelling::Git))});
}

}  // namespace ventlock::bench
