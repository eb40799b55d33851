#include "support/CallScript.h"

#include <algorithm>
#include <utility>

namespace ventlock::test {

void CallScript::FailAt(std::size_t index, int error, bool stays) {
    failIndex_ = index;
    error_ = error;
    stays_ = stays;
}

void CallScript::FailFirst(const std::string& name, int error) {
    failName_ = name;
    error_ = error;
}

void CallScript::LimitRoom(std::size_t bytes, int error) {
    room_ = bytes;
    fullError_ = error;
}

void CallScript::BeforeFirst(const std::string& name, std::function<void()> action) {
    actionName_ = name;
    action_ = std::move(action);
}

std::optional<int> CallScript::Failure(const std::string& name, const std::string& subject) {
    made_.push_back(name);
    subjects_.push_back(subject);
    const std::optional<int> failure = FailureOfLast();
    if (failure && !firstFailed_) firstFailed_ = made_.size() - 1;
    if (!failure && action_ && name == actionName_) std::exchange(action_, nullptr)();
    return failure;
}

std::optional<int> CallScript::FailureOfLast() {
    const std::size_t index = made_.size() - 1;
    const bool failsAgain = stays_ && index > failIndex_ && made_[index] == made_[failIndex_] &&
                            subjects_[index] == subjects_[failIndex_];
    if (index == failIndex_ || failsAgain) return error_;
    if (made_[index] == failName_) {
        failName_.clear();
        return error_;
    }
    if (room_ == 0 && made_[index].starts_with("write")) return fullError_;
    return std::nullopt;
}

std::size_t CallScript::Room(std::size_t size) const {
    return std::min({size, room_.value_or(size), stutters_ ? std::size_t{1} : size});
}

void CallScript::Take(std::size_t bytes) {
    if (room_) *room_ -= bytes;
}

}  // namespace ventlock::test
