#include "platform/posix/StoreFileRegistry.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <utility>

#include "base/RunTimeError.h"
#include "base/Utf.h"
#include "platform/Casing.h"
#include "platform/CodePage.h"
#include "platform/posix/FileTarget.h"
#include "platform/posix/Folders.h"
#include "platform/posix/StoredValue.h"

namespace ventlock {
namespace {

constexpr std::uint32_t kQueryValue = 0x1;
constexpr std::uint32_t kSetValue = 0x2;
constexpr std::uint32_t kCreateSubKey = 0x4;
constexpr int kUtf8 = 65001;
constexpr std::string_view kBlanks = " \t\v";
constexpr std::string_view kLineEnds("\r\n\0", 3);

RegistryStatus StatusOf(const RunTimeError& error) {
    switch (error.Number()) {
        case ErrorNumber::FileNotFound:
            return kRegistryFileNotFound;
        case ErrorNumber::PermissionDenied:
            return kRegistryInUse;
        case ErrorNumber::DiskFull:
            return kRegistryDiskFull;
        case ErrorNumber::DeviceIoError:
            return kRegistryDeviceError;
        case ErrorNumber::TooManyFiles:
            return kRegistryTooManyFiles;
        default:
            return kRegistryAccessDenied;
    }
}

/// Runs a step of the registry; its error becomes a status.
template <class Step>
RegistryStatus Guarded(Step step) {
    try {
        return step();
    } catch (const RunTimeError& error) {
        return StatusOf(error);
    }
}

bool IsStorable(std::string_view name) {
    if (name.find_first_of(kLineEnds) != std::string_view::npos || !IsUtf8(name)) return false;
    return name.empty() || (kBlanks.find(name.front()) == std::string_view::npos &&
                            kBlanks.find(name.back()) == std::string_view::npos);
}

bool IsValueName(std::string_view name) {
    return IsStorable(name) && name.find('=') == std::string_view::npos && !name.starts_with(';') &&
           !name.starts_with('[');
}

bool IsSectionName(std::string_view name) {
    return IsStorable(name) && name.find(']') == std::string_view::npos &&
           name.find("\\\\") == std::string_view::npos;
}

std::string SectionName(RegistryRoot root, std::string_view path) {
    while (path.ends_with('\\')) path.remove_suffix(1);
    std::string name = root == RegistryRoot::LocalMachine ? "HKEY_LOCAL_MACHINE" : "HKEY_CURRENT_USER";
    if (!path.empty()) name += "\\" + std::string(path);
    return name;
}

/// The store file by its path: reading it, and changing it under its lock.
class Store {
 public:
    Store(IFiles& files, std::string path) : files_(&files), path_(std::move(path)) {}

    [[nodiscard]] ProfileFile Load() const {
        const std::string bytes = files_->ReadIfThere(path_).value_or("");
        std::string_view text = bytes;
        // Some editors put a mark before UTF-8, which would hide the first section. All of them go, or the
        // next write would leave a file that begins otherwise than the one that was read.
        while (text.starts_with(kUtf8Mark)) text.remove_prefix(kUtf8Mark.size());
        return {std::string(text), CodePage(kUtf8)};
    }

    template <class Change>
    void Edit(Change change) const {
        MakeFolders(FolderOf(path_));
        const std::unique_ptr<IFileLock> lock = files_->Lock(path_);
        ProfileFile file = Load();
        change(file);
        files_->Replace(path_, file.Bytes());
    }

    void RequireWritable() const {
        if (files_->Exists(path_)) files_->RequireReplaceable(path_);
    }

 private:
    IFiles* files_;
    std::string path_;
};

/// A key is there when it or a key below it has a section. The roots are always there.
bool HasKey(const ProfileFile& file, const std::string& section) {
    if (section.find('\\') == std::string::npos) return true;
    const std::string wanted = UpperCase(section);
    const std::vector<std::string> sections = file.Sections();
    return std::any_of(sections.begin(), sections.end(), [&](const std::string& name) {
        const std::string upper = UpperCase(name);
        return upper.starts_with(wanted) && (upper.size() == wanted.size() || upper[wanted.size()] == '\\');
    });
}

class StoreFileKey final : public IRegistryKey {
 public:
    StoreFileKey(Store store, std::string section, std::uint32_t mask)
        : store_(std::move(store)), section_(std::move(section)), mask_(mask) {}

    RegistryStatus Query(std::string_view name, std::uint32_t& type, std::string& bytes) override {
        if ((mask_ & kQueryValue) == 0) return kRegistryAccessDenied;
        if (!IsValueName(name)) return kRegistryFileNotFound;
        return Guarded([&] {
            const std::optional<std::string> text = store_.Load().Read(section_, name);
            std::optional<StoredValue> value = text ? ParseStoredText(*text) : std::nullopt;
            if (!value) return kRegistryFileNotFound;
            type = value->type;
            bytes = std::move(value->bytes);
            return kRegistrySuccess;
        });
    }

    RegistryStatus Set(std::string_view name, std::uint32_t type, std::string_view bytes) override {
        if ((mask_ & kSetValue) == 0) return kRegistryAccessDenied;
        if (!IsValueName(name)) return kRegistryInvalidName;
        return Guarded([&] {
            const std::string text = StoredText({type, std::string(bytes)});
            store_.Edit([&](ProfileFile& file) { file.Write(section_, name, text); });
            return kRegistrySuccess;
        });
    }

 private:
    Store store_;
    std::string section_;
    std::uint32_t mask_;
};

}  // namespace

StoreFileRegistry::StoreFileRegistry(IFiles& files, std::string storePath)
    : files_(files), storePath_(std::move(storePath)) {}

std::string StoreFileRegistry::StorePath() {
    const char* const chosen = std::getenv("VENTLOCK_REGISTRY");
    return chosen != nullptr && chosen[0] != '\0' ? chosen : ConfigurationFolder() + "/registry.ini";
}

RegistryStatus StoreFileRegistry::OpenKey(RegistryRoot root, std::string_view path, std::uint32_t mask,
                                          std::unique_ptr<IRegistryKey>& key) {
    const std::string section = SectionName(root, path);
    if (!IsSectionName(section)) return kRegistryFileNotFound;
    return Guarded([&] {
        const Store store(files_, storePath_);
        if (!HasKey(store.Load(), section)) return kRegistryFileNotFound;
        if ((mask & (kSetValue | kCreateSubKey)) != 0) store.RequireWritable();
        key = std::make_unique<StoreFileKey>(store, section, mask);
        return kRegistrySuccess;
    });
}

RegistryStatus StoreFileRegistry::CreateKey(RegistryRoot root, std::string_view path,
                                            std::unique_ptr<IRegistryKey>& key) {
    const std::string section = SectionName(root, path);
    if (!IsSectionName(section)) return kRegistryInvalidName;
    return Guarded([&] {
        const Store store(files_, storePath_);
        store.RequireWritable();
        if (!HasKey(store.Load(), section)) {
            store.Edit([&](ProfileFile& file) { file.AddSection(section); });
        }
        key = std::make_unique<StoreFileKey>(store, section, kKeyFullAccess);
        return kRegistrySuccess;
    });
}

}  // namespace ventlock
