#pragma once

#include <string>
#include <vector>

#include "e2e/RunProgram.h"

namespace ventlock::test {

/// Changes a call so that a user without rights of its own makes it: the tests' own user, or nobody when that
/// is the system's administrator.
/// @param world          read by this user from now on
/// @param programFolder  cannot be written by this user from now on
/// @param own            files and folders that this user can write from now on
void BecomeOrdinaryUser(const std::string& world, const std::string& programFolder,
                        const std::vector<std::string>& own, ProgramCall& call);

}  // namespace ventlock::test
