#include "core/modLocalization.h"

#include <utility>

#include "core/Guarded.h"

namespace ventlock {

std::string gsLanguage;

namespace {

std::shared_ptr<IDictionary>& Dictionary() {
    static std::shared_ptr<IDictionary> dictionary;
    return dictionary;
}

}  // namespace

void UseDictionary(std::shared_ptr<IDictionary> dictionary) {
    Dictionary() = std::move(dictionary);
}

std::string GetString(const Variant& key, const std::optional<std::string>& language, bool flag) {
    return GuardedModule("mLgs", std::string(), [&](StepLabel&) {
        if (!Dictionary()) throw RunTimeError(ErrorNumber::ObjectVariableNotSet);
        bool& option = Dictionary()->Option3();
        if (!option) option = true;
        return Dictionary()->Find(TextOf(key), language.value_or(gsLanguage), flag);
    });
}

}  // namespace ventlock
