// What a change of a field sets off.

#include <gtest/gtest.h>

#include <string>

#include "gui/GuiWorld.h"
#include "gui/Input.h"
#include "gui/Tabs.h"

namespace ventlock::test {
namespace {

class Events : public testing::Test {
 protected:
    void SetUp() override {
        world_.PutEntry();
        world_.Start();
    }

    MainControls& Controls() { return world_.Window().Controls(); }

    /// Makes an editable list ready to be typed into, its text selected.
    void Enter(EditableList& list) {
        ShowTab(world_.Window(), kRevisionTab);
        ASSERT_TRUE(ReadyToType(list.Combo()));
        list.Combo().SelectAll();
    }

    GuiWorld world_;
};

TEST_F(Events, OfTypingChooseNoItemEvenIfOneHasTheText) {
    EditableList& list = *Controls().cboDevRev;
    list.Select(2);
    Enter(list);
    TypeText("0a");
    WaitUntil("the typed text", [&] { return list.Text() == "0A"; });
    EXPECT_EQ(list.Index(), -1);
    EXPECT_EQ(list.Choice().text, "0A");
}

TEST_F(Events, OfTypingACategoryChooseNoItem) {
    EditableList& list = *Controls().cboDeviceCategory;
    ASSERT_EQ(list.Index(), 1);
    Enter(list);
    TypeText("Flow");
    WaitUntil("the typed text", [&] { return list.Text() == "Flow"; });
    EXPECT_EQ(list.Index(), -1);
}

TEST_F(Events, OfAPickChooseTheItem) {
    EditableList& list = *Controls().cboDeviceCategory;
    Enter(list);
    PressKey(WXK_DOWN);
    WaitUntil("the next item", [&] { return list.Index() == 2; });
    EXPECT_EQ(list.Text(), "Temperature");
    EXPECT_EQ(list.Choice().itemData, 2);
}

TEST_F(Events, OfAPickAfterTypingChooseTheItem) {
    EditableList& list = *Controls().cboDeviceCategory;
    Enter(list);
    TypeText("x");
    WaitUntil("the typed text", [&] { return list.Text() == "x"; });
    PressKey(WXK_DOWN);
    WaitUntil("an item", [&] { return list.Index() >= 0; });
    EXPECT_EQ(list.Text(), list.Text(list.Index()));
}

TEST_F(Events, OfAPickedRevisionEvaluateTheCommands) {
    EditableList& list = *Controls().cboDevRev;
    list.SetText("");
    ASSERT_FALSE(Controls().cmdWriteINI->IsEnabled());
    Enter(list);
    PressKey(WXK_DOWN);
    WaitUntil("an item", [&] { return list.Index() >= 0; });
    EXPECT_TRUE(Controls().cmdWriteINI->IsEnabled());
}

TEST_F(Events, OfATypedRevisionEvaluateTheCommands) {
    Enter(*Controls().cboHARTRev);
    PressKey(WXK_BACK);
    WaitUntil("the field to be empty", [&] { return Controls().cboHARTRev->Text().empty(); });
    EXPECT_FALSE(Controls().cmdWriteINI->IsEnabled());
    TypeText("6");
    WaitUntil("the field to be filled", [&] { return Controls().cboHARTRev->Text() == "6"; });
    EXPECT_TRUE(Controls().cmdWriteINI->IsEnabled());
}

TEST_F(Events, OfAPickedProtocolEvaluateTheFields) {
    ShowTab(world_.Window(), kManufacturerTab);
    ASSERT_TRUE(ReadyToType(Controls().cboDeviceProtocol->Box()));
    PressKey(WXK_UP);
    WaitUntil("the protocol before", [&] { return Controls().cboDeviceProtocol->Index() == 1; });
    EXPECT_EQ(Controls().txtMain[kRevisionNameBox]->Text(), "");
    EXPECT_FALSE(Controls().txtMain[kRevisionNameBox]->Box().IsEnabled());
    EXPECT_EQ(Controls().cboDeviceCategory->Index(), 0);
}

TEST_F(Events, OfTypingEvaluateTheCommands) {
    ShowTab(world_.Window(), kManufacturerTab);
    TextField& field = *Controls().txtMain[kManufacturerIdBox];
    ASSERT_TRUE(ReadyToType(field.Box()));
    field.Box().SelectAll();
    PressKey(WXK_DELETE);
    WaitUntil("the field to be empty", [&] { return field.Text().empty(); });
    EXPECT_FALSE(Controls().cmdWriteDB->IsEnabled());
    EXPECT_FALSE(Controls().cmdWriteINI->IsEnabled());
    EXPECT_FALSE(Controls().cmdWriteDDInstall->IsEnabled());
}

TEST_F(Events, OfDeselectingInCodeRunNothing) {
    Controls().cboDeviceProtocol->Select(-1);
    EXPECT_EQ(Controls().cboDeviceCategory->Index(), 1);
    EXPECT_TRUE(Controls().cboDeviceCategory->Box().IsEnabled());
}

TEST_F(Events, OfDeselectingACategoryInCodeEmptyItsTextAndRunNothing) {
    Controls().cboDeviceProtocol->Select(-1);
    Controls().cboDeviceCategory->Select(-1);
    EXPECT_EQ(Controls().cboDeviceCategory->Text(), "");
    EXPECT_EQ(Controls().cboDeviceCategory->Combo().GetValue(), "");
    EXPECT_EQ(Controls().cboDeviceCategory->Index(), -1);
    EXPECT_TRUE(Controls().cboDeviceCategory->Box().IsEnabled());
}

}  // namespace
}  // namespace ventlock::test
