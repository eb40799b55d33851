#include "cli/Services.h"

#include "base/Text.h"
#include "cli/Advice.h"
#include "cli/CliError.h"
#include "core/OwnFiles.h"
#include "core/modLocalization.h"
#include "db/ConnectDatabase.h"
#include "platform/odbc/ConnectString.h"
#include "platform/odbc/OdbcEngine.h"

namespace ventlock {

std::string AbsolutePath(IPaths& paths, const std::string& path) {
    if (Trim(path).empty() || paths.IsAbsolute(path)) return path;
    return paths.Join(paths.WorkingFolder(), path);
}

Services::Services(Host& host, const ServiceOptions& options)
    : host_(host), options_(options), files_(&host.Files()) {
    if (options.mode != StatementMode::Run) {
        overlay_ = std::make_unique<OverlayFiles>(host.Files());
        files_ = overlay_.get();
    }
    UseModuleMessageBox(&messages_);
    try {
        profiles_ = std::make_unique<ProfileStore>(OpenProfileStore(host.Paths(), *files_));
    } catch (const RunTimeError& error) {
        throw CliError(ExitCode::WrongCall, OwnIniPath(host.Paths(), *files_) + ": " + error.what(), {},
                       "Mend the value \"CodePage\" in its section \"Files\", for example CodePage=1252.");
    }

    auto log = std::make_shared<clsLog>(*files_, host.Clock(), messages_, host.EventLog(), host.AppInfo());
    log->Init(LogPath(host.Paths()), 2, "Ventlock");
    log->LogLevel = kLogToFile | kLogToScreen;
    objects_.Add(kLogKey, log);
    settings_ = std::make_shared<clsSettings>(host.Registry(), *profiles_, host.Paths(), host.Locale());
    settings_->Init(objects_, 2);
    objects_.Add(kSettingsKey, settings_);
    gsLanguage = settings_->Language;
    LoadDictionary();
    const auto createEngine = [this] { return CreateOdbcEngine(events_, options_.timeLimits); };
    connection_ = std::make_shared<clsConnection>(Journaled(createEngine, journal_, options.mode));
    objects_.Add(kConnectionKey, connection_);
}

Services::~Services() {
    UseDictionary(nullptr);
    UseModuleMessageBox(nullptr);
}

void Services::LoadDictionary() {
    IPaths& paths = host_.Paths();
    dictionary_ = std::make_shared<TavDictionary>(*files_);
    const bool isLoaded = dictionary_->Load({paths.Join(paths.ProgramFolder(), "QorStandard.dct"),
                                             paths.Join(paths.ProgramFolder(), "Ventlock.dct")});
    UseDictionary(dictionary_);
    if (!isLoaded) objects_.Get<clsLog>(kLogKey).Log("Unable to initialize dictionary.");
}

void Services::Connect(std::unique_ptr<clsTavDB>& tavDB, std::int16_t& schemaVersion) {
    messages_.Take();
    journal_.Clear();
    if (ConnectDatabase(objects_, events_, tavDB, schemaVersion)) return;
    throw CliError(ExitCode::Unreachable, DataSourceText() + " cannot be used", TakeDetails(),
                   ConnectAdvice(journal_.Diagnostics(), connection_->DB() != nullptr));
}

std::string Services::DataSourceText() const {
    return "data source \"" + odbc::MaskPasswords(settings_->DSN, odbc::PasswordsOf(settings_->DSN)) + "\"";
}

std::vector<std::string> Services::TakeDetails() {
    std::vector<std::string> details = messages_.Take();
    for (const std::string& record : journal_.Diagnostics()) details.push_back("driver: " + record);
    return details;
}

}  // namespace ventlock
