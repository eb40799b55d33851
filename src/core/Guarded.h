#pragma once

#include <exception>
#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "base/RunTimeError.h"
#include "core/AppObjects.h"
#include "platform/IMessageBox.h"

namespace ventlock {

/// The stage that a procedure has reached, such as "00" or "02.1a". Labels are literals.
class StepLabel {
 public:
    StepLabel& operator=(std::string_view label) noexcept {
        label_ = label;
        return *this;
    }
    [[nodiscard]] std::string Text() const { return std::string(label_); }

 private:
    std::string_view label_ = "00";
};

/// The run-time error that the exception in flight stands for: itself, 7 for lack of memory, 51 for anything
/// else. Call inside a catch block only.
RunTimeError CurrentError();

/// Hands "tag-step: description (number)" to "Log" of `oAppObjects`. Without AppObjects, or without "Log" in
/// it, the text is dropped: there is nobody to tell yet. Never throws.
void ReportError(const AppObjects* oAppObjects, std::string_view tag, const StepLabel& step,
                 const RunTimeError& error) noexcept;

/// Runs the body of a public procedure of a class: `body(step)` gives the result; whatever it raises is
/// reported under the tag and the step it had reached, and the result is `failure`.
template <class Result, class Body>
Result Guarded(const AppObjects* oAppObjects, std::string_view tag, Result failure, Body&& body) {
    StepLabel step;
    try {
        return std::forward<Body>(body)(step);
    } catch (...) {
        ReportError(oAppObjects, tag, step, CurrentError());
    }
    return failure;
}

/// The same for a procedure without a result.
template <class Body>
void Guarded(const AppObjects* oAppObjects, std::string_view tag, Body&& body) {
    StepLabel step;
    try {
        std::forward<Body>(body)(step);
    } catch (...) {
        ReportError(oAppObjects, tag, step, CurrentError());
    }
}

/// The message box that module procedures report to, for the whole program; nullptr drops their texts.
/// It must outlive every later call of a module procedure or be replaced before.
void UseModuleMessageBox(IMessageBox* messageBox) noexcept;

/// Shows "tag-step: description", without the number, in the modules' message box. Never throws.
void ReportModuleError(std::string_view tag, const StepLabel& step, const RunTimeError& error) noexcept;

/// Guarded for the procedures of modules, which have no AppObjects.
template <class Result, class Body>
Result GuardedModule(std::string_view tag, Result failure, Body&& body) {
    StepLabel step;
    try {
        return std::forward<Body>(body)(step);
    } catch (...) {
        ReportModuleError(tag, step, CurrentError());
    }
    return failure;
}

}  // namespace ventlock
