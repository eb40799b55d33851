#include "entry/DropPlan.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "platform/Casing.h"

namespace ventlock {
namespace {

using Place = std::string DropPlan::*;

/// Where a file goes by its name and content; nullptr for nowhere.
Place PlaceOf(const DroppedFile& file) {
    const std::string_view path = file.path;
    const std::string_view name = path.substr(path.find_last_of("/\\") + 1);
    if (EqualIgnoringCase(name, "Pyx.ini")) return &DropPlan::ini;
    if (EqualIgnoringCase(name, "Ddinstal.ini")) return &DropPlan::ddInstall;
    return file.holdsEntryKey ? &DropPlan::entry : nullptr;
}

}  // namespace

DropPlan PlanDrop(const std::vector<DroppedFile>& files) {
    const auto goesTo = [](const DroppedFile& file, Place place) {
        return file.isFile && PlaceOf(file) == place;
    };
    DropPlan plan;
    for (const DroppedFile& file : files) {
        const Place place = PlaceOf(file);
        if (!file.isFile) {
            plan.refused.emplace_back(file.path, DropRefusal::NoFile);
        } else if (place == nullptr) {
            plan.refused.emplace_back(file.path, DropRefusal::Unknown);
        } else if (std::ranges::count_if(files, [&](const auto& other) { return goesTo(other, place); }) >
                   1) {
            plan.refused.emplace_back(file.path, DropRefusal::Several);
        } else {
            plan.*place = file.path;
        }
    }
    return plan;
}

}  // namespace ventlock
