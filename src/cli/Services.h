#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "core/AppObjects.h"
#include "core/TavDictionary.h"
#include "core/clsLog.h"
#include "core/clsSettings.h"
#include "db/StatementJournal.h"
#include "db/clsConnection.h"
#include "db/clsTavDB.h"
#include "platform/CollectedMessages.h"
#include "platform/Host.h"
#include "platform/IEvents.h"
#include "platform/OverlayFiles.h"
#include "platform/ProfileEdit.h"

namespace ventlock {

/// The path against the working folder, unless it is absolute. A blank path stays.
/// @throws RunTimeError 76 when the working folder has been removed.
std::string AbsolutePath(IPaths& paths, const std::string& path);

struct ServiceOptions {
    StatementMode mode = StatementMode::Run;  ///< any but Run: nothing is written anywhere, files neither
    DatabaseTimeLimits timeLimits;
};

/// The shared objects of a run without a window, set up as the window does: log, settings, dictionary,
/// connection.
class Services {
 public:
    /// `host` must outlive the services. @throws CliError when the program's own files make no sense.
    Services(Host& host, const ServiceOptions& options);
    ~Services();
    Services(const Services&) = delete;
    Services& operator=(const Services&) = delete;

    [[nodiscard]] Host& Machine() noexcept { return host_; }
    [[nodiscard]] const AppObjects& Objects() const noexcept { return objects_; }
    [[nodiscard]] clsSettings& Settings() noexcept { return *settings_; }
    [[nodiscard]] const ProfileStore& Profiles() const noexcept { return *profiles_; }
    [[nodiscard]] IFiles& Files() noexcept { return *files_; }
    [[nodiscard]] IEvents& Events() noexcept { return events_; }
    [[nodiscard]] StatementJournal& Journal() noexcept { return journal_; }
    [[nodiscard]] CollectedMessages& Messages() noexcept { return messages_; }
    [[nodiscard]] const TavDictionary& Dictionary() const noexcept { return *dictionary_; }
    [[nodiscard]] clsLog& Log() const { return objects_.Get<clsLog>(kLogKey); }
    [[nodiscard]] clsConnection& SharedConnection() noexcept { return *connection_; }
    [[nodiscard]] IConnection* Connection() const noexcept { return connection_->DB(); }
    [[nodiscard]] const DatabaseTimeLimits& TimeLimits() const noexcept { return options_.timeLimits; }

    /// The settings' data source as messages name it, without a password that was given with it.
    [[nodiscard]] std::string DataSourceText() const;

    /// Connects to the settings' data source and checks the schema, which goes into `schemaVersion`.
    /// @throws CliError 3 with the log's entries, the driver's records and advice.
    void Connect(std::unique_ptr<clsTavDB>& tavDB, std::int16_t& schemaVersion);

    /// What was logged since the last call, followed by the driver's records of the last failure.
    std::vector<std::string> TakeDetails();

    [[nodiscard]] std::string Absolute(const std::string& path) { return AbsolutePath(host_.Paths(), path); }

 private:
    void LoadDictionary();

    Host& host_;
    ServiceOptions options_;
    NoEvents events_;
    CollectedMessages messages_;
    StatementJournal journal_;
    std::unique_ptr<OverlayFiles> overlay_;
    IFiles* files_;
    std::unique_ptr<ProfileStore> profiles_;
    AppObjects objects_;
    std::shared_ptr<clsSettings> settings_;
    std::shared_ptr<clsConnection> connection_;
    std::shared_ptr<TavDictionary> dictionary_;
};

}  // namespace ventlock
