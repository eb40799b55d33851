#include "entry/EntryPreview.h"

#include <memory>
#include <utility>

#include "core/clsLog.h"
#include "db/BorrowedConnection.h"
#include "db/StatementJournal.h"
#include "entry/GatherEntry.h"
#include "files/TargetDiff.h"
#include "platform/CollectedMessages.h"
#include "platform/OverlayFiles.h"

namespace ventlock {
namespace {

/// One command on objects of its own.
class Trial {
 public:
    Trial(const PreviewSource& source, const EntryForm& form)
        : files_(source.profiles.Files()),
          profiles_(files_, source.profiles.Page()),
          facade_(source.records.TavDB().CopyFor(objects_)),
          pyxConfig_(profiles_),
          ddInstall_(profiles_) {
        AddLog(source.host);
        AddConnection(source);
        pyxConfig_.Init(objects_, 2);
        ddInstall_.Init(objects_, 2);
        ddInstall_.DDVersion = source.records.DDInstall().DDVersion;
        GatherEntry(form, source.schemaVersion, &objects_, *facade_, ddInstall_, pyxConfig_);
    }

    TargetPreview Database() {
        TargetPreview preview;
        preview.isWritten = facade_->Update();
        NoteStatements(preview, true);
        preview.messages = messages_.Take();
        return preview;
    }

    TargetPreview Ini() {
        return File(pyxConfig_.IniPath,
                    [&] { return pyxConfig_.Insert(facade_->Manufacturer(), facade_->Device()); });
    }

    TargetPreview DDInstall() {
        return File(ddInstall_.IniPath,
                    [&] { return ddInstall_.WriteDDInstall(facade_->Manufacturer(), facade_->Device()); });
    }

 private:
    void AddLog(Host& host) {
        auto log = std::make_shared<clsLog>(files_, host.Clock(), messages_, host.EventLog(), host.AppInfo());
        log->Init("", 2, "Ventlock");
        log->LogLevel = kLogToScreen;
        objects_.Add(kLogKey, log);
    }

    void AddConnection(const PreviewSource& source) {
        EngineFactory createEngine = [] { return std::unique_ptr<IDBEngine>(); };
        if (source.connection != nullptr) createEngine = Borrowing(*source.connection, source.beforeCall);
        auto connection =
            std::make_shared<clsConnection>(Journaled(createEngine, journal_, StatementMode::DryRun));
        if (source.connection != nullptr) connection->Init(objects_, 2);
        objects_.Add(kConnectionKey, connection);
    }

    template <class Work>
    TargetPreview File(const std::string& path, Work&& work) {
        TargetPreview preview;
        NoteStatements(preview, false);
        try {
            const TargetDiff target(profiles_, path);
            preview.isWritten = std::forward<Work>(work)();
            if (preview.isWritten) preview.diff = target.Text();
        } catch (const RunTimeError& error) {
            messages_.Show(error.what(), "", {});
        }
        preview.messages = messages_.Take();
        return preview;
    }

    void NoteStatements(TargetPreview& preview, bool withReads) const {
        for (const JournalEntry& call : journal_.Entries()) {
            if (withReads || call.kind != JournalEntry::Kind::Snapshot)
                preview.statements.push_back(StatementLine(call));
        }
    }

    CollectedMessages messages_;
    StatementJournal journal_;
    OverlayFiles files_;
    ProfileStore profiles_;
    AppObjects objects_;
    std::unique_ptr<clsTavDB> facade_;
    clsPyxConfig pyxConfig_;
    clsDDInstall ddInstall_;
};

}  // namespace

TargetPreview PreviewDatabase(const PreviewSource& source, const EntryForm& form) {
    return Trial(source, form).Database();
}

TargetPreview PreviewIni(const PreviewSource& source, const EntryForm& form) {
    return Trial(source, form).Ini();
}

TargetPreview PreviewDDInstall(const PreviewSource& source, const EntryForm& form) {
    return Trial(source, form).DDInstall();
}

}  // namespace ventlock
