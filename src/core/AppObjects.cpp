#include "core/AppObjects.h"

#include <utility>

#include "platform/Casing.h"

namespace ventlock {

void AppObjects::Add(std::string_view key, std::shared_ptr<AppObject> object) {
    const auto [entry, isNew] = objects_.try_emplace(UpperCase(key));
    if (!isNew) throw RunTimeError(ErrorNumber::KeyAlreadyAssociated);
    entry->second = std::move(object);
}

bool AppObjects::Contains(std::string_view key) const {
    return objects_.contains(UpperCase(key));
}

AppObject& AppObjects::Find(std::string_view key) const {
    const auto found = objects_.find(UpperCase(key));
    if (found == objects_.end()) throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    return *found->second;
}

}  // namespace ventlock
