#pragma once

#include "platform/IAppInfo.h"

namespace ventlock {

/// This program's metadata; the version numbers are those of the build.
class ProgramInfo final : public IAppInfo {
 public:
    std::string Title() override { return "Ventlock"; }
    int Major() override { return VENTLOCK_VERSION_MAJOR; }
    int Minor() override { return VENTLOCK_VERSION_MINOR; }
    int Revision() override { return VENTLOCK_VERSION_PATCH; }
};

}  // namespace ventlock
