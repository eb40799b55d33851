#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "gui/Commands.h"
#include "gui/GuiWorld.h"
#include "gui/Input.h"
#include "gui/WhileModal.h"
#include "ui/frmAbout.h"

namespace ventlock::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

TEST(About, TellsTitleAndVersion) {
    FakeHost host;
    ScriptedMessageBox messages;
    const frmAbout about(nullptr, host, messages);
    EXPECT_EQ(about.GetTitle(), "About Ventlock");
    EXPECT_EQ(about.lblTitle->GetLabel(), "Ventlock");
    EXPECT_EQ(about.lblVersion->GetLabel(), "Version 2.1.5");
    EXPECT_EQ(about.cmdOK->GetLabel(), "OK");
    EXPECT_EQ(about.cmdSysInfo->GetLabel(), "&System Info...");
}

TEST(About, TakesTitleAndVersionFromTheProgram) {
    FakeHost host;
    host.appInfo.title = "Other & more";
    host.appInfo.revision = 0;
    ScriptedMessageBox messages;
    const frmAbout about(nullptr, host, messages);
    EXPECT_EQ(about.GetTitle(), "About Other & more");
    EXPECT_EQ(about.lblTitle->GetLabelText(), "Other & more");
    EXPECT_EQ(about.lblVersion->GetLabel(), "Version 2.1.0");
}

TEST(About, WritesNumbersWithoutLeadingZeros) {
    FakeHost host;
    host.appInfo.major = 0;
    host.appInfo.minor = 10;
    host.appInfo.revision = 1234;
    ScriptedMessageBox messages;
    const frmAbout about(nullptr, host, messages);
    EXPECT_EQ(about.lblVersion->GetLabel(), "Version 0.10.1234");
}

TEST(About, StandsInTheMiddleOfItsParent) {
    GuiWorld world;
    world.Put("WindowLeft", "1500");
    world.Put("WindowTop", "2250");
    frmMain& window = world.Start();
    WaitUntil("the window's place", [&] { return window.GetPosition() == wxPoint(100, 150); });
    const frmAbout about(&window, world.host, world.messages);
    const wxRect parent = window.GetScreenRect();
    const wxRect box = about.GetScreenRect();
    EXPECT_EQ(box.x, parent.x + parent.width / 2 - box.width / 2);
    EXPECT_EQ(box.y, parent.y + parent.height / 2 - box.height / 2);
}

class ShownAbout : public testing::Test {
 protected:
    void SetUp() override { world_.Start(); }

    /// Opens the box by its command and does something once it is there; the box must have closed then.
    void Open(const std::function<void(frmAbout&)>& act) {
        int met = 0;
        WhileModal modal(world_.Window(), [&](wxDialog& dialog) {
            ++met;
            act(dynamic_cast<frmAbout&>(dialog));
        });
        Choose(world_.Window(), *world_.Window().Menu().mnuHelpAbout);
        EXPECT_EQ(met, 1);
        EXPECT_EQ(modal.Opened(), 1);
    }

    GuiWorld world_;
};

TEST_F(ShownAbout, ClosesOnEnter) {
    Open([](frmAbout&) { PressKey(WXK_RETURN); });
}

TEST_F(ShownAbout, ClosesOnEscape) {
    Open([](frmAbout&) { PressKey(WXK_ESCAPE); });
}

TEST_F(ShownAbout, ClosesOnAClickOnOk) {
    Open([](frmAbout& about) { Click(*about.cmdOK); });
}

TEST_F(ShownAbout, IsModal) {
    Open([this](frmAbout& about) {
        EXPECT_TRUE(about.IsModal());
        EXPECT_TRUE(world_.Window().IsBusy()) << "no other command runs";
        Click(*world_.Window().Controls().cmdClose);
        Click(*about.cmdOK);
    });
    EXPECT_FALSE(world_.Window().IsUnloading()) << "a click on the window behind it does nothing";
    EXPECT_FALSE(world_.Window().IsBusy());
}

TEST_F(ShownAbout, CanBeOpenedAgain) {
    Open([](frmAbout&) { PressKey(WXK_ESCAPE); });
    Open([](frmAbout&) { PressKey(WXK_ESCAPE); });
}

class SystemInfo : public testing::Test {
 protected:
    void SetUp() override { world_.Start(); }

    GuiWorld world_;
};

TEST_F(SystemInfo, WithoutAViewerIsToldInABox) {
    frmAbout about(&world_.Window(), world_.host, world_.messages);
    Press(*about.cmdSysInfo);
    ASSERT_THAT(world_.messages.messages, SizeIs(1));
    EXPECT_EQ(world_.messages.messages[0].text, "System Information Is Unavailable At This Time");
    EXPECT_EQ(world_.messages.messages[0].title, "Ventlock");
    EXPECT_FALSE(world_.messages.messages[0].help) << "a box with OK only";
    EXPECT_THAT(world_.LogEntries(), IsEmpty());
}

TEST_F(SystemInfo, StartsTheViewer) {
    world_.host.registry.PutText(RegistryRoot::LocalMachine, "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO",
                                 "PATH", "/bin/viewer");
    frmAbout about(&world_.Window(), world_.host, world_.messages);
    Press(*about.cmdSysInfo);
    EXPECT_THAT(world_.host.processes.started, ElementsAre("/bin/viewer"));
    EXPECT_THAT(world_.messages.Texts(), IsEmpty());
    EXPECT_THAT(world_.LogEntries(), IsEmpty());
}

TEST_F(SystemInfo, ThatDoesNotStartIsToldInABox) {
    world_.host.registry.PutText(RegistryRoot::LocalMachine, "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO",
                                 "PATH", "/bin/viewer");
    world_.host.processes.refuses = true;
    frmAbout about(&world_.Window(), world_.host, world_.messages);
    Press(*about.cmdSysInfo);
    EXPECT_THAT(world_.messages.Texts(), ElementsAre("System Information Is Unavailable At This Time"));
}

}  // namespace
}  // namespace ventlock::test
