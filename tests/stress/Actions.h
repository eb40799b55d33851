#pragma once

#include <functional>
#include <span>
#include <string>

#include "stress/User.h"

namespace ventlock::test {

/// One thing that a user does, and how often among the others.
struct Action {
    std::string name;
    int weight;
    std::function<void(User&)> run;
};

/// All of them, by what they are done to.
std::span<const Action> FieldActions();
std::span<const Action> CommandActions();
std::span<const Action> WindowActions();

/// The action that the dice decide for, by its weight.
const Action& NextAction(Dice& dice);

}  // namespace ventlock::test
