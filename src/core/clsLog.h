#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/Variant.h"
#include "core/AppObjects.h"
#include "core/LogHistory.h"
#include "platform/IAppInfo.h"
#include "platform/IClock.h"
#include "platform/IEventLog.h"
#include "platform/IFiles.h"
#include "platform/IMessageBox.h"

namespace ventlock {

/// Log levels: bit flags, freely combined.
inline constexpr std::int16_t kLogToFile = 1;
inline constexpr std::int16_t kLogToScreen = 2;
inline constexpr std::int16_t kLogToEventLog = 4;

/// The error log: entries go to a text file, to a message box, to the system's event log, or to several of
/// them. It never reports its own failures and never throws; a procedure that fails returns False. The file
/// is opened and closed around every entry. What it is made from must outlive it.
class clsLog final : public AppObject {
 public:
    clsLog(IFiles& files, IClock& clock, IMessageBox& messageBox, IEventLog& eventLog, IAppInfo& appInfo);

    /// Sets the log up. Only an operation of 2 switches it on and gives True; szPath and vCaption are taken
    /// anyway.
    /// @param szPath      full path of the log file
    /// @param vOperation  the number that its text begins with counts
    /// @param vCaption    title of message boxes; "Log Entry" when omitted
    /// @param vHelpFile   offered in message boxes; a file that does not exist leaves `HelpFile` as it was
    bool Init(const std::string& szPath, const std::optional<Variant>& vOperation = {},
              const std::optional<std::string>& vCaption = {},
              const std::optional<std::string>& vHelpFile = {});

    /// Writes one entry: box first, then file, then event log, as the level's bits say.
    /// @param vLineInfo, vFileInfo  details for the file and the event log, omitted when empty
    /// @param vLogLevel      instead of `LogLevel` for this entry
    /// @param vErrLevel      event type: 1 error (when omitted), 2 warning, 4 information
    /// @param vHelpContext   with `HelpFile`, gives the message box a Help button
    /// @return False before a successful Init and when the file or the event log refuses.
    bool Log(const std::string& szEntry, const std::optional<std::string>& vLineInfo = {},
             const std::optional<std::string>& vFileInfo = {}, const std::optional<Variant>& vLogLevel = {},
             const std::optional<std::int16_t>& vErrLevel = {},
             const std::optional<std::int32_t>& vHelpContext = {});

    /// The entries of this run, whatever became of them in file, box and event log.
    [[nodiscard]] LogHistory& History() noexcept { return history_; }

    std::string LogFile;        ///< full path of the log file
    std::int16_t LogLevel = 0;  ///< default level of entries
    std::string HelpFile;       ///< help file offered in message boxes
    std::string Caption = "Log Entry";
    std::string LogText;       ///< text of the last entry
    std::string LineInfo;      ///< line detail of the last entry
    std::string FileInfo;      ///< file detail of the last entry
    bool Initialized = false;  ///< entries are taken

 private:
    void KeepEntry();
    void ShowEntry(const std::optional<std::int32_t>& helpContext);
    void WriteToFile();
    [[nodiscard]] std::string Header();
    bool WriteToEventLog(std::int16_t eventType);
    void CountEntry();

    IFiles& files_;
    IClock& clock_;
    IMessageBox& messageBox_;
    IEventLog& eventLog_;
    IAppInfo& appInfo_;
    LogHistory history_;
    std::int16_t entries_ = 0;  ///< attempts, not successes
    bool hasHeader_ = false;
};

}  // namespace ventlock
