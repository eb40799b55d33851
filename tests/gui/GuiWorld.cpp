#include "gui/GuiWorld.h"

#include <gtest/gtest.h>
#include <wx/app.h>

#include <filesystem>

#include "core/SettingsTable.h"
#include "core/clsSettings.h"
#include "core/modLocalization.h"
#include "gui/Input.h"
#include "platform/YieldingPause.h"
#include "platform/odbc/OdbcEngine.h"
#include "ui/modMain.h"

namespace ventlock::test {
namespace fs = std::filesystem;

GuiWorld::GuiWorld(DeviceSchema schema)
    : database_(std::make_unique<SqliteDatabase>(schema)), events_(MakeEvents()) {
    Furnish(database_->Dsn());
}

GuiWorld::GuiWorld(NoDatabase /*unused*/) : events_(MakeEvents()) {
    Furnish("nobody_knows_this");
}

WindowEvents GuiWorld::MakeEvents() {
    const auto dispatch = [this] {
        if (whileYielding) whileYielding();
        DispatchPendingEvents();
    };
    const auto now = [this] {
        if (whileYielding) ahead_ += std::chrono::milliseconds(10);
        return std::chrono::steady_clock::now() + ahead_;
    };
    return WindowEvents(dispatch, now);
}

void GuiWorld::Furnish(const std::string& dataSource) {
    gbTerminate = false;
    host.pause = YieldingPause(events_);
    host.paths.programFolder = folder_ / "program";
    fs::create_directory(host.paths.programFolder);
    for (const char* name : {"QorStandard.dct", "Ventlock.dct"})
        fs::copy_file(std::string(VENTLOCK_SOURCE_FOLDER "/data/") + name, ProgramFile(name));
    files_ = std::make_unique<RelativeFiles>(host.Files(), host.paths, host.paths.programFolder);
    profiles_ = std::make_unique<ProfileStore>(*files_, CodePage(1252));
    WriteBytes(PyxPath(), "[TAV Server 1]\r\nDataSourceName=" + dataSource + "\r\n");
    Put("INIPath", PyxPath());
    Put("DDInstallPath", DDInstallPath());
    createDictionary = [this] { return std::make_shared<TavDictionary>(host.Files()); };
    createEngine = [this] { return CreateOdbcEngine(events_, timeLimits); };
}

GuiWorld::~GuiWorld() {
    Forget();
    gbTerminate = false;
    gsLanguage.clear();
}

void GuiWorld::Put(const std::string& name, const std::string& text) {
    const SettingRow* row = FindSetting(name);
    ASSERT_NE(row, nullptr) << name;
    const std::string path = std::string(kSettingsRoot) + std::string(row->writtenSection);
    if (row->IsNumber()) {
        host.registry.PutNumber(RegistryRoot::LocalMachine, path, row->writtenName,
                                static_cast<std::uint32_t>(std::stoi(text)));
    } else {
        host.registry.PutText(RegistryRoot::LocalMachine, path, row->writtenName, text);
    }
}

std::string GuiWorld::Stored(const std::string& name) {
    const SettingRow* row = FindSetting(name);
    EXPECT_NE(row, nullptr) << name;
    const std::string path = std::string(kSettingsRoot) + std::string(row->writtenSection);
    const auto value = host.registry.Get(RegistryRoot::LocalMachine, path, row->writtenName);
    if (!value) return "(none)";
    if (!row->IsNumber()) return value->bytes;
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < value->bytes.size(); ++i)
        number |= static_cast<std::uint32_t>(static_cast<unsigned char>(value->bytes[i])) << (8 * i);
    return std::to_string(static_cast<std::int32_t>(number));
}

std::vector<std::string> GuiWorld::AllStored() {
    std::vector<std::string> all;
    for (const SettingRow& row : StoredSettings()) {
        const std::string name(row.writtenName);
        all.push_back(name + "=" + Stored(name));
    }
    return all;
}

void GuiWorld::ExpectKept(const std::vector<std::string>& before) {
    for (const std::string& stored : before) {
        const std::string name = stored.substr(0, stored.find('='));
        if (!stored.ends_with("=(none)")) {
            EXPECT_EQ(name + "=" + Stored(name), stored);
        }
    }
}

void GuiWorld::PutEntry() {
    const std::pair<const char*, const char*> entry[] = {
        {"ManID", "26"},
        {"ManName", "Acme"},
        {"ManDesc", "Acme Inc"},
        {"ProtID", "2"},
        {"DevID", "0A"},
        {"DevName", "Flow"},
        {"DevDesc", "Flow meter"},
        {"DevRev", "01"},
        {"DDRev", "02"},
        {"ProtRev", "05"},
        {"DevRevName", "R1"},
        {"DevRevDesc", "First"},
        {"DevCatID", "1"},
        {"DevMinCatID", "1"},
        {"DLLName", "Dev.dll"},
        {"TemplateName", "Dev.mrg"},
        {"DevHelp", "Dev.hlp"},
        {"BlkHelp", "Blk.hlp"},
        {"TAVVersions", "5.0, 6.0"},
    };
    for (const auto& [name, text] : entry) Put(name, text);
    WriteBytes(ProgramFile("ventlock.ini"), "[TAVVersionSupport]\r\nTAVVersionSupport=5.0, 6.0, 7.0\r\n");
}

frmMain& GuiWorld::Make() {
    Forget();
    window_ =
        new frmMain({.host = host,
                     .profiles = *profiles_,
                     .events = events_,
                     .messages = messages,
                     .clipboard = clipboard,
                     .fileDialog = fileDialog,
                     .help = help,
                     .createEngine = Journaled(Failing(createEngine, failure), journal_, StatementMode::Run),
                     .createDictionary = createDictionary,
                     .listDataSources = listDataSources});
    return *window_;
}

frmMain& GuiWorld::Start() {
    Make();
    window_->Form_Load();
    if (!window_->IsUnloading()) window_->Show();
    return *window_;
}

void GuiWorld::CloseAndForget() {
    window_->Close();
    WaitUntil("the window to be unloaded", [this] { return window_->IsUnloading() && !window_->IsBusy(); });
    Forget();
}

void GuiWorld::Forget() {
    if (window_ == nullptr) return;
    window_->Destroy();
    window_ = nullptr;
    WaitUntil("the window to be gone", [] { return wxTopLevelWindows.GetCount() == 1; });
}

std::vector<std::string> GuiWorld::LogEntries() {
    std::vector<std::string> entries;
    const std::string path = ProgramFile("Ventlock.log");
    if (!fs::exists(path)) return entries;
    const std::string text = ReadBytes(path);
    const std::string mark = "-->\r\n     ";
    for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at + 1)) {
        const std::size_t begin = at + mark.size();
        entries.push_back(text.substr(begin, text.find("\r\n", begin) - begin));
    }
    return entries;
}

std::vector<std::string> GuiWorld::Statements() {
    std::vector<std::string> statements;
    for (; told_ < journal_.Entries().size(); ++told_)
        statements.push_back(journal_.Entries()[told_].statement);
    return statements;
}

}  // namespace ventlock::test
