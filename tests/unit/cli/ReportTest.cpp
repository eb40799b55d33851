#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <pugixml.hpp>

#include "cli/JunitReport.h"
#include "cli/Report.h"
#include "cli/TextReport.h"
#include "unit/cli/CommandLineHost.h"

namespace ventlock::test {
namespace {

using Json = nlohmann::ordered_json;

constexpr LocalTime kBegin{2026, 1, 2, 3, 4, 5};

constexpr const char* kEntry = "[A]\nManID=26\nDevID=7\nDevName=Flow\nDLLName=d\n";

std::vector<std::string> RegisterWithReport(const std::string& name) {
    return {"register", "entry.ini", "--ini", "--ini-path", "Pyx.ini", "--report", name};
}

TEST(ReportForm, ComesFromTheEndingOfTheName) {
    EXPECT_EQ(FormatOfName("a/b.xml"), ReportFormat::Junit);
    EXPECT_EQ(FormatOfName(".XML"), ReportFormat::Junit);
    EXPECT_EQ(FormatOfName("b.Json"), ReportFormat::Json);
    for (const char* const name : {"", "xml", "json", "b.txt", "b.xml.txt", "b.jso"}) {
        EXPECT_EQ(FormatOfName(name), ReportFormat::Text) << name;
    }
}

TEST(Report, TellsWhenTheRunBegan) {
    const Json document = {{"command", "register"}, {"exitCode", 0}};
    EXPECT_EQ(TextReport(document, kBegin),
              "ventlock-cli register, 2026-01-02 03:04:05\n\n\n0 passed, 0 failed, 0 skipped\nexit code 0\n");
    EXPECT_EQ(JunitReport(document, kBegin),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<testsuites name=\"ventlock-cli register\" tests=\"0\" failures=\"0\" errors=\"0\" "
              "skipped=\"0\">\n"
              "  <testsuite name=\"ventlock-cli register\" tests=\"0\" failures=\"0\" errors=\"0\" "
              "skipped=\"0\" timestamp=\"2026-01-02T03:04:05\" />\n"
              "</testsuites>\n");
}

TEST(Report, TellsApartWhatHasOneName) {
    const Json finding = {
        {"file", "a.ini"}, {"line", 2}, {"id", "too-long"}, {"severity", "warning"}, {"text", "t"}};
    Json other = finding;
    other["file"] = "b.ini";
    Json ofTheFile = finding;
    ofTheFile["line"] = 0;
    const Json document = {
        {"command", "check"}, {"exitCode", 0}, {"findings", {finding, other, finding, finding, ofTheFile}}};
    pugi::xml_document xml;
    const std::string text = JunitReport(document, kBegin);
    ASSERT_TRUE(xml.load_buffer(text.data(), text.size())) << text;
    std::vector<std::string> names;
    for (const pugi::xml_node test : xml.child("testsuites").child("testsuite").children("testcase")) {
        names.push_back(std::string(test.attribute("classname").value()) + ": " +
                        test.attribute("name").value());
    }
    EXPECT_EQ(names, (std::vector<std::string>{"a.ini: line 2 [too-long]", "b.ini: line 2 [too-long]",
                                               "a.ini: line 2 [too-long] (2)", "a.ini: line 2 [too-long] (3)",
                                               "a.ini: [too-long]"}));
}

TEST(Report, TellsWhatWasLeftOutAndHowTheTransactionEnded) {
    const Json document = {{"command", "register"},
                           {"exitCode", 0},
                           {"leftOut", {"d/desktop.ini", "d/other.ini"}},
                           {"transaction", {{"status", "committed"}, {"restarts", 0}}}};
    EXPECT_NE(TextReport(document, kBegin)
                  .find("\nleft out: d/desktop.ini\nleft out: d/other.ini\ntransaction: committed\n"),
              std::string::npos);
    EXPECT_NE(JunitReport(document, kBegin).find(R"(    <properties>
      <property name="leftOut" value="d/desktop.ini" />
      <property name="leftOut" value="d/other.ini" />
      <property name="transaction" value="committed" />
    </properties>
)"),
              std::string::npos);
}

TEST(Report, IsWellFormedWhateverTheTextsHold) {
    // A byte that is no text, controls, half a character, what XML forbids, and what it has a meaning for.
    const std::string odd = "\xFF \x01\x1B \xED\xA0\x80 \xEF\xBF\xBF ]]> & <a b=\"'\"> \xC2\x85 \t\xC3\xA9";
    const std::string shown =
        "\xEF\xBF\xBD \\x01\\x1B \xEF\xBF\xBD \xEF\xBF\xBD ]]> & <a b=\"'\"> \\x85 \t\xC3\xA9";
    const Json document = {
        {"command", "register"},
        {"exitCode", 1},
        {"targets", {{"ini", odd}}},
        {"entries",
         {{{"name", odd},
           {"file", odd},
           {"line", 1},
           {"targets", {{"ini", {{"target", odd}, {"status", "failed"}, {"messages", {odd}}}}}}}}}};
    pugi::xml_document xml;
    const std::string text = JunitReport(document, kBegin);
    ASSERT_TRUE(xml.load_buffer(text.data(), text.size())) << text;
    EXPECT_EQ(text.find('\x01'), std::string::npos);
    EXPECT_EQ(text.find("&#1;"), std::string::npos);
    const pugi::xml_node suite = xml.child("testsuites").child("testsuite");
    const pugi::xml_node test = suite.child("testcase");
    EXPECT_EQ(test.attribute("classname").value(), shown);
    EXPECT_EQ(test.attribute("name").value(), "[" + shown + "] Pyx.ini");
    EXPECT_EQ(test.child("failure").text().get(), shown);
    EXPECT_EQ(suite.child("properties").child("property").attribute("value").value(), shown);
}

TEST(Report, ThatFailsAfterAllIsAnErrorOfItsOwnBesideTheRunsResult) {
    for (const bool isJson : {false, true}) {
        CommandLineHost host;
        WriteBytes(host.folder / "entry.ini", kEntry);
        std::vector<std::string> call = RegisterWithReport("out.xml");
        if (isJson) call.emplace_back("--json");
        // The target and its backup come first.
        host.files.FailAt(FileOperation::Replace, 3,
                          RunTimeError::OfFile(ErrorNumber::DiskFull, "\"out.xml\": full"));
        const Answer answer = Call(host, call);
        EXPECT_EQ(answer.code, ExitCode::TargetFailed);
        EXPECT_FALSE(std::filesystem::exists(host.folder / "out.xml"));
        EXPECT_TRUE(std::filesystem::exists(host.folder / "Pyx.ini"));
        if (!isJson) {
            EXPECT_EQ(answer.out,
                      "[A] entry.ini:1: " + host.paths.Join(host.folder.Path(), "Pyx.ini") + ": written\n");
            EXPECT_EQ(
                answer.err,
                "ventlock-cli: report out.xml: Disk full \"out.xml\": full\n  Make room on the disk.\n");
            continue;
        }
        const auto document = Json::parse(answer.out);
        EXPECT_EQ(answer.err, "");
        EXPECT_EQ(document["exitCode"], 1);
        EXPECT_FALSE(document.contains("error"));
        EXPECT_EQ(document["entries"][0]["targets"]["ini"]["status"], "written");
        EXPECT_EQ(document["report"]["status"], "failed");
        EXPECT_EQ(document["report"]["messages"], (Json{"report out.xml: Disk full \"out.xml\": full"}));
        EXPECT_EQ(document["report"]["advice"], "Make room on the disk.");
    }
}

TEST(Report, ThatFailsLeavesTheCodeOfARunThatFailedToo) {
    CommandLineHost host;
    WriteBytes(host.folder / "entry.ini", "[A]\nManID=x\n");
    host.files.FailAt(FileOperation::Replace, 1, RunTimeError(ErrorNumber::DiskFull));
    const Answer answer = Call(host, RegisterWithReport("out.xml"));
    EXPECT_EQ(answer.code, ExitCode::WrongCall);
    EXPECT_NE(answer.err.find("the entry files hold errors"), std::string::npos) << answer.err;
    EXPECT_NE(answer.err.find("report out.xml: Disk full"), std::string::npos) << answer.err;
}

TEST(Report, IsWrittenWhenTheProgramsOwnFilesMakeNoSense) {
    CommandLineHost host;
    WriteBytes(host.folder / "entry.ini", kEntry);
    WriteBytes(host.folder / "ventlock.ini", "[Files]\r\nCodePage=12\r\n");
    const Answer answer = Call(host, RegisterWithReport("out.txt"));
    EXPECT_EQ(answer.code, ExitCode::WrongCall);
    EXPECT_NE(ReadBytes(host.folder / "out.txt").find("ventlock.ini: "), std::string::npos);
}

}  // namespace
}  // namespace ventlock::test
