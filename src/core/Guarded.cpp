#include "core/Guarded.h"

#include "core/clsLog.h"
#include "core/modCommonTools.h"

namespace ventlock {
namespace {

IMessageBox* moduleMessageBox = nullptr;

}  // namespace

RunTimeError CurrentError() {
    try {
        throw;
    } catch (const RunTimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return RunTimeError(ErrorNumber::OutOfMemory);
    } catch (const std::exception& error) {
        return {ErrorNumber::InternalError, error.what()};
    } catch (...) {
        return RunTimeError(ErrorNumber::InternalError);
    }
}

void ReportError(const AppObjects* oAppObjects, std::string_view tag, const StepLabel& step,
                 const RunTimeError& error) noexcept {
    try {
        if (oAppObjects == nullptr || !oAppObjects->Contains(kLogKey)) return;
        const std::string text =
            FormatErrorText(tag, step.Text(), error.Description(), static_cast<std::int32_t>(error.Number()));
        oAppObjects->Get<clsLog>(kLogKey).Log(text);
    } catch (...) {
        // Reporting is the last resort; a report that fails has nowhere else to go.
        return;
    }
}

void UseModuleMessageBox(IMessageBox* messageBox) noexcept {
    moduleMessageBox = messageBox;
}

void ReportModuleError(std::string_view tag, const StepLabel& step, const RunTimeError& error) noexcept {
    try {
        if (moduleMessageBox == nullptr) return;
        moduleMessageBox->Show(std::string(tag) + "-" + step.Text() + ": " + error.Description(), "",
                               std::nullopt);
    } catch (...) {
        return;
    }
}

}  // namespace ventlock
