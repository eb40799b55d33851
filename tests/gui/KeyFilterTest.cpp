// What can be typed, with real keys.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "gui/GuiWorld.h"
#include "gui/Input.h"
#include "gui/Tabs.h"
#include "support/RowName.h"
#include "ui/WxText.h"

namespace ventlock::test {
namespace {

/// A field of the window that text can be typed into.
struct TypedField {
    std::string name;
    std::size_t tab;
    wxWindow& (*of)(MainControls& controls);
};

void PrintTo(const TypedField& field, std::ostream* out) {
    *out << field.name;
}

template <std::size_t box>
wxWindow& Box(MainControls& controls) {
    return controls.txtMain[box]->Box();
}

template <std::unique_ptr<EditableList> MainControls::*list>
wxWindow& List(MainControls& controls) {
    return (controls.*list)->Combo();
}

class TypingInto : public testing::TestWithParam<TypedField> {
 protected:
    void SetUp() override {
        world_.PutEntry();
        world_.Start();
        ShowTab(world_.Window(), GetParam().tab);
        ASSERT_TRUE(ReadyToType(Field()));
        Entry().ChangeValue("");
    }

    wxWindow& Field() { return GetParam().of(world_.Window().Controls()); }
    wxTextEntry& Entry() { return dynamic_cast<wxTextEntry&>(Field()); }
    std::string Text() { return FromWx(Entry().GetValue()); }

    void ExpectText(const std::string& text) {
        WaitUntil(("the text " + text).c_str(), [&] { return Text() == text; });
        EXPECT_EQ(Text(), text);
    }

    GuiWorld world_;
};

class TypingHexadecimal : public TypingInto {};

TEST_P(TypingHexadecimal, CapitalisesAndSwallowsAllButDigits) {
    TypeText("1aF g-x");
    PressKey(WXK_BACK);
    ExpectText("1A");
}

TEST_P(TypingHexadecimal, TakesEveryDigit) {
    TypeText("0123456789abcdefABCDEF");
    ExpectText("0123456789ABCDEFABCDEF");
}

TEST_P(TypingHexadecimal, SwallowsEscAndBlank) {
    TypeText("1");
    PressKey(WXK_ESCAPE);
    PressKey(WXK_SPACE);
    TypeText("2");
    ExpectText("12");
    EXPECT_TRUE(world_.Window().IsShown());
}

TEST_P(TypingHexadecimal, LetsTheCursorKeysThrough) {
    TypeText("23");
    PressKey(WXK_HOME);
    TypeText("1");
    PressKey(WXK_END);
    TypeText("5");
    PressKey(WXK_LEFT);
    TypeText("4");
    PressKey(WXK_RIGHT);
    TypeText("6");
    ExpectText("123456");
}

TEST_P(TypingHexadecimal, LetsDeleteThrough) {
    TypeText("12");
    PressKey(WXK_HOME);
    PressKey(WXK_DELETE);
    ExpectText("2");
}

TEST_P(TypingHexadecimal, PutsACapitalWhereTheCursorIs) {
    TypeText("12");
    PressKey(WXK_LEFT);
    TypeText("a");
    ExpectText("1A2");
}

TEST_P(TypingHexadecimal, ReplacesTheSelectionByACapital) {
    TypeText("12");
    PressKey('A', wxMOD_CONTROL);
    TypeText("b");
    ExpectText("B");
}

TEST_P(TypingHexadecimal, LeavesPastedTextAsItIs) {
    world_.clipboard.text = "0x1f xyz";
    PressKey('V', wxMOD_CONTROL);
    ExpectText("0x1f xyz");
}

TEST_P(TypingHexadecimal, LetsTabMoveTheFocus) {
    PressKey(WXK_TAB);
    WaitUntil("the focus to move on", [&] { return wxWindow::FindFocus() != &Field(); });
    EXPECT_EQ(Text(), "");
}

INSTANTIATE_TEST_SUITE_P(
    Field, TypingHexadecimal,
    testing::Values(TypedField{"ManufacturerId", kManufacturerTab, Box<kManufacturerIdBox>},
                    TypedField{"DeviceId", kDeviceTab, Box<kDeviceIdBox>},
                    TypedField{"DevRev", kRevisionTab, List<&MainControls::cboDevRev>},
                    TypedField{"DDRev", kRevisionTab, List<&MainControls::cboDDRev>},
                    TypedField{"HARTRev", kRevisionTab, List<&MainControls::cboHARTRev>}),
    RowName());

class TypingAnything : public TypingInto {};

TEST_P(TypingAnything, IsTakenAsItIs) {
    TypeText("1aF g-x");
    ExpectText("1aF g-x");
}

INSTANTIATE_TEST_SUITE_P(
    Field, TypingAnything,
    testing::Values(TypedField{"DataSource", kGeneralTab, Box<kDataSourceBox>},
                    TypedField{"DDInstallPath", kGeneralTab, Box<kDDInstallPathBox>},
                    TypedField{"IniPath", kGeneralTab, Box<kIniPathBox>},
                    TypedField{"ManufacturerName", kManufacturerTab, Box<kManufacturerNameBox>},
                    TypedField{"ManufacturerDescription", kManufacturerTab, Box<kManufacturerDescriptionBox>},
                    TypedField{"DeviceName", kDeviceTab, Box<kDeviceNameBox>},
                    TypedField{"DeviceDescription", kDeviceTab, Box<kDeviceDescriptionBox>},
                    TypedField{"Dll", kDeviceTab, Box<kDllBox>},
                    TypedField{"Template", kDeviceTab, Box<kTemplateBox>},
                    TypedField{"DeviceHelp", kDeviceTab, Box<kDeviceHelpBox>},
                    TypedField{"BlockHelp", kDeviceTab, Box<kBlockHelpBox>},
                    TypedField{"RevisionName", kRevisionTab, Box<kRevisionNameBox>},
                    TypedField{"RevisionDescription", kRevisionTab, Box<kRevisionDescriptionBox>},
                    TypedField{"MajorCategory", kRevisionTab, List<&MainControls::cboDeviceCategory>},
                    TypedField{"MinorCategory", kRevisionTab, List<&MainControls::cboMinorCategory>}),
    RowName());

}  // namespace
}  // namespace ventlock::test
