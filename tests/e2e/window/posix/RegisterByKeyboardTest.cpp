// One device, from the empty window to all three targets, with nothing but the keyboard; then the program is
// started again. The command line writes the same entry elsewhere and must leave the same bytes.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "e2e/window/WindowEntry.h"
#include "e2e/window/posix/WindowWorld.h"

namespace ventlock::test {
namespace {

using Fields = std::vector<std::pair<std::string, std::string>>;  // label and text

/// Goes through text fields in reading order from the one with the focus, types into each and presses Tab.
void TypeInto(const Program& program, const Fields& fields) {
    for (const auto& [label, text] : fields) {
        const Node field = program.Field(label);
        field.ExpectFocused();
        field.Replace(text);
        field.Press("Tab");
    }
}

/// The same for editable lists, whose arrow is a stop of its own.
void TypeIntoLists(const Program& program, const Fields& fields) {
    for (const auto& [label, text] : fields) {
        TypeInto(program, {{label, text}});
        program.Window("Ventlock").Press("Tab");
    }
}

void ExpectTexts(const Program& program, const Fields& fields) {
    for (const auto& [label, text] : fields) program.Field(label).ExpectText(text);
}

void NextPage(const Program& program, const std::string& firstLabel) {
    program.Window("Ventlock").Press("ctrl+Next");
    program.Field(firstLabel).ExpectFocused();
}

class RegisterByKeyboard : public testing::Test {
 protected:
    RegisterByKeyboard() { world_.MakeDatabase(); }

    void FillTabs(const Program& program) const {
        program.Window("Ventlock").Press("Tab");  // from the tabs into the first one
        const Node dataSource = program.Field("Datasource");
        dataSource.ExpectFocused();
        dataSource.ExpectText("PYX");
        dataSource.Press("Tab");
        program.Window("Ventlock").Press("Tab");  // over the arrow of its list
        program.Button("Switch").ExpectFocused();
        program.Button("Switch").Press("Tab");
        program.Field("DDInstall File").ExpectFocused();
        program.Field("DDInstall File").Replace(world_.Path("Ddinstal.ini"));
        program.Field("DDInstall File").Press("Tab");
        program.Window("Ventlock").Press("Tab");  // over the arrow of its list
        program.Window("Ventlock").Press("Tab");
        program.Field("PYX.ini Path").ExpectFocused();
        program.Field("PYX.ini Path").Replace(world_.Path("Pyx.ini"));

        NextPage(program, "ID (in hex)");
        TypeInto(program, {{"ID (in hex)", "26"}, {"Name", "Acme"}, {"Description", "Acme Inc"}});
        program.Window("Ventlock").Press("Down");
        program.Field("Protocol").ExpectText("Fieldbus");
        program.Window("Ventlock").Press("Down");
        program.Field("Protocol").ExpectText("Conventional");

        NextPage(program, "ID (in hex)");
        TypeInto(program, {{"ID (in hex)", "0A"},
                           {"Name", "Flow"},
                           {"Description", "Flow meter"},
                           {"Dev .DLL", "Dev"},
                           {"Dev .MRG", "t"},
                           {"Device Help", "h"},
                           {"Block Help", "b"}});

        NextPage(program, "Dev Rev");
        TypeIntoLists(program, {{"Dev Rev", "02"}, {"DD Rev", "03"}, {"HART Rev", "05"}});
        TypeInto(program, {{"Name", "R1"}, {"Description", "First"}});
        program.Field("TAV Versions Supported").ExpectFocused();
        program.Field("TAV Versions Supported").Select("6.0");
        program.Field("TAV Versions Supported").ExpectSelectedItems({"5.0", "6.0"});
        program.Field("TAV Versions Supported").Press("Tab");
        TypeIntoLists(program, {{"Major Category", "Pressure"}, {"Minor Category", "Gauge"}});
    }

    /// By access keys, space and Return.
    static void WriteAll(const Program& program) {
        program.Window("Ventlock").Press("alt+f");
        program.Menu("File").Item("Write to Database").ExpectShown();
        program.Window("Ventlock").Press("d");
        EXPECT_EQ(program.DismissMessageBox(), "The database has been updated.");
        program.Button("Write DB").ExpectEnabled(false);

        for (const char* const name : {"Write .INI", "Write DDInstall"}) {
            program.Button(name).Press("space");
            EXPECT_EQ(program.DismissMessageBox(), "The entry has been inserted.");
            program.Button(name).ExpectEnabled(false);
        }
    }

    static void ExpectEntryIsShown(const Program& program) {
        program.ShowPage("Manufacturer");
        ExpectTexts(program, {{"ID (in hex)", "26"},
                              {"Name", "Acme"},
                              {"Description", "Acme Inc"},
                              {"Protocol", "Conventional"}});
        program.ShowPage("Device");
        ExpectTexts(program, {{"ID (in hex)", "0A"},
                              {"Name", "Flow"},
                              {"Description", "Flow meter"},
                              {"Dev .DLL", "Dev.dll"},
                              {"Dev .MRG", "t.mrg"},
                              {"Device Help", "h.hlp"},
                              {"Block Help", "b.hlp"}});
        program.ShowPage("Revision");
        ExpectTexts(program, {{"Dev Rev", "02"},
                              {"DD Rev", "03"},
                              {"HART Rev", "05"},
                              {"Name", "R1"},
                              {"Description", "First"},
                              {"Major Category", "Pressure"},
                              {"Minor Category", "Gauge"}});
        program.Field("TAV Versions Supported").ExpectSelectedItems({"5.0", "6.0"});
    }

    WindowWorld world_;
};

TEST_F(RegisterByKeyboard, FillsWritesClosesAndComesBackWithTheSameEntry) {
    {
        const Program program(world_.WindowCall(), "Ventlock");
        FillTabs(program);
        WriteAll(program);
        program.Window("Ventlock").Press("alt+f");
        program.Menu("File").Item("Exit").ExpectShown();
        program.Window("Ventlock").Press("x");
        EXPECT_EQ(program.WaitForEnd().exitCode, 0);
    }

    World other;
    other.MakeDatabase();
    other.Write("flow.ini", kWindowEntry);
    const ProgramResult written = other.Run(
        {"register", "flow.ini", "--all", "--ini-path", "Pyx.ini", "--ddinstall-path", "Ddinstal.ini"});
    EXPECT_EQ(written.exitCode, 0) << written.err;
    EXPECT_EQ(world_.AllRows(), other.AllRows());
    EXPECT_EQ(world_.Read("Pyx.ini"), other.Read("Pyx.ini"));
    EXPECT_EQ(world_.Read("Ddinstal.ini"), other.Read("Ddinstal.ini"));

    const Program again(world_.WindowCall(), "Ventlock");
    again.Field("DDInstall File").ExpectText(world_.Path("Ddinstal.ini"));
    again.Field("PYX.ini Path").ExpectText(world_.Path("Pyx.ini"));
    ExpectEntryIsShown(again);
    again.Window("Ventlock").Press("alt+F4");
    const ProgramResult end = again.WaitForEnd();
    EXPECT_EQ(end.exitCode, 0);
    EXPECT_EQ(end.out, "");
    EXPECT_EQ(world_.Log(), "");
}

}  // namespace
}  // namespace ventlock::test
