#include "entry/WriteObstacles.h"

namespace ventlock {

WriteObstacles ObstaclesOf(const Targets& target, const EntryForm& form, bool isConnected) {
    WriteObstacles obstacles;
    obstacles.isNotConnected = target.database && !isConnected;
    for (const RequiredField& field : RequiredFields()) {
        const bool isNeeded = (target.database && field.neededBy.database) ||
                              (target.ini && field.neededBy.ini) ||
                              (target.ddInstall && field.neededBy.ddInstall);
        if (isNeeded && field.isEmpty(form)) obstacles.emptyFields.push_back(field.key);
    }
    return obstacles;
}

}  // namespace ventlock
