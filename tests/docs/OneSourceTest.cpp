// What the guides, the help book and the manual say about the same thing is what the program has.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <sstream>

#include "cli/GuideTables.h"
#include "cli/OwnPlaces.h"
#include "cli/SettingsCommands.h"
#include "docs/Paths.h"
#include "entry/EntryFile.h"
#include "entry/FieldLimits.h"
#include "entry/RequiredFields.h"
#include "platform/Casing.h"
#include "platform/Host.h"
#include "support/TempFolder.h"

namespace ventlock::test {
namespace {

const std::vector<std::string> kLanguages = {"en", "de"};

std::string Page(const std::string& language, const std::string& name) {
    return ReadBytes(InSource("data/help/" + language + "/" + name));
}

bool Holds(const std::string& text, std::string_view words) {
    return text.find(words) != std::string::npos;
}

class Tables : public testing::TestWithParam<std::string> {};

TEST_P(Tables, AreMadeOfWhatTheProgramSays) {
    const std::string document = ReadBytes(InSource(GetParam()));
    EXPECT_EQ(WithTables(document, DescribeCommandLine(*CreateHost("ventlock"))), document)
        << "Make the tables anew: cmake --build --preset dev --target documents";
}

INSTANTIATE_TEST_SUITE_P(Docs, Tables, testing::ValuesIn(DocumentPaths()), NameOfPath);

TEST(Tables, AreInTheGuidesThatAreToHaveThem) {
    const std::string guide = ReadBytes(InSource("docs/command-line.md"));
    for (const char* const name : {"commands", "options", "exit codes"}) {
        EXPECT_TRUE(Holds(guide, "<!-- table: " + std::string(name) + " -->")) << name;
    }
    const std::string linux = ReadBytes(InSource("docs/linux.md"));
    EXPECT_TRUE(Holds(linux, "<!-- table: environment -->"));
    EXPECT_TRUE(Holds(linux, "<!-- table: files -->"));
}

/// A list in words: "a, b or c".
std::string Joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : ", ") + word;
    return text;
}

std::string NeededBy(std::string_view key) {
    const auto fields = RequiredFields();
    const auto field = std::ranges::find(fields, key, &RequiredField::key);
    if (field == fields.end()) return "";
    const Targets& targets = field->neededBy;
    if (targets == Targets{true, true, true}) return "all three";
    std::vector<std::string> names;
    if (targets.database) names.emplace_back("database");
    if (targets.ini) names.emplace_back("`Pyx.ini`");
    if (targets.ddInstall) names.emplace_back("`Ddinstal.ini`");
    return Joined(names);
}

std::string Form(std::string_view key) {
    const auto* const hex = std::ranges::find(limits::kHexFields, key, &limits::HexField::key);
    if (hex != limits::kHexFields.end()) {
        return "hexadecimal" + (hex->width == 0 ? "" : ", " + std::to_string(hex->width) + " digits");
    }
    const bool isId = std::ranges::find(limits::kIdFields, key) != limits::kIdFields.end();
    if (isId) return "decimal";
    const auto* const text = std::ranges::find(limits::kStatementFields, key, &limits::StatementField::key);
    return text == limits::kStatementFields.end() ? "text"
                                                  : "text, " + std::to_string(text->limit) + " characters";
}

std::vector<std::string> Cells(const std::string& row) {
    std::vector<std::string> cells;
    std::istringstream in(row.substr(row.find('|') + 1));
    for (std::string cell; std::getline(in, cell, '|');) {
        const std::size_t begin = cell.find_first_not_of(' ');
        cells.push_back(
            begin == std::string::npos ? "" : cell.substr(begin, cell.find_last_not_of(' ') - begin + 1));
    }
    return cells;
}

TEST(EntryFiles, AreDescribedKeyByKey) {
    std::istringstream lines(ReadBytes(InSource("docs/entry-files.md")));
    std::map<std::string, std::vector<std::string>> rows;
    const std::string heading = "| Key | Meaning | Form | Without it | Needed by |";
    std::string line;
    while (line != heading && std::getline(lines, line)) {
    }
    ASSERT_EQ(line, heading) << "the table of the keys is missing";
    std::getline(lines, line);
    while (std::getline(lines, line) && line.starts_with("|")) rows[Cells(line).front()] = Cells(line);
    EXPECT_EQ(rows.size(), EntryKeys().size());
    for (const EntryKey& key : EntryKeys()) {
        const std::string name = "`" + std::string(key.name) + "`";
        const auto row = rows.find(name);
        if (row == rows.end()) {
            ADD_FAILURE() << "no row for " << name;
            continue;
        }
        const bool isName =
            key.name == "Protocol" || key.name == "MajorCategory" || key.name == "MinorCategory";
        const std::string defaultText = isName                    ? "the id counts"
                                        : key.defaultText.empty() ? "empty"
                                                                  : "`" + std::string(key.defaultText) + "`";
        ASSERT_EQ(row->second.size(), 5U) << name;
        EXPECT_EQ(row->second[2], Form(key.name)) << name;
        EXPECT_EQ(row->second[3], defaultText) << name;
        EXPECT_EQ(row->second[4], NeededBy(key.name)) << name;
    }
}

