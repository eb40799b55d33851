#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>
#include <optional>
#include <sstream>

#include "cli/CheckCommand.h"
#include "cli/CliError.h"
#include "cli/Console.h"
#include "cli/DatabaseCommands.h"
#include "cli/RegisterCommand.h"
#include "cli/Services.h"
#include "cli/SettingsCommands.h"

namespace ventlock {
namespace {

constexpr const char* kDescription =
    "Registers HART field devices with a Tav installation: in the device database, in Pyx.ini and in "
    "Ddinstal.ini.";

constexpr const char* kFooter = R"(Examples:
  ventlock-cli check flow.ini
  ventlock-cli register flow.ini --all --dry-run
  ventlock-cli register devices/*.ini --db --ini --json

Exit codes:
  0  everything asked for was done
  1  at least one target failed
  2  the call or the entry file is wrong
  3  a target cannot be reached)";

/// The options of all commands as they were given.
struct Options {
    std::vector<std::string> files;
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
    int timeLimit = 0;  ///< seconds; 0: the defaults
    bool isJson = false;
    bool isQuiet = false;
};

using Command = std::function<ExitCode(Services&, Console&)>;

/// The command line's own grammar, and the command it asks for.
class Grammar {
 public:
    explicit Grammar(Host& host) : host_(host), app_(kDescription, "ventlock-cli") {
        app_.require_subcommand(1);
        app_.fallthrough();
        app_.footer(kFooter);
        app_.set_version_flag("--version", Version(), "Print the version and end");
        app_.add_flag("--json", given_.isJson, "Answer with one JSON document on stdout");
        app_.add_flag("--quiet,-q", given_.isQuiet, "Print errors and asked-for data only");
        app_.add_option("--timeout", given_.timeLimit,
                        "Longest time the database may take to answer, in seconds")
            ->check(CLI::Range(1, 3600));
        AddRegister();
        AddCheck();
        AddDatabase();
        AddSettings();
    }

    CLI::App& App() { return app_; }
    [[nodiscard]] const Options& Given() const { return given_; }
    [[nodiscard]] const Command& Wanted() const { return wanted_; }
    [[nodiscard]] const std::string& Name() const { return name_; }

 private:
    std::string Version() {
        IAppInfo& info = host_.AppInfo();
        return "ventlock-cli " + std::to_string(info.Major()) + "." + std::to_string(info.Minor()) + "." +
               std::to_string(info.Revision()) + " (" + std::to_string(sizeof(void*) * 8) + " bit)";
    }

    void Set(CLI::App* command, const std::string& name, Command action) {
        command->callback([this, name, action = std::move(action)] {
            name_ = name;
            wanted_ = action;
        });
    }

    /// An option whose empty text is kept apart from no text at all.
    static void AddText(CLI::App* command, const std::string& name, std::optional<std::string>& text,
                        const std::string& description) {
        command->add_option_function<std::string>(
            name, [&text](const std::string& given) { text = given; }, description);
    }

    void AddTargets(CLI::App* command, const std::string& verb) {
        command->add_option("FILE", given_.files, "Entry files: one section an entry")->required();
        command->add_flag("--db", given_.toDatabase, verb + " the device database");
        command->add_flag("--ini", given_.toIni, verb + " Pyx.ini");
        command->add_flag("--ddinstall", given_.toDDInstall, verb + " Ddinstal.ini");
        AddText(command, "--ini-path", given_.iniPath, "Path of Pyx.ini (default: the setting INIPath)");
        AddText(command, "--ddinstall-path", given_.ddInstallPath,
                "Path of Ddinstal.ini (default: the setting DDInstallPath)");
    }

    void AddDataSource(CLI::App* command) {
        AddText(command, "--dsn", given_.dataSource, "Data source (default: the setting DataSourceName)");
    }

    void AddRegister() {
        CLI::App* command = app_.add_subcommand("register", "Write entries to the database and the files");
        AddTargets(command, "Write to");
        command->add_flag("--all", given_.toAll, "Write to all three");
        AddDataSource(command);
        command->add_flag("--dry-run", given_.isDryRun,
                          "Write nothing; print the statements and what would change in the files");
        command->add_flag("--one-transaction", given_.isOneTransaction,
                          "Write all entries to the database or, when it refuses one, none anywhere");
        Set(command, "register", [this](Services& services, Console& console) {
            const RegisterOptions options{given_.files,      RegisterTargets(),
                                          IniPath(services), DDInstallPath(services),
                                          given_.isDryRun,   given_.isOneTransaction};
            return RunRegister(services, options, console);
        });
    }

    void AddCheck() {
        CLI::App* command = app_.add_subcommand("check", "Check entry files by every rule");
        AddTargets(command, "Check for");
        command->add_option("--schema", given_.schema, "Schema of the database the entries go to")
            ->check(CLI::IsMember({"current", "old"}))
            ->capture_default_str();
        command->add_flag("--strict", given_.isStrict, "Warnings count as errors");
        Set(command, "check", [this](Services& services, Console& console) {
            Targets targets{given_.toDatabase, given_.toIni, given_.toDDInstall};
            if (!targets.Any()) targets = {true, true, true};
            const CheckOptions options{given_.files,    targets,           given_.schema == "old",
                                       given_.isStrict, IniPath(services), DDInstallPath(services)};
            return RunCheck(services, options, console);
        });
    }

    void AddDatabase() {
        CLI::App* database = app_.add_subcommand("database", "Make and look into device databases");
        database->require_subcommand(1);
        database->fallthrough();

        CLI::App* create = database->add_subcommand("create", "Make an SQLite device database");
        create->add_option("--file", given_.databaseFile, "The new file")->required();
        create->add_option("--schema", given_.schema, "Generation of its schema")
            ->check(CLI::IsMember({"current", "old"}))
            ->capture_default_str();
        create->add_option("--dsn", given_.newDataSource, "Data source to register for it");
        Set(create, "database create", [this](Services& services, Console& console) {
            const CreateDatabaseOptions options{services.Absolute(given_.databaseFile),
                                                given_.schema == "old", given_.newDataSource};
            return CreateDatabase(services, options, console);
        });

        CLI::App* info = database->add_subcommand("info", "Schema, row counts and connection facts");
        AddDataSource(info);
        Set(info, "database info",
            [](Services& services, Console& console) { return ShowDatabase(services, console); });

        CLI::App* list = database->add_subcommand("list", "Rows of one kind");
        list->add_option("KIND", given_.kind, "What to list")
            ->required()
            ->check(CLI::IsMember(
                {"protocols", "major-categories", "minor-categories", "manufacturers", "devices"}));
        AddDataSource(list);
        Set(list, "database list", [this](Services& services, Console& console) {
            return ListRows(services, given_.kind, console);
        });

        CLI::App* sources = database->add_subcommand("sources", "Data sources and their drivers");
        Set(sources, "database sources", [](Services&, Console& console) { return ListSources(console); });
    }

    void AddSettings() {
        CLI::App* settings = app_.add_subcommand("settings", "Show and change the stored settings");
        settings->require_subcommand(1);
        settings->fallthrough();
        CLI::App* list = settings->add_subcommand("list", "All settings");
        Set(list, "settings list",
            [](Services& services, Console& console) { return ListSettings(services, console); });
        CLI::App* get = settings->add_subcommand("get", "One setting");
        get->add_option("NAME", given_.settingName)->required();
        Set(get, "settings get", [this](Services& services, Console& console) {
            return GetSetting(services, given_.settingName, console);
        });
        CLI::App* set = settings->add_subcommand("set", "Change one setting");
        set->add_option("NAME", given_.settingName)->required();
        set->add_option("VALUE", given_.settingValue)->required();
        Set(set, "settings set", [this](Services& services, Console& console) {
            return SetSetting(services, given_.settingName, given_.settingValue, console);
        });
    }

    [[nodiscard]] Targets RegisterTargets() const {
        if (given_.toAll) return {true, true, true};
        if (given_.isOneTransaction && !given_.toDatabase) {
            throw CliError(ExitCode::WrongCall,
                           "--one-transaction is for the database, which is no target of this call", {},
                           "Add --db, or leave --one-transaction out.");
        }
        const Targets targets{given_.toDatabase, given_.toIni, given_.toDDInstall};
        if (!targets.Any()) {
            throw CliError(ExitCode::WrongCall, "no target was named", {},
                           "Add --db, --ini, --ddinstall or --all.");
        }
        return targets;
    }

    std::string IniPath(Services& services) const {
        return services.Absolute(given_.iniPath.value_or(services.Settings().INIPath));
    }

    std::string DDInstallPath(Services& services) const {
        return services.Absolute(given_.ddInstallPath.value_or(services.Settings().DDInstallPath));
    }

    Host& host_;
    CLI::App app_;
    Options given_;
    Command wanted_;
    std::string name_;
};

ExitCode RunWanted(const Grammar& grammar, Host& host, Console& console) {
    const Options& given = grammar.Given();
    console.document["command"] = grammar.Name();
    try {
        ServiceOptions options;
        options.isDryRun = given.isDryRun;
        if (given.timeLimit > 0) {
            options.timeLimits = {std::chrono::seconds(given.timeLimit),
                                  std::chrono::seconds(given.timeLimit)};
        }
        Services services(host, options);
        if (given.dataSource) services.Settings().DSN = *given.dataSource;
        return grammar.Wanted()(services, console);
    } catch (const CliError& error) {
        console.WriteError(error);
        return error.Code();
    } catch (const RunTimeError& error) {
        console.WriteError(CliError(ExitCode::TargetFailed, error.what(), error.Diagnostics()));
        return ExitCode::TargetFailed;
    }
}

/// Why a call could not be understood: a word that should be a command is named, all else is as the parser
/// says it.
std::string WrongCallText(const CLI::App& app, const std::vector<std::string>& arguments,
                          const CLI::ParseError& error) {
    const auto first = std::find_if(arguments.begin(), arguments.end(),
                                    [](const std::string& argument) { return !argument.starts_with('-'); });
    if (first == arguments.end()) return error.what();
    std::string names;
    for (const CLI::App* command : app.get_subcommands(nullptr)) {
        if (command->get_name() == *first) return error.what();
        names.append(names.empty() ? "" : ", ").append(command->get_name());
    }
    return "\"" + *first + "\" is no command; the commands are " + names;
}

}  // namespace

ExitCode RunCommandLine(const std::vector<std::string>& arguments, Host& host, std::ostream& out,
                        std::ostream& err, bool isTerminal) {
    Console console(out, err, isTerminal);
    console.document["version"] = 1;  // of the document's form
    // A call that cannot be understood is answered in the form it asked for all the same.
    console.isJson = std::find(arguments.begin(), arguments.end(), "--json") != arguments.end();
    Grammar grammar(host);
    try {
        grammar.App().parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::Success& asked) {
        std::ostringstream text;
        grammar.App().exit(asked, text, text);
        if (!console.isJson) out << text.str();
        console.document["text"] = text.str();
        console.Finish(ExitCode::Done);
        return ExitCode::Done;
    } catch (const CLI::ParseError& error) {
        console.WriteError(CliError(ExitCode::WrongCall, WrongCallText(grammar.App(), arguments, error), {},
                                    "See \"ventlock-cli --help\"."));
        console.Finish(ExitCode::WrongCall);
        return ExitCode::WrongCall;
    }
    console.isJson = grammar.Given().isJson;
    console.isQuiet = grammar.Given().isQuiet;
    const ExitCode code = RunWanted(grammar, host, console);
    console.Finish(code);
    return code;
}

}  // namespace ventlock
