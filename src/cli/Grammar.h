#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/CommandDescription.h"
#include "cli/Console.h"
#include "cli/ExitCode.h"
#include "cli/ExportCommand.h"
#include "cli/PlanOptions.h"
#include "cli/Report.h"
#include "cli/Services.h"
#include "entry/RequiredFields.h"

namespace ventlock {

/// The options of all commands as they were given.
struct Options {
    std::vector<std::string> files;  ///< entry files and folders of them
    bool toDatabase = false;
    bool toIni = false;
    bool toDDInstall = false;
    bool toAll = false;
    // Given but empty is not omitted: an unset variable in a script must not lead to the default's target.
    std::optional<std::string> dataSource;
    std::optional<std::string> iniPath;
    std::optional<std::string> ddInstallPath;
    bool isDryRun = false;
    bool isOneTransaction = false;
    bool isStrict = false;
    std::string schema = "current";
    std::string databaseFile;
    std::string newDataSource;
    std::string kind;
    std::string settingName;
    std::string settingValue;
    ExportOptions exported;
    std::optional<std::string> report;
    std::optional<ReportFormat> reportFormat;
    int timeLimit = 0;  ///< seconds; 0: the defaults
    bool isJson = false;
    bool isQuiet = false;
};

using Command = std::function<ExitCode(Services&, Console&)>;

/// The command line's own grammar, and the command it asks for.
class Grammar {
 public:
    explicit Grammar(Host& host);

    CLI::App& App() { return app_; }

    /// @throws CLI::ParseError for a call that cannot be understood, CLI::Success for help and version.
    void Parse(const std::vector<std::string>& arguments);

    [[nodiscard]] const Options& Given() const { return given_; }
    [[nodiscard]] const Command& Wanted() const { return wanted_; }
    [[nodiscard]] const std::string& Name() const { return name_; }

    /// Whether the command changes what its statements say.
    [[nodiscard]] StatementMode Mode() const;

    /// The report that was asked for, nullptr when none was. What it tells of begins now.
    Report* MakeReport() {
        if (given_.report) report_ = std::make_unique<Report>(host_, *given_.report, given_.reportFormat);
        return report_.get();
    }

    [[nodiscard]] CommandDescription Describe() const { return Describe(app_); }

 private:
    void Set(CLI::App* command, const std::string& name, Command action);

    /// Tells what the value of an option or argument is called and taken from.
    CLI::Option* Takes(CLI::Option* option, ValueDescription value);

    /// Lets an option or argument take one of `words` only.
    CLI::Option* TakesWord(CLI::Option* option, const std::string& valueName,
                           const std::vector<std::string>& words);

    /// An option whose empty text is kept apart from no text at all.
    CLI::Option* AddText(CLI::App* command, const std::string& name, std::optional<std::string>& text,
                         const std::string& description, const ValueDescription& value);
    void AddTargets(CLI::App* command, const std::string& verb);
    void AddDDInstallPath(CLI::App* command);
    void AddDataSource(CLI::App* command);
    void AddReport(CLI::App* command);
    void AddSchema(CLI::App* command, const std::string& description);
    void AddRegister();
    void AddVerify();
    void AddExport();
    void AddCheck();
    void AddDatabase();
    void AddSettings();

    /// Entries and targets of a call that names its targets. @throws CliError 2 when it names none.
    PlanOptions Plan(Services& services) const;
    std::string IniPath(Services& services) const;
    std::string DDInstallPath(Services& services) const;
    [[nodiscard]] CommandDescription Describe(const CLI::App& command) const;

    Host& host_;
    CLI::App app_;
    std::map<const CLI::Option*, ValueDescription> values_;
    Options given_;
    Command wanted_;
    std::string name_;
    std::unique_ptr<Report> report_;
};

}  // namespace ventlock