/// The ids of findings as the rules have them.
std::vector<std::string> FindingIds() {
    std::vector<std::string> ids;
    for (const char* const file : {"src/entry/CheckEntry.cpp", "src/entry/EntryFile.cpp",
                                   "src/entry/EntryToForm.cpp", "src/entry/SameDevice.cpp"}) {
        const std::string source = ReadBytes(InSource(file));
        const std::regex id(R"re("([a-z]+(?:-[a-z]+)+)"|(?:Severity::\w+, [\w.]+, |\bError\()"([a-z]+)")re");
        for (std::sregex_iterator at(source.begin(), source.end(), id); at != std::sregex_iterator(); ++at) {
            ids.push_back((*at)[1].matched ? (*at)[1] : (*at)[2]);
        }
    }
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    return ids;
}

TEST(EntryFiles, AreDescribedWithEveryFinding) {
    const std::string guide = ReadBytes(InSource("docs/entry-files.md"));
    const std::string table = guide.substr(guide.find("## What `check` finds"));
    const std::vector<std::string> ids = FindingIds();
    EXPECT_GT(ids.size(), 15U);
    for (const std::string& id : ids) EXPECT_TRUE(Holds(table, "`" + id + "`")) << id;
    const std::regex row("\n\\| `([a-z-]+)`(, `([a-z-]+)`)? \\|");
    for (std::sregex_iterator at(table.begin(), table.end(), row); at != std::sregex_iterator(); ++at) {
        EXPECT_TRUE(std::ranges::find(ids, (*at)[1].str()) != ids.end()) << (*at)[1];
    }
}

/// What the first cells of a document's tables hold.
std::string FirstCells(const std::string& path) {
    std::istringstream lines(ReadBytes(InSource(path)));
    std::string cells;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("| `")) cells += Cells(line).front() + " ";
    }
    return cells;
}

TEST(Settings, AreAllDescribed) {
    const std::string told = FirstCells("docs/settings.md") + FirstCells("docs/entry-files.md");
    for (const std::string& name : SettingNames(false)) EXPECT_TRUE(Holds(told, "`" + name + "`")) << name;
}

/// Names that the source asks the environment for.
TEST(Environment, EveryVariableThatIsReadIsTold) {
    const std::regex variable("\"(VENTLOCK_[A-Z]+|XDG_[A-Z_]+|HOME|LC_[A-Z]+|LANG|ODBC[A-Z]*INI)\"");
    std::string told;
    for (const Place& place : EnvironmentVariables()) told += std::string(place.name) + " ";
    int read = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(InSource("src/platform"))) {
        if (entry.path().extension() != ".cpp") continue;
        const std::string source = ReadBytes(entry.path().string());
        for (std::sregex_iterator at(source.begin(), source.end(), variable); at != std::sregex_iterator();
             ++at, ++read) {
            EXPECT_TRUE(Holds(told, (*at)[1].str())) << (*at)[1] << " in " << entry.path();
        }
    }
    EXPECT_GT(read, 5);
}

TEST(HelpBook, TellsWhereTheProgramKeepsWhat) {
    for (const std::string& language : kLanguages) {
        const std::string page = Page(language, "storage.html");
        for (const Place& place : EnvironmentVariables()) {
            const bool isOwn = place.name.starts_with("VENTLOCK_") || place.name.starts_with("XDG_");
            EXPECT_TRUE(!isOwn || Holds(page, place.name)) << language << ": " << place.name;
        }
        for (const Place& place : KeptFiles()) {
            const std::string_view name = place.name.substr(place.name.rfind('/') + 1);
            const bool isFile = name.find('.') != std::string_view::npos;
            EXPECT_TRUE(!isFile || Holds(page, name)) << language << ": " << name;
        }
    }
}

TEST(HelpBook, TellsTheLimitsOfFields) {
    for (const std::string& language : kLanguages) {
        const std::string database = Page(language, "write-database.html");
        EXPECT_TRUE(Holds(database, " " + std::to_string(limits::kName) + " ")) << language;
        EXPECT_TRUE(Holds(database, " " + std::to_string(limits::kDescription))) << language;
        std::map<std::string_view, std::size_t> width;
        for (const limits::HexField& field : limits::kHexFields) width[field.key] = field.width;
        const std::string install = Page(language, "write-ddinstall.html");
        const std::string digits = std::to_string(width["ManID"]) + " (";
        EXPECT_TRUE(Holds(install, digits)) << language << ": " << digits;
        EXPECT_TRUE(Holds(install, std::to_string(width["DevID"]) + " (")) << language;
        EXPECT_TRUE(Holds(install, std::to_string(width["DevRev"]) + " (")) << language;
    }
}

TEST(DeviceDatabase, IsDescribedWithTheLimitsOfTexts) {
    const std::string guide = ReadBytes(InSource("docs/device-database.md"));
    EXPECT_TRUE(Holds(guide, "at most " + std::to_string(limits::kName) + " characters")) << limits::kName;
    EXPECT_TRUE(Holds(guide, "descriptions " + std::to_string(limits::kDescription))) << limits::kDescription;
}

}  // namespace
}  // namespace ventlock::test
