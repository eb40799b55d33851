#pragma once

#include <string>

namespace ventlock {

/// The running program's own metadata.
class IAppInfo {
 public:
    virtual ~IAppInfo() = default;
    virtual std::string Title() = 0;
    virtual int Major() = 0;
    virtual int Minor() = 0;
    virtual int Revision() = 0;
};

}  // namespace ventlock
