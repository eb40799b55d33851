#pragma once

#include <string>
#include <string_view>

#include "platform/IAppInfo.h"

namespace ventlock {

/// What a program answers to "--version": "<program> 2.1.5 (64 bit)".
std::string VersionLine(std::string_view program, IAppInfo& info);

}  // namespace ventlock
