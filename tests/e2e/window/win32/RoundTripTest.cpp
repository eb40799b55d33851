// One device, from the empty window to all three targets, with nothing but the keyboard; then the program is
// started again. The command line writes the same entry elsewhere and must leave the same bytes.

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "e2e/window/WindowEntry.h"
#include "e2e/window/win32/InstalledProgram.h"
#include "e2e/window/win32/WindowProgram.h"
#include "platform/win32/WideText.h"
#include "support/SqliteDatabase.h"

namespace ventlock::test {
namespace {

using Fields = std::vector<std::pair<std::wstring, std::wstring>>;  // label and text

constexpr const char* kPyxIni =
    "[Devices]\r\n"
    "000026.000A.02=000026/000A\r\n"
    "\r\n"
    "[000026.000A.02]\r\n"
    "DeviceHelp=000026\\000A\\h.hlp\r\n"
    "BlockHelp_001=000026\\000A\\b.hlp\r\n"
    "DeviceDLL=000026\\000A\\Dev.dll\r\n"
    "Description=Flow\r\n"
    "HART Protocol Rev=5\r\n";

/// Goes through fields in reading order from the one with the keyboard, types into each and presses Tab.
void TypeInto(const WindowProgram& program, const Fields& fields) {
    for (const auto& [label, text] : fields) {
        program.Replace(label, text);
        program.Press({VK_TAB});
    }
}

void ExpectTexts(const WindowProgram& program, const Fields& fields) {
    for (const auto& [label, text] : fields) program.ExpectText(label, text);
}

void NextPage(const WindowProgram& program, const std::wstring& firstLabel) {
    program.Press({VK_CONTROL, VK_NEXT});
    program.ExpectFocused(firstLabel);
}

class RoundTrip : public testing::Test {
 protected:
    void FillTabs(const WindowProgram& program) const {
        program.ExpectShown(L"Connected to " + Wide(database_.Dsn()) + L", current schema");
        program.Press({VK_CONTROL, VK_PRIOR});  // round to the last page
        NextPage(program, L"Datasource");
        program.ExpectText(L"Datasource", Wide(database_.Dsn()));
        program.Press({VK_TAB});  // over the arrow of its list
        program.Press({VK_TAB});
        program.ExpectButtonFocused(L"Switch");
        program.Press({VK_TAB});
        TypeInto(program, {{L"DDInstall File", Wide(machine_.Path("Ddinstal.ini"))}});
        program.Press({VK_TAB});  // over the arrow of its list
        program.Press({VK_TAB});
        TypeInto(program, {{L"PYX.ini Path", Wide(machine_.Path("Pyx.ini"))}});

        NextPage(program, L"ID (in hex)");
        TypeInto(program, {{L"ID (in hex)", L"26"}, {L"Name", L"Acme"}, {L"Description", L"Acme Inc"}});
        program.ExpectFocused(L"Protocol");
        program.Press({VK_DOWN});
        program.ExpectText(L"Protocol", L"Fieldbus");
        program.Press({VK_DOWN});
        program.ExpectText(L"Protocol", L"Conventional");

        NextPage(program, L"ID (in hex)");
        TypeInto(program, {{L"ID (in hex)", L"0A"},
                           {L"Name", L"Flow"},
                           {L"Description", L"Flow meter"},
                           {L"Dev .DLL", L"Dev"},
                           {L"Dev .MRG", L"t"},
                           {L"Device Help", L"h"},
                           {L"Block Help", L"b"}});

        NextPage(program, L"Dev Rev");
        TypeInto(program, {{L"Dev Rev", L"02"},
                           {L"DD Rev", L"03"},
                           {L"HART Rev", L"05"},
                           {L"Name", L"R1"},
                           {L"Description", L"First"}});
        program.ExpectFocused(L"TAV Versions Supported");
        program.ExpectSelected(L"TAV Versions Supported", {L"5.0"});
        program.Press({VK_DOWN});
        program.Press({VK_SPACE});
        program.ExpectSelected(L"TAV Versions Supported", {L"5.0", L"6.0"});
        program.Press({VK_TAB});
        TypeInto(program, {{L"Major Category", L"Pressure"}, {L"Minor Category", L"Gauge"}});
    }

    /// Picks a command of the menu "File" by its access key; it tells `message` and its button can be pressed
    /// no more.
    static void WriteBy(WORD key, const WindowProgram& program, const std::wstring& button,
                        const std::wstring& message) {
        program.Press({VK_MENU, 'F'});
        program.ExpectMenu();
        program.Press({key});
        EXPECT_EQ(program.DismissMessageBox(), message);
        program.ExpectButtonEnabled(button, false);
    }

