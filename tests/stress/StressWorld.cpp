#include "stress/StressWorld.h"

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/filesys.h>
#include <wx/fs_arc.h>

#include <filesystem>
#include <future>

#include "base/Text.h"
#include "core/clsSettings.h"
#include "db/SchemaVersion.h"
#include "entry/ResourceNames.h"
#include "gui/Input.h"
#include "stress/Desktop.h"
#include "ui/modMain.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

void ReadHelpBooks() {
    static const bool isAdded = (wxFileSystem::AddHandler(new wxArchiveFSHandler), true);
    ASSERT_TRUE(isAdded);
}

std::string SelectedVersions(const EntryForm& form) {
    std::string joined;
    for (const OfferedVersion& version : form.lstTAVVersionSupport)
        if (version.isSelected) joined += (joined.empty() ? "" : ", ") + version.text;
    return joined;
}

}  // namespace

StressWorld::StressWorld(Dice& dice) {
    ReadHelpBooks();
    if (!dice.OneIn(4)) world_.PutEntry();
    if (dice.OneIn(3))
        WriteBytes(world_.PyxPath(), "[TAV Server 1]\r\nDataSourceName=" + DataSource(dice) + "\r\n");
    fs::create_directory(world_.Folder() + "folder.ini");
    world_.messages.whileShown = [this] { ShowMessage(); };
    world_.fileDialog.whileShown = Pump;
    world_.help.whileShown = [this] {
        if (!book_) book_ = std::make_unique<WxHelp>();
        EXPECT_TRUE(book_->Show(VENTLOCK_HELP_BOOK, kHelpContents));
    };
    Start();
}

StressWorld::~StressWorld() {
    Leave();
}

void StressWorld::Start() {
    frmMain& window = world_.Start();
    wxTheApp->SetTopWindow(&window);
    model_ = std::make_unique<StateModel>(window);
}

void StressWorld::Leave() {
    CloseHelp();
    wxTheApp->SetTopWindow(nullptr);
    world_.Forget();
    model_.reset();
    gbTerminate = false;
}

void StressWorld::CloseHelp() {
    if (wxHtmlHelpFrame* help = HelpWindow()) help->Close();
    book_.reset();
    WaitUntil("the help window to be gone", [] { return HelpWindow() == nullptr; });
}

void StressWorld::ShowMessage() {
    const FakeMessageBox::Message message = world_.messages.messages.back();
    if (showsBoxes) {
        boxes_.Show(message.text, message.title, message.help);
    } else {
        Pump();
    }
    if (model_) model_->TakeMessage(message.text);
}

std::string StressWorld::DataSource(Dice& dice) {
    const std::string names[] = {world_.Database().Dsn(),
                                 world_.Database().Dsn(),
                                 other_.Dsn(),
                                 old_.Dsn(),
                                 old_.Dsn(),
                                 empty_.Dsn(),
                                 "nobody_knows_this",
                                 "",
                                 " ",
                                 "  " + other_.Dsn() + " "};
    return dice.OneOf(names);
}

std::string StressWorld::Target(Dice& dice, const std::string& name) {
    const std::string folder = world_.Folder();
    switch (dice.Below(7)) {
        case 0: {
            const std::string path = folder + "readonly-" + name;
            if (!fs::exists(path)) WriteBytes(path, "[TAV Server 1]\r\n");
            fs::permissions(path, fs::perms(0444));
            return path;
        }
        case 1:
            return folder + "missing/" + name;
        case 2:
            return folder + "folder.ini";
        case 3:
            LockForAWhile(folder + name);
            return folder + name;
        case 4:
            return name;  // beside the program
        default:
            return folder + name;
    }
}

void StressWorld::LockForAWhile(const std::string& path) {
    std::promise<void> held;
    std::future<void> isHeld = held.get_future();
    holders_.clear();
    holders_.emplace_back([this, path, held = std::move(held)]() mutable {
        const std::unique_ptr<IFileLock> lock = world_.host.Files().Lock(path);
        held.set_value();
        std::this_thread::sleep_for(kLockedFor);
    });
    isHeld.wait();
}

void StressWorld::ExpectConnection() {
    const std::string name = Window().Objects().Get<clsSettings>(kSettingsKey).DSN;
    const bool isOld = name == old_.Dsn();
    const bool isCurrent = name == world_.Database().Dsn() || name == other_.Dsn();
    EXPECT_EQ(Window().IsConnected(), isOld || isCurrent) << "to \"" << name << '"';
    if (isOld) {
        EXPECT_EQ(Window().SchemaVersion(), kCurrentSchema - 1) << name;
    }
    if (isCurrent) {
        EXPECT_EQ(Window().SchemaVersion(), kCurrentSchema) << name;
    }
}

void StressWorld::ExpectSavedAndStartAgain() {
    EXPECT_FALSE(Window().IsBusy());
    EXPECT_FALSE(IsOnScreen(Window()));
    EXPECT_TRUE(gbTerminate);
    EXPECT_FALSE(answers_.IsOpen()) << "a box";
    ExpectStored();
    Leave();
    Start();
}

void StressWorld::ExpectStored() {
    const EntryForm form = Controls().Read();
    const auto expect = [&](const char* name, std::string_view text) {
        EXPECT_EQ(world_.Stored(name), text) << name;
    };
    const auto expectTrimmed = [&](const char* name, const std::string& text) { expect(name, Trim(text)); };
    expect("DDInstallPath", form.txtMain[kDDInstallPathBox]);
    expect("INIPath", form.txtMain[kIniPathBox]);
    expectTrimmed("ManID", form.txtMain[kManufacturerIdBox]);
    expectTrimmed("ManName", form.txtMain[kManufacturerNameBox]);
    expectTrimmed("DevID", form.txtMain[kDeviceIdBox]);
    expectTrimmed("DevName", form.txtMain[kDeviceNameBox]);
    expectTrimmed("DevRev", form.cboDevRev);
    expectTrimmed("DDRev", form.cboDDRev);
    expectTrimmed("ProtRev", form.cboHARTRev);
    expect("DLLName", DllName(form.txtMain[kDllBox]));
    expect("TemplateName", TemplateName(form.txtMain[kTemplateBox]));
    expect("DevHelp", HelpFileName(form.txtMain[kDeviceHelpBox]));
    expect("BlkHelp", HelpFileName(form.txtMain[kBlockHelpBox]));
    expect("TAVVersions", SelectedVersions(form));
    if (Window().SchemaVersion() < kCurrentSchema) return;
    expectTrimmed("ManDesc", form.txtMain[kManufacturerDescriptionBox]);
    expectTrimmed("DevDesc", form.txtMain[kDeviceDescriptionBox]);
    expectTrimmed("DevRevName", form.txtMain[kRevisionNameBox]);
    expectTrimmed("DevRevDesc", form.txtMain[kRevisionDescriptionBox]);
    if (form.cboDeviceProtocol.index >= 0) expect("ProtID", std::to_string(form.cboDeviceProtocol.itemData));
}

}  // namespace ventlock::test
