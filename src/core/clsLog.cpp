#include "core/clsLog.h"

#include <array>
#include <cstdio>
#include <utility>

#include "base/Numbers.h"
#include "base/Text.h"

namespace ventlock {
namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr const char* kIndent = "     ";

}  // namespace

clsLog::clsLog(IFiles& files, IClock& clock, IMessageBox& messageBox, IEventLog& eventLog, IAppInfo& appInfo)
    : files_(files), clock_(clock), messageBox_(messageBox), eventLog_(eventLog), appInfo_(appInfo) {}

bool clsLog::Init(const std::string& szPath, const std::optional<Variant>& vOperation,
                  const std::optional<std::string>& vCaption, const std::optional<std::string>& vHelpFile) {
    try {
        const bool isWorking = vOperation && ToInteger(NumericValue(TextOf(*vOperation))) == 2;
        Caption = vCaption.value_or("Log Entry");
        if (vHelpFile && files_.Exists(*vHelpFile)) HelpFile = *vHelpFile;
        LogFile = szPath;
        Initialized = isWorking;
        return Initialized;
    } catch (const std::exception&) {
        return false;  // the log has nobody to report its own failures to
    }
}

bool clsLog::Log(const std::string& szEntry, const std::optional<std::string>& vLineInfo,
                 const std::optional<std::string>& vFileInfo, const std::optional<Variant>& vLogLevel,
                 const std::optional<std::int16_t>& vErrLevel,
                 const std::optional<std::int32_t>& vHelpContext) {
    if (!Initialized) return false;
    try {
        LogText = szEntry;
        LineInfo = vLineInfo.value_or("");
        FileInfo = vFileInfo.value_or("");
        const std::int16_t level = vLogLevel ? ToInteger(RequireNumber(TextOf(*vLogLevel))) : LogLevel;
        if ((level & (kLogToFile | kLogToScreen | kLogToEventLog)) != 0) KeepEntry();
        if ((level & kLogToScreen) != 0) ShowEntry(vHelpContext);
        if ((level & kLogToFile) != 0) {
            CountEntry();
            WriteToFile();
        }
        if ((level & kLogToEventLog) != 0) {
            CountEntry();
            return WriteToEventLog(vErrLevel.value_or(1));
        }
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

void clsLog::CountEntry() {
    entries_ = ToInteger(entries_ + 1.0);
}

// An entry that could not be kept is logged all the same.
void clsLog::KeepEntry() {
    try {
        std::string text = LogText;
        if (!LineInfo.empty()) text += std::string(kLineEnd) + kIndent + "Line: " + LineInfo;
        if (!FileInfo.empty()) text += std::string(kLineEnd) + kIndent + "File: " + FileInfo;
        history_.Add({clock_.Now(), std::move(text)});
    } catch (const std::exception&) {
        return;
    }
}

void clsLog::ShowEntry(const std::optional<std::int32_t>& helpContext) {
    std::optional<MessageHelp> help;
    if (!HelpFile.empty() && helpContext) help = MessageHelp{HelpFile, *helpContext};
    messageBox_.Show(LogText, Caption, help);
}

void clsLog::WriteToFile() {
    std::string text = hasHeader_ ? std::string() : Header();
    text += std::to_string(entries_) + "-->" + kLineEnd;
    text += kIndent + LogText + kLineEnd;
    if (!LineInfo.empty()) text += std::string(kIndent) + "Line: " + LineInfo + kLineEnd;
    if (!FileInfo.empty()) text += std::string(kIndent) + "File: " + FileInfo + kLineEnd;
    files_.Append(LogFile, text);
    hasHeader_ = true;
}

std::string clsLog::Header() {
    const LocalTime now = clock_.Now();
    std::array<char, 64> moment{};
    // Formatted by hand: the header does not depend on the locale.
    std::snprintf(moment.data(), moment.size(), "%02d-%02d-%04d  %02d:%02d:%02d", now.month, now.day,
                  now.year, now.hour, now.minute, now.second);
    const std::string rule(78, '*');
    return kLineEnd + rule + kLineEnd + appInfo_.Title() + "  Ver " + std::to_string(appInfo_.Major()) + "." +
           std::to_string(appInfo_.Minor()) + "." + std::to_string(appInfo_.Revision()) + "  " +
           moment.data() + kLineEnd + rule + kLineEnd;
}

bool clsLog::WriteToEventLog(std::int16_t eventType) {
    // Details are tested trimmed here and untrimmed for the file, and joined by CR alone.
    std::string text = LogText;
    if (!Trim(LineInfo).empty()) text += "\rLine: " + LineInfo;
    if (!Trim(FileInfo).empty()) text += "\rFile: " + FileInfo;
    return eventLog_.Write(text, eventType);
}

}  // namespace ventlock
