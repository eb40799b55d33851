#include "cli/JunitReport.h"

#include <algorithm>
#include <pugixml.hpp>
#include <sstream>
#include <vector>

#include "base/ShownText.h"
#include "base/Text.h"
#include "base/Utf.h"
#include "cli/ReportCases.h"

namespace ventlock {
namespace {

using Json = nlohmann::ordered_json;
using Outcome = ReportCase::Outcome;

/// True for the code points that no XML text may hold, the control characters left out.
bool IsNoXml(char32_t character) {
    return (character >= 0xD800 && character < 0xE000) || character == 0xFFFE || character == 0xFFFF;
}

std::string XmlText(std::string_view text) {
    const std::string shown = ShownText(text);
    std::string xml;
    for (std::size_t at = 0; at < shown.size();) {
        const char32_t character = NextCharacter(shown, at);
        AppendCharacter(xml, IsNoXml(character) ? kReplacementCharacter : character);
    }
    return xml;
}

void Set(pugi::xml_node node, const char* name, std::string_view value) {
    node.append_attribute(name).set_value(XmlText(value).c_str());
}

/// Attributes of a suite and of the whole, which build servers read either of.
void SetCounts(pugi::xml_node node, const std::string& name, const std::vector<ReportCase>& cases) {
    const auto count = [&](Outcome outcome) {
        return std::to_string(std::count_if(
            cases.begin(), cases.end(), [&](const ReportCase& result) { return result.outcome == outcome; }));
    };
    Set(node, "name", name);
    Set(node, "tests", std::to_string(cases.size()));
    Set(node, "failures", count(Outcome::Failed));
    Set(node, "errors", "0");
    Set(node, "skipped", count(Outcome::Skipped));
}

void AddProperties(pugi::xml_node suite, const Json& document) {
    pugi::xml_node properties = suite.append_child("properties");
    const auto add = [&](std::string_view name, const std::string& value) {
        pugi::xml_node property = properties.append_child("property");
        Set(property, "name", name);
        Set(property, "value", value);
    };
    const Json targets = document.value("targets", Json::object());
    for (const auto& [key, place] : targets.items()) add(key, place.get<std::string>());
    for (const std::string& path : LeftOut(document)) add("leftOut", path);
    const std::string transaction = TransactionStatus(document);
    if (!transaction.empty()) add("transaction", transaction);
    if (!properties.first_child()) suite.remove_child(properties);
}

void AddCase(pugi::xml_node suite, const std::string& command, const ReportCase& result) {
    pugi::xml_node node = suite.append_child("testcase");
    Set(node, "classname", result.file.empty() ? command : result.file);
    Set(node, "name", result.name);
    if (!result.file.empty()) {
        Set(node, "file", result.file);
        Set(node, "line", std::to_string(result.line));
    }
    if (result.outcome == Outcome::Skipped) Set(node.append_child("skipped"), "message", result.status);
    const std::string text = XmlText(Joined(result.lines, "\n"));
    if (result.outcome == Outcome::Failed) {
        pugi::xml_node failure = node.append_child("failure");
        const std::string more = result.lines.empty() ? "" : ": " + result.lines.front();
        Set(failure, "message", result.status + more);
        Set(failure, "type", result.status);
        failure.text().set(text.c_str());
    } else if (!text.empty()) {
        node.append_child("system-out").text().set(text.c_str());
    }
}

}  // namespace

std::string JunitReport(const Json& document, const LocalTime& begin) {
    const std::string command = document.value("command", std::string());
    const std::string name = "ventlock-cli " + command;
    const std::vector<ReportCase> cases = ReportCases(document);
    pugi::xml_document xml;
    pugi::xml_node declaration = xml.append_child(pugi::node_declaration);
    Set(declaration, "version", "1.0");
    Set(declaration, "encoding", "UTF-8");
    pugi::xml_node suites = xml.append_child("testsuites");
    SetCounts(suites, name, cases);
    pugi::xml_node suite = suites.append_child("testsuite");
    SetCounts(suite, name, cases);
    Set(suite, "timestamp", TimeText(begin, 'T'));
    AddProperties(suite, document);
    for (const ReportCase& result : cases) AddCase(suite, command, result);
    std::ostringstream text;
    xml.save(text, "  ", pugi::format_default, pugi::encoding_utf8);
    return text.str();
}

}  // namespace ventlock
