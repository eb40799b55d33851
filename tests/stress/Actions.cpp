#include "stress/Actions.h"

#include <stdexcept>

namespace ventlock::test {
namespace {

constexpr std::span<const Action> (*kAll[])() = {FieldActions, CommandActions, WindowActions};

int TotalWeight() {
    int total = 0;
    for (const auto& actions : kAll)
        for (const Action& action : actions()) total += action.weight;
    return total;
}

}  // namespace

const Action& NextAction(Dice& dice) {
    int left = dice.Below(TotalWeight());
    for (const auto& actions : kAll) {
        for (const Action& action : actions()) {
            left -= action.weight;
            if (left < 0) return action;
        }
    }
    throw std::logic_error("the weights do not add up");
}

}  // namespace ventlock::test
