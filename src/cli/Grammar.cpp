#include "cli/Grammar.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "cli/CheckCommand.h"
#include "cli/CliError.h"
#include "cli/DatabaseCommands.h"
#include "cli/RegisterCommand.h"
#include "cli/SettingsCommands.h"
#include "cli/VerifyCommand.h"
#include "core/VersionLine.h"

namespace ventlock {
namespace {

constexpr const char* kDescription =
    "Registers HART field devices with a Tav installation: in the device database, in Pyx.ini and in "
    "Ddinstal.ini.";

constexpr std::array kExamples = {
    Example{"ventlock-cli check flow.ini", "Check the entries of a file, without a database."},
    Example{"ventlock-cli register flow.ini --all --dry-run",
            "See the statements and the changes of both files; nothing is written."},
    Example{"ventlock-cli register devices --db --ini --json",
            "Register a folder of entries from a script, with one JSON document as the answer."},
    Example{"ventlock-cli verify devices --all --report devices.xml",
            "Compare them with all targets, and leave a report that build servers show."},
    Example{"ventlock-cli export --db --man-id 26 --dev-id 7 --output found.ini",
            "Write an entry file from what the database holds of a device."},
};

constexpr std::array kExitMeanings = {
    ExitMeaning{ExitCode::Done, "everything asked for was done", "also when nothing had to change"},
    ExitMeaning{
        ExitCode::TargetFailed, "at least one target failed",
        "`verify` found a difference, a database that another program writes to, a read-only database "
        "or `Pyx.ini`"},
    ExitMeaning{ExitCode::WrongCall, "the call or the entry file is wrong",
                "unknown option, a finding of severity error"},
    ExitMeaning{
        ExitCode::Unreachable, "a target cannot be reached",
        "unknown data source, missing driver, a driver without transactions for `--one-transaction`, a "
        "database locked for all others, schema too new, missing folder"},
};

/// What the help ends with.
std::string Footer() {
    std::string text = "Examples:";
    for (const Example& example : kExamples) text.append("\n  ").append(example.call);
    text += "\n\nExit codes:";
    for (const ExitMeaning& meaning : kExitMeanings) {
        text.append("\n  " + std::to_string(static_cast<int>(meaning.code)) + "  ").append(meaning.text);
    }
    return text;
}

std::vector<std::string> Generations() {
    return {"current", "old"};
}

/// Long names first, then the short ones, as they are typed.
std::vector<std::string> TypedNames(const CLI::Option& option) {
    std::vector<std::string> names;
    for (const std::string& name : option.get_lnames()) names.push_back("--" + name);
    for (const std::string& name : option.get_snames()) names.push_back("-" + name);
    return names;
}

/// Behind a value in brackets, which the parser would take for a list; no argument can hold it itself.
constexpr char kMark = '\0';

std::string WithMark(const std::string& argument) {
    return argument.starts_with('[') && argument.ends_with(']') ? argument + kMark : argument;
}

std::string WithoutMark(const std::string& text) {
    return text.ends_with(kMark) ? text.substr(0, text.size() - 1) : text;
}

}  // namespace

Grammar::Grammar(Host& host) : host_(host), app_(kDescription, "ventlock-cli") {
    app_.require_subcommand(1);
    app_.fallthrough();
    app_.footer(Footer());
    app_.set_version_flag("--version", VersionLine("ventlock-cli", host.AppInfo()),
                          "Print the version and end");
    app_.add_flag("--json", given_.isJson, "Answer with one JSON document on stdout");
    app_.add_flag("--quiet,-q", given_.isQuiet, "Print errors and asked-for data only");
    CLI::Option* timeLimit = app_.add_option(
        "--timeout", given_.timeLimit,
        "Longest time the database may take to answer, in seconds (default: 15 for the login, 60 "
        "for a statement)");
    Takes(timeLimit, {"SECONDS", ValueSource::Free, {}})->check(CLI::Range(1, 3600));
    AddRegister();
    AddVerify();
    AddExport();
    AddCheck();
    AddDatabase();
    AddSettings();
}

void Grammar::Parse(const std::vector<std::string>& arguments) {
    std::vector<std::string> marked;  // last one first, as the parser takes them
    std::transform(arguments.rbegin(), arguments.rend(), std::back_inserter(marked), WithMark);
    app_.parse(std::move(marked));
}

StatementMode Grammar::Mode() const {
    if (name_ == "verify" || name_ == "export") return StatementMode::Note;
    return given_.isDryRun ? StatementMode::DryRun : StatementMode::Run;
}

void Grammar::Set(CLI::App* command, const std::string& name, Command action) {
    command->callback([this, name, action = std::move(action)] {
        name_ = name;
        wanted_ = action;
    });
}

CLI::Option* Grammar::Takes(CLI::Option* option, ValueDescription value) {
    if (option->nonpositional()) option->type_name(value.name);
    values_[option] = std::move(value);
    return option->transform([](const std::string& text) { return WithoutMark(text); }, "");
}

CLI::Option* Grammar::TakesWord(CLI::Option* option, const std::string& valueName,
                                const std::vector<std::string>& words) {
    return Takes(option, {valueName, ValueSource::Words, words})->check(CLI::IsMember(words));
}

CLI::Option* Grammar::AddText(CLI::App* command, const std::string& name, std::optional<std::string>& text,
                              const std::string& description, const ValueDescription& value) {
    return Takes(command->add_option_function<std::string>(
                     name, [&text](const std::string& given) { text = given; }, description),
                 value);
}

void Grammar::AddTargets(CLI::App* command, const std::string& verb) {
    Takes(command->add_option("FILE", given_.files, "Entry files, or folders of entry files (*.ini)")
              ->required(),
          {"FILE", ValueSource::IniFiles, {}});
    command->add_flag("--db", given_.toDatabase, verb + " the device database");
    command->add_flag("--ini", given_.toIni, verb + " Pyx.ini");
    command->add_flag("--ddinstall", given_.toDDInstall, verb + " Ddinstal.ini");
    AddText(command, "--ini-path", given_.iniPath, "Path of Pyx.ini (default: the setting INIPath)",
            {"PATH", ValueSource::IniFiles, {}});
    AddDDInstallPath(command);
}

void Grammar::AddDDInstallPath(CLI::App* command) {
    AddText(command, "--ddinstall-path", given_.ddInstallPath,
            "Path of Ddinstal.ini (default: the setting DDInstallPath)", {"PATH", ValueSource::IniFiles, {}});
}

void Grammar::AddDataSource(CLI::App* command) {
    AddText(command, "--dsn", given_.dataSource, "Data source (default: the setting DataSourceName)",
            {"NAME", ValueSource::DataSources, {}});
}

void Grammar::AddSchema(CLI::App* command, const std::string& description) {
    TakesWord(command->add_option("--schema", given_.schema, description), "GENERATION", Generations())
        ->capture_default_str();
}

void Grammar::AddReport(CLI::App* command) {
    AddText(command, "--report", given_.report,
            "File for a report of the run, which is written whatever becomes of the run",
            {"FILE", ValueSource::Files, {}});
    static const std::map<std::string, ReportFormat> kFormats = {
        {"text", ReportFormat::Text}, {"json", ReportFormat::Json}, {"junit", ReportFormat::Junit}};
    std::vector<std::string> words;
    words.reserve(kFormats.size());
    for (const auto& [word, format] : kFormats) words.push_back(word);
    TakesWord(
        command->add_option_function<std::string>(
            "--report-format", [this](const std::string& name) { given_.reportFormat = kFormats.at(name); },
            "Form of the report (default: junit for a file *.xml, json for *.json, else text)"),
        "FORM", words)
        ->needs("--report");
}

void Grammar::AddRegister() {
    CLI::App* command = app_.add_subcommand("register", "Write entries to the database and the files");
    AddTargets(command, "Write to");
    command->add_flag("--all", given_.toAll, "Write to all three");
    AddDataSource(command);
    command->add_flag("--dry-run", given_.isDryRun,
                      "Write nothing; print the statements and what would change in the files");
    command->add_flag("--one-transaction", given_.isOneTransaction,
                      "Write all entries to the database or, when it refuses one, none anywhere");
    AddReport(command);
    Set(command, "register", [this](Services& services, Console& console) {
        if (given_.isOneTransaction && !given_.toDatabase && !given_.toAll) {
            throw CliError(ExitCode::WrongCall,
                           "--one-transaction is for the database, which is no target of this call", {},
                           "Add --db, or leave --one-transaction out.");
        }
        const RegisterOptions options{Plan(services), given_.isDryRun, given_.isOneTransaction};
        return RunRegister(services, options, console);
    });
}

void Grammar::AddVerify() {
    CLI::App* command = app_.add_subcommand(
        "verify", "Compare entries with what the database and the files hold; nothing is written");
    AddTargets(command, "Compare with");
    command->add_flag("--all", given_.toAll, "Compare with all three");
    AddDataSource(command);
    AddReport(command);
    Set(command, "verify", [this](Services& services, Console& console) {
        PlanOptions options = Plan(services);
        options.isReadOnly = true;
        return RunVerify(services, options, console);
    });
}

void Grammar::AddExport() {
    CLI::App* command = app_.add_subcommand(
        "export", "Write an entry file from what the database or Ddinstal.ini holds of a device");
    ExportOptions& options = given_.exported;
    command->add_flag("--db", given_.toDatabase, "From the device database");
    command->add_flag("--ddinstall", given_.toDDInstall, "From Ddinstal.ini");
    const ValueDescription id{"ID", ValueSource::Free, {}};
    AddText(command, "--man-id", options.choice.manufacturer, "The device's manufacturer id, hexadecimal",
            id);
    AddText(command, "--dev-id", options.choice.type, "Its device type id, hexadecimal", id);
    AddText(command, "--dev-rev", options.choice.revision, "Its revision, hexadecimal", id);
    AddText(command, "--prot-id", options.choice.protocol, "Its protocol's id, decimal", id);
    command->add_flag("--list", options.isList, "List the devices that match");
    Takes(
        command->add_option("--set", options.more,
                            "KEY=VALUE of the entry, for what the source does not hold; any number of them"),
        {"KEY=VALUE", ValueSource::Free, {}})
        ->expected(1)
        ->take_all()
        ->excludes("--list");
    AddText(command, "--output,-o", options.output, "File for the entry (default: stdout)",
            {"FILE", ValueSource::Files, {}})
        ->excludes("--list");
    command->add_flag("--force", options.mayReplace, "The file may be there and is replaced")
        ->excludes("--list");
    AddDataSource(command);
    AddDDInstallPath(command);
    Set(command, "export", [this](Services& services, Console& console) {
        if (given_.toDatabase == given_.toDDInstall) {
            throw CliError(ExitCode::WrongCall, "an export has one source", {},
                           "Give either --db or --ddinstall.");
        }
        ExportOptions wanted = given_.exported;
        wanted.isDatabase = given_.toDatabase;
        wanted.ddInstallPath = DDInstallPath(services);
        return RunExport(services, wanted, console);
    });
}

void Grammar::AddCheck() {
    CLI::App* command = app_.add_subcommand("check", "Check entry files by every rule");
    AddTargets(command, "Check for");
    AddSchema(command, "Schema of the database the entries go to");
    command->add_flag("--strict", given_.isStrict,
                      "Warnings count as errors, and so does a file of a folder that is left out");
    AddReport(command);
    Set(command, "check", [this](Services& services, Console& console) {
        Targets targets{given_.toDatabase, given_.toIni, given_.toDDInstall};
        if (!targets.Any()) targets = {true, true, true};
        const CheckOptions options{given_.files,    targets,           given_.schema == "old",
                                   given_.isStrict, IniPath(services), DDInstallPath(services)};
        return RunCheck(services, options, console);
    });
}

void Grammar::AddDatabase() {
    CLI::App* database = app_.add_subcommand("database", "Make and look into device databases");
    database->require_subcommand(1);
    database->fallthrough();

    CLI::App* create = database->add_subcommand("create", "Make an SQLite device database");
    Takes(create->add_option("--file", given_.databaseFile, "The new file")->required(),
          {"PATH", ValueSource::Files, {}});
    AddSchema(create, "Generation of its schema");
    Takes(create->add_option("--dsn", given_.newDataSource, "Data source to register for it"),
          {"NAME", ValueSource::Free, {}});
    Set(create, "database create", [this](Services& services, Console& console) {
        const CreateDatabaseOptions options{services.Absolute(given_.databaseFile), given_.schema == "old",
                                            given_.newDataSource};
        return CreateDatabase(services, options, console);
    });

    CLI::App* info = database->add_subcommand("info", "Schema, row counts and connection facts");
    AddDataSource(info);
    Set(info, "database info",
        [](Services& services, Console& console) { return ShowDatabase(services, console); });

    CLI::App* list = database->add_subcommand("list", "Rows of one kind");
    TakesWord(list->add_option("KIND", given_.kind, "What to list")->required(), "KIND",
              {"protocols", "major-categories", "minor-categories", "manufacturers", "devices"});
    AddDataSource(list);
    Set(list, "database list",
        [this](Services& services, Console& console) { return ListRows(services, given_.kind, console); });

    CLI::App* sources = database->add_subcommand("sources", "Data sources and their drivers");
    Set(sources, "database sources", [](Services&, Console& console) { return ListSources(console); });
}

void Grammar::AddSettings() {
    CLI::App* settings = app_.add_subcommand("settings", "Show and change the stored settings");
    settings->require_subcommand(1);
    settings->fallthrough();
    CLI::App* list = settings->add_subcommand("list", "All settings");
    Set(list, "settings list",
        [](Services& services, Console& console) { return ListSettings(services, console); });
    CLI::App* get = settings->add_subcommand("get", "One setting");
    Takes(get->add_option("NAME", given_.settingName)->required(), {"NAME", ValueSource::Settings, {}});
    Set(get, "settings get", [this](Services& services, Console& console) {
        return GetSetting(services, given_.settingName, console);
    });
    CLI::App* set = settings->add_subcommand("set", "Change one setting");
    Takes(set->add_option("NAME", given_.settingName)->required(),
          {"NAME", ValueSource::ChangedSettings, {}});
    Takes(set->add_option("VALUE", given_.settingValue)->required(), {"VALUE", ValueSource::Free, {}});
    Set(set, "settings set", [this](Services& services, Console& console) {
        return SetSetting(services, given_.settingName, given_.settingValue, console);
    });
}

PlanOptions Grammar::Plan(Services& services) const {
    Targets targets{given_.toDatabase, given_.toIni, given_.toDDInstall};
    if (given_.toAll) targets = {true, true, true};
    if (!targets.Any()) {
        throw CliError(ExitCode::WrongCall, "no target was named", {},
                       "Add --db, --ini, --ddinstall or --all.");
    }
    PlanOptions plan{given_.files, targets, IniPath(services), DDInstallPath(services)};
    if (report_) report_->RequireNone({plan.iniPath, plan.ddInstallPath});
    return plan;
}

std::string Grammar::IniPath(Services& services) const {
    return services.Absolute(given_.iniPath.value_or(services.Settings().INIPath));
}

std::string Grammar::DDInstallPath(Services& services) const {
    return services.Absolute(given_.ddInstallPath.value_or(services.Settings().DDInstallPath));
}

CommandDescription Grammar::Describe(const CLI::App& command) const {
    CommandDescription description;
    description.name = command.get_name();
    description.text = command.get_description();
    for (const CLI::Option* option : command.get_options()) {
        const auto value = values_.find(option);
        if (option->nonpositional()) {
            description.options.push_back(
                {TypedNames(*option), value == values_.end() ? std::nullopt : std::optional(value->second),
                 option->get_description(), option->get_default_str(), option->get_required()});
        } else {
            description.arguments.push_back({values_.at(option), option->get_description(),
                                             option->get_required(), option->get_items_expected_max() > 1});
        }
    }
    for (const CLI::App* part : command.get_subcommands(nullptr)) {
        description.commands.push_back(Describe(*part));
    }
    return description;
}

CommandDescription DescribeCommandLine(Host& host) {
    return Grammar(host).Describe();
}

std::span<const Example> Examples() {
    return kExamples;
}

std::span<const ExitMeaning> ExitMeanings() {
    return kExitMeanings;
}

}  // namespace ventlock
