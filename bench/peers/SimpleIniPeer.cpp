#include "peers/SimpleIniPeer.h"

// The header has its own conversions to wide characters, which nobody asks for here.
#define SI_NO_CONVERSION
#include <SimpleIni.h>

#include <stdexcept>

namespace ventlock::bench {

void UpsertBySimpleIni(const std::string& path, const std::vector<Upsert>& upserts) {
    CSimpleIniA ini;
    ini.SetSpaces(false);
    if (ini.LoadFile(path.c_str()) < 0) throw std::runtime_error("SimpleIni: not loaded");
    for (const Upsert& upsert : upserts) {
        if (ini.SetValue(upsert.section.c_str(), upsert.key.c_str(), upsert.value.c_str()) < 0) {
            throw std::runtime_error("SimpleIni: not set");
        }
    }
    if (ini.SaveFile(path.c_str()) < 0) throw std::runtime_error("SimpleIni: not saved");
}

}  // namespace ventlock::bench
