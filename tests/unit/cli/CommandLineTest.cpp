#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "unit/cli/CommandLineHost.h"

namespace ventlock::test {
namespace {

TEST(CommandLine, HelpDocumentsTheExitCodes) {
    CommandLineHost host;
    const Answer answer = Call(host, {"--help"});
    EXPECT_EQ(answer.code, ExitCode::Done);
    EXPECT_EQ(answer.err, "");
    const std::string promise =
        "Exit codes:\n"
        "  0  everything asked for was done\n"
        "  1  at least one target failed\n"
        "  2  the call or the entry file is wrong\n"
        "  3  a target cannot be reached\n";
    EXPECT_NE(answer.out.find(promise), std::string::npos) << answer.out;
    EXPECT_NE(Call(host, {"register", "--help"}).out.find(promise), std::string::npos);
}

TEST(CommandLine, ExitCodesAreTheDocumentedNumbers) {
    EXPECT_EQ(static_cast<int>(ExitCode::Done), 0);
    EXPECT_EQ(static_cast<int>(ExitCode::TargetFailed), 1);
    EXPECT_EQ(static_cast<int>(ExitCode::WrongCall), 2);
    EXPECT_EQ(static_cast<int>(ExitCode::Unreachable), 3);
}

TEST(CommandLine, HelpNamesEveryCommandAndOption) {
    CommandLineHost host;
    const std::string all = Call(host, {"--help"}).out;
    for (const char* const word : {"register", "verify", "export", "check", "database", "settings", "--json",
                                   "--quiet", "--timeout", "--version"}) {
        EXPECT_NE(all.find(word), std::string::npos) << word;
    }
    const std::string ofRegister = Call(host, {"register", "--help"}).out;
    for (const char* const word :
         {"FILE", "--db", "--ini", "--ddinstall", "--all", "--dsn", "--ini-path", "--ddinstall-path",
          "--dry-run", "--one-transaction", "--report", "--report-format"}) {
        EXPECT_NE(ofRegister.find(word), std::string::npos) << word;
    }
    const std::string ofVerify = Call(host, {"verify", "--help"}).out;
    for (const char* const word : {"FILE", "--db", "--ini", "--ddinstall", "--all", "--dsn", "--ini-path",
                                   "--ddinstall-path", "--report", "--report-format"}) {
        EXPECT_NE(ofVerify.find(word), std::string::npos) << word;
    }
    const std::string ofExport = Call(host, {"export", "--help"}).out;
    for (const char* const word : {"--db", "--ddinstall", "--dsn", "--ddinstall-path", "--man-id", "--dev-id",
                                   "--dev-rev", "--prot-id", "--list", "--set", "--output", "--force"}) {
        EXPECT_NE(ofExport.find(word), std::string::npos) << word;
    }
    const std::string ofDatabase = Call(host, {"database", "--help"}).out;
    for (const char* const word : {"create", "info", "list", "sources"}) {
        EXPECT_NE(ofDatabase.find(word), std::string::npos) << word;
    }
    const std::string ofSettings = Call(host, {"settings", "--help"}).out;
    for (const char* const word : {"list", "get", "set"}) {
        EXPECT_NE(ofSettings.find(word), std::string::npos) << word;
    }
}

TEST(CommandLine, VersionIsTheProgramsOwn) {
    CommandLineHost host;
    host.appInfo.major = 7;
    host.appInfo.revision = 0;
    const Answer answer = Call(host, {"--version"});
    EXPECT_EQ(answer.code, ExitCode::Done);
    EXPECT_EQ(answer.out, "ventlock-cli 7.1.0 (" + std::to_string(8 * sizeof(void*)) + " bit)\n");
}

TEST(CommandLine, OptionsOfAllCommandsMayStandAnywhere) {
    CommandLineHost host;
    const std::string expected = Call(host, {"settings", "get", "DevRev", "--json"}).out;
    EXPECT_EQ(nlohmann::json::parse(expected)["value"], "01");
    EXPECT_EQ(Call(host, {"--json", "settings", "get", "DevRev"}).out, expected);
    EXPECT_EQ(Call(host, {"settings", "--json", "get", "DevRev"}).out, expected);
}

TEST(CommandLine, AnErrorOfTheCallItselfIsADocumentTooWhenOneIsAskedFor) {
    CommandLineHost host;
    const Answer answer = Call(host, {"settings", "get", "--json"});
    EXPECT_EQ(answer.code, ExitCode::WrongCall);
    EXPECT_EQ(answer.err, "");
    EXPECT_EQ(nlohmann::json::parse(answer.out), nlohmann::json::parse(R"({"version": 1, "exitCode": 2,
                                        "error": {"text": "NAME is required", "details": [],
                                                  "advice": "See \"ventlock-cli settings get --help\"."}})"));
}

/// What a call that is not understood is advised to.
std::string AdviceOn(const std::vector<std::string>& call) {
    CommandLineHost host;
    const Answer answer = Call(host, call);
    EXPECT_EQ(answer.code, ExitCode::WrongCall);
    EXPECT_EQ(answer.out, "");
    return answer.err.substr(answer.err.find("\n  ") + 3);
}

TEST(CommandLine, ACallThatIsNotUnderstoodIsShownToTheHelpOfItsCommand) {
    EXPECT_EQ(AdviceOn({}), "See \"ventlock-cli --help\".\n");
    EXPECT_EQ(AdviceOn({"inscribe"}), "See \"ventlock-cli --help\".\n");
    EXPECT_EQ(AdviceOn({"register"}), "See \"ventlock-cli register --help\".\n");
    EXPECT_EQ(AdviceOn({"check", "a.ini", "--everywhere"}), "See \"ventlock-cli check --help\".\n");
    EXPECT_EQ(AdviceOn({"database"}), "See \"ventlock-cli database --help\".\n");
    EXPECT_EQ(AdviceOn({"database", "create"}), "See \"ventlock-cli database create --help\".\n");
    EXPECT_EQ(AdviceOn({"--quiet", "settings", "set", "DevRev"}),
              "See \"ventlock-cli settings set --help\".\n");
}

TEST(CommandLine, AMisspeltCommandIsAnsweredWithTheOneThatWasMeant) {
    const std::string see = " See \"ventlock-cli --help\".\n";
    EXPECT_EQ(AdviceOn({"regster", "a.ini"}), "Did you mean register?" + see);
    EXPECT_EQ(AdviceOn({"--timeout", "5", "--quiet", "chekc", "a.ini"}), "Did you mean check?" + see);
    const std::string database = " See \"ventlock-cli database --help\".\n";
    EXPECT_EQ(AdviceOn({"database", "creat", "--file", "a.db"}), "Did you mean create?" + database);
    EXPECT_EQ(AdviceOn({"database", "remove"}), database.substr(1));
}

TEST(CommandLine, AMisspeltOptionIsAnsweredWithTheOneThatWasMeant) {
    const std::string see = " See \"ventlock-cli register --help\".\n";
    for (const char* const option : {"--dryrun", "--dry-rnu", "-dry-run", "--dry_run", "--dry-run-"}) {
        EXPECT_EQ(AdviceOn({"register", "a.ini", "--all", option}), "Did you mean --dry-run?" + see)
            << option;
    }
    EXPECT_EQ(AdviceOn({"register", "a.ini", "--ini", "--inipath=b"}), "Did you mean --ini-path?" + see);
    EXPECT_EQ(AdviceOn({"register", "a.ini", "--jsno"}),
              "Did you mean --json?" + see);  // one of all commands
    EXPECT_EQ(AdviceOn({"register", "a.ini", "--wrong", "--al"}), "Did you mean --all?" + see);
    // An option of another command, and one of a letter that is near every short one.
    EXPECT_EQ(AdviceOn({"register", "a.ini", "--strict"}), see.substr(1));
    EXPECT_EQ(AdviceOn({"register", "a.ini", "-x"}), see.substr(1));
}

TEST(CommandLine, StoresASettingInTheRegistry) {
    CommandLineHost host;
    EXPECT_EQ(Call(host, {"settings", "set", "manname", "Acme"}).out, "manname=Acme\n");
    ASSERT_EQ(host.registry.sets.size(), 1U);
    EXPECT_EQ(host.registry.sets[0],
              (FakeRegistry::SetCall{
                  "HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvard Systems\\TAVToolkit\\Ventlock\\Settings",
                  "ManName",
                  {1, "Acme"}}));
}

TEST(CommandLine, ALanguageThatNoDictionaryHasIsStoredWithAWarning) {
    CommandLineHost host;
    const auto set = [&](const std::string& language) {
        const Answer answer = Call(host, {"settings", "set", "language", language});
        EXPECT_EQ(answer.code, ExitCode::Done);
        EXPECT_EQ(answer.out, "language=" + language + "\n");
        EXPECT_EQ(Call(host, {"settings", "get", "Language"}).out,
                  (language.empty() ? "EN" : language) + "\n");
        return answer.err;
    };
    EXPECT_EQ(set("XX"), "ventlock-cli: the dictionaries have no language XX; EN is shown\n");
    for (const char* const language : {"DE", "en", ""}) EXPECT_EQ(set(language), "") << language;
    const Answer document = Call(host, {"settings", "set", "Language", "XX", "--json"});
    EXPECT_EQ(nlohmann::json::parse(document.out)["warnings"],
              nlohmann::json::array({"the dictionaries have no language XX; EN is shown"}));
    // Without dictionaries no language is shown.
    for (const char* const name : {"QorStandard.dct", "Ventlock.dct"}) WriteBytes(host.folder / name, "");
    EXPECT_EQ(set("XX"), "");
    WriteBytes(host.folder / "Ventlock.dct", "[fr]\nA=b\n");
    EXPECT_EQ(set("XX"), "ventlock-cli: the dictionaries have no language XX; FR is shown\n");
}

TEST(CommandLine, ARegistryThatRefusesIsToldWithItsStatus) {
    CommandLineHost host;
    host.registry.RefuseWrites(kRegistryAccessDenied);
    const Answer answer = Call(host, {"settings", "set", "ManName", "Acme"});
    EXPECT_EQ(answer.code, ExitCode::TargetFailed);
    EXPECT_EQ(answer.err,
              "ventlock-cli: ManName was not stored; the settings store answered 5\n"
              "  Check that you may write the settings store.\n");
}

TEST(CommandLine, ADictionaryThatIsMissingIsLoggedAndTheWorkGoesOn) {
    CommandLineHost host;
    host.paths.programFolder = host.folder / "elsewhere";
    const Answer answer = Call(host, {"settings", "get", "DevRev"});
    EXPECT_EQ(answer.code, ExitCode::Done);
    EXPECT_EQ(answer.out, "01\n");
}

}  // namespace
}  // namespace ventlock::test
