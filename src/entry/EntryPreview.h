#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "entry/EntryForm.h"
#include "entry/EntryRecords.h"
#include "platform/Database.h"
#include "platform/Host.h"
#include "platform/ProfileEdit.h"

namespace ventlock {

/// What one write command would do now.
struct TargetPreview {
    bool isWritten = false;               ///< the command would succeed
    std::vector<std::string> statements;  ///< to the database, as they would be sent; of a command that
                                          ///< writes a file only those that change the database
    std::string diff;                     ///< of the file, "" when it would stay as it is
    std::vector<std::string> messages;    ///< what would be reported on the way
};

/// What a preview starts from. Nothing of it is changed.
struct PreviewSource {
    Host& host;
    const ProfileStore& profiles;
    EntryRecords& records;
    IConnection* connection;  ///< nullptr when there is none
    std::int16_t schemaVersion;
    std::function<void()>
        beforeCall;  ///< runs before every call of the database; what it raises ends the call
};

/// Each runs its command on copies of the records, on a connection that changes nothing and on files that
/// exist in memory only.
TargetPreview PreviewDatabase(const PreviewSource& source, const EntryForm& form);
TargetPreview PreviewIni(const PreviewSource& source, const EntryForm& form);
TargetPreview PreviewDDInstall(const PreviewSource& source, const EntryForm& form);

}  // namespace ventlock