    static void WriteAll(const WindowProgram& program) {
        WriteBy('D', program, L"Write DB", L"The database has been updated.");
        WriteBy('I', program, L"Write .INI", L"The entry has been inserted.");
        WriteBy('L', program, L"Write DDInstall", L"The entry has been inserted.");
    }

    static void ExpectEntryIsShown(const WindowProgram& program) {
        program.Press({VK_CONTROL, VK_NEXT});
        ExpectTexts(program, {{L"ID (in hex)", L"26"},
                              {L"Name", L"Acme"},
                              {L"Description", L"Acme Inc"},
                              {L"Protocol", L"Conventional"}});
        program.Press({VK_CONTROL, VK_NEXT});
        ExpectTexts(program, {{L"ID (in hex)", L"0A"},
                              {L"Name", L"Flow"},
                              {L"Description", L"Flow meter"},
                              {L"Dev .DLL", L"Dev.dll"},
                              {L"Dev .MRG", L"t.mrg"},
                              {L"Device Help", L"h.hlp"},
                              {L"Block Help", L"b.hlp"}});
        program.Press({VK_CONTROL, VK_NEXT});
        ExpectTexts(program, {{L"Dev Rev", L"02"},
                              {L"DD Rev", L"03"},
                              {L"HART Rev", L"05"},
                              {L"Name", L"R1"},
                              {L"Description", L"First"},
                              {L"Major Category", L"Pressure"},
                              {L"Minor Category", L"Gauge"}});
        program.ExpectSelected(L"TAV Versions Supported", {L"5.0", L"6.0"});
    }

    static void Close(const WindowProgram& program) {
        program.Press({VK_MENU, VK_F4});
        EXPECT_EQ(program.WaitForEnd().exitCode, 0);
    }

    static std::wstring Wide(const std::string& text) { return ToWideText(text); }

    SqliteDatabase database_;
    InstalledProgram machine_;
};

std::string AllRows(SqliteDatabase& database) {
    std::istringstream tables(
        database.Rows("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name"));
    std::string rows;
    for (std::string table; std::getline(tables, table);)
        rows += table + ":\n" + database.Rows("SELECT * FROM " + table);
    return rows;
}

TEST_F(RoundTrip, FillsWritesClosesAndComesBackWithTheSameEntry) {
    machine_.UseDataSource(database_.Dsn());
    {
        const WindowProgram program(machine_.WindowCall());
        FillTabs(program);
        WriteAll(program);
        program.Press({VK_MENU, 'F'});
        program.ExpectMenu();
        program.Press({'X'});
        EXPECT_EQ(program.WaitForEnd().exitCode, 0);
    }
    EXPECT_EQ(ReadBytes(machine_.Path("Pyx.ini")),
              "[TAV Server 1]\r\nDataSourceName=" + database_.Dsn() + "\r\n\r\n" + kPyxIni);

    SqliteDatabase other;
    WriteBytes(machine_.Path("flow.ini"), kWindowEntry);
    WriteBytes(machine_.Path("other.ini"), "[TAV Server 1]\r\nDataSourceName=" + database_.Dsn() + "\r\n");
    const ProgramResult written =
        machine_.Run({"register", "flow.ini", "--all", "--dsn", other.Dsn(), "--ini-path", "other.ini",
                      "--ddinstall-path", "otherdd.ini"});
    EXPECT_EQ(written.exitCode, 0) << written.out << written.err;
    EXPECT_NE(AllRows(database_).find("Flow meter"), std::string::npos);
    EXPECT_EQ(AllRows(database_), AllRows(other));
    EXPECT_EQ(ReadBytes(machine_.Path("Pyx.ini")), ReadBytes(machine_.Path("other.ini")));
    EXPECT_EQ(ReadBytes(machine_.Path("Ddinstal.ini")), ReadBytes(machine_.Path("otherdd.ini")));

    const WindowProgram again(machine_.WindowCall());
    again.ExpectText(L"DDInstall File", Wide(machine_.Path("Ddinstal.ini")));
    again.ExpectText(L"PYX.ini Path", Wide(machine_.Path("Pyx.ini")));
    ExpectEntryIsShown(again);
    Close(again);
    EXPECT_EQ(machine_.Log(), "");
}

TEST_F(RoundTrip, GoesOnWithoutADatabaseAndSaysSo) {
    machine_.UseDataSource("nobody_knows_this");
    const WindowProgram program(machine_.WindowCall());
    const std::wstring text = program.DismissMessageBox();
    EXPECT_TRUE(text.starts_with(L"CONNconn-02: ODBC--call failed. [IM002] ")) << FromWideText(text);
    program.ExpectShown(L"Not connected (data source nobody_knows_this)");
    program.ExpectButtonEnabled(L"Write DB", false);
    Close(program);
}

}  // namespace
}  // namespace ventlock::test
