#include "stress/Trail.h"

#include <iostream>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/common_interface_defs.h>
#endif

namespace ventlock::test {
namespace {

const Trail* present = nullptr;

}  // namespace

Trail::Trail(std::uint32_t seed) : seed_(seed) {
    present = this;
#ifdef __SANITIZE_ADDRESS__
    __sanitizer_set_death_callback([] {
        if (present != nullptr) present->Print(std::cerr);
    });
#endif
}

Trail::~Trail() {
    present = nullptr;
}

void Trail::Print(std::ostream& out) const {
    out << "VENTLOCK_SEED=" << seed_ << " VENTLOCK_ACTIONS=" << actions_.size()
        << " repeats this sequence:\n";
    for (std::size_t i = 0; i < actions_.size(); ++i) out << "  " << i + 1 << ". " << actions_[i] << '\n';
    out << std::flush;
}

}  // namespace ventlock::test
